#include "sim/documents.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <numeric>

#include "sim/host.h"

namespace sim_test {
namespace {

Bytes WithCheckSum(int command, std::uint8_t number, const Bytes& content) {
    const int sum = std::accumulate(content.begin(), content.end(), 0, std::bit_xor<>());
    return Esc(command, Bytes{number} + content + Bytes{static_cast<std::uint8_t>(sum)});
}

Bytes Footer(std::uint8_t line, const char* text) {
    return WithCheckSum(0x2E, line, Text(text, 40));
}

// A frame with a wave in it, 192 by 64 dots.
Bytes LogoRows() {
    Bytes rows;
    for (int y = 0; y < 64; ++y) {
        Bytes row(24);
        for (int x = 0; x < 192; ++x) {
            const int distance_to_edge = std::min({x, 191 - x, y, 63 - y});
            const int wave = std::abs(x % 64 - 32) + 16;  // the height of its crest
            const bool black = distance_to_edge < 3 || (y > wave && y < wave + 8);
            if (black)
                row[static_cast<std::size_t>(x / 8)] |= static_cast<std::uint8_t>(0x80 >> x % 8);
        }
        rows = rows + WithCheckSum(0x2D, static_cast<std::uint8_t>(y), row);
    }
    return rows;
}

Bytes Payment(int command, const char* name, std::int64_t amount) {
    return Esc(command, Bytes{1} + Text(name, 13) + Long(amount));
}

const Item kButter{.name = "Mas\x88o \x98mietankowe",
                   .quantity = 1500,
                   .decimals = 3,
                   .unit = "kg",
                   .price = 2799,
                   .rate = 2,
                   .value = 4199};
const Item kPen{.name = "Pi\xA2ro wieczne", .quantity = 1, .price = 12900, .value = 12900};

Bytes Receipt() {
    return kBegin + kBread + Sold(kButter) + Esc(0x1C, {'R', 10, 0}) + kCorrection + kBread +
           Total(4479) + Payment(0x81, "Got\xA2wka", 5000) + Payment(0x82, "Got\xA2wka", 521) +
           Esc(0x09, Text("1Dzi\xA9kujemy\n")) + kEnd;
}

Bytes Invoice() {
    Bytes buyer;
    for (const char* line :
         {"Zak\x88"
          "ad \x97lusarski",
          "Jan \xBD\xA2\x88ty", "ul. D\x88uga 3", "90-001 \x9D\xA2\x64\xAB", "", ""})
        buyer = buyer + Text(line, 40);
    return Esc(0x4D, Text("FV 7/2013", 20)) + Esc(0x4E, buyer) +
           Esc(0x4F, Text("123-456-32-18", 13)) + Sold(kPen) + Total(12900) +
           Payment(0x81, "Karta", 12900) + kEnd;
}

Bytes FreeLine(const char* text) {
    return Esc(0x63, Text(text) + Bytes{'\n'});
}

Bytes Bars(const char* text) {
    return Esc(0xB0, Text("qBI:N1:10:30:") + Text(text) + Esc(0xB3));
}

Bytes Printout() {
    return Esc(0x73, Text("07")) + FreeLine("POTWIERDZENIE ODBIORU") + FreeLine("") +
           FreeLine("  Lp  Nazwa               Szt     Cena") +
           FreeLine("   1  Za\xBE\xA2\x88\x86 g\xA9\x98l\xA5 ja\xAB\xE4      12     3,50") +
           FreeLine(
               "   2  PCHN\xA4\x8F W T\xA8 \x9D\xE0"
               "D\x8D       1  1234,00") +
           FreeLine("A line that is longer than the forty columns of the roll is cut") +
           FreeLine("<&> \"'#$%*+=@[]^_`{|}~\\/;:!?") + FreeLine("") + Bars("590123412345") +
           Bars("Zwrot/2013-42") + Esc(0x51);
}

std::vector<sim::PaperElement> Printed(Device& device, const Bytes& sequences) {
    device.TearOffPaper();
    Send(device, sequences);
    return device.printed();
}

}  // namespace

std::vector<Document> Documents() {
    Device device({.type = 11});
    Send(device, LogoRows() + Footer(0, "Zapraszamy ponownie!"));
    std::vector<Document> documents;
    documents.push_back({"receipt", Printed(device, Receipt())});
    documents.push_back({"invoice", Printed(device, Invoice())});
    documents.push_back({"daily-report", Printed(device, Esc(0x25))});
    documents.push_back({"printout", Printed(device, Printout())});
    return documents;
}

}  // namespace sim_test
