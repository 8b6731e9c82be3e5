// Receipts: what is printed and remembered, what cancels them, what keeps them from being opened.
#include <algorithm>

#include "sim/host.h"
#include "support/contents.h"

namespace sim_test {
namespace {

Bytes Payment(int command, std::uint8_t number, const char* name, std::int64_t amount) {
    return Esc(command, Bytes{number} + Text(name, 13) + Long(amount));
}

// Bread is sold at rate number 7, which is F, and the newspaper at number 5, which is G.
const sim::VatRates kRates = {500, 800, 300, 0, sim::kRateUnused, 2300, sim::kRateExempt};
const Bytes kSequences[] = {
    kBegin,
    Sold({" ", "Chleb razowy", 2, 0, "szt", 355, 7, 710}),
    Sold({" ", "Mas\x88o \x98mietankowe", 1500, 3, "kg", 2799, 2, 4199}),
    Sold({" ", "Gazeta codzienna o tytule dlugim 35", 1, 0, "szt", 250, 5, 250}, 40),
    Sold({"-", "Chleb razowy", 1, 0, "szt", 355, 7, 355}),
    Esc(0x1B, {10}),
    Esc(0x83, Text("EUR   4.1234\0", 13) + Bytes{1} + Long(1000)),
    Esc(0x84, Long(243) + Long(1000) + Long(0) + Long(12)),
    Total(4323),
    Payment(0x81, 2, "Got\xA2wka", 5000),
    Payment(0x82, 2, "Got\xA2wka", 677),
    Esc(0x09, Text("1Dzi\xA9kujemy\n")),
    kEnd,
};

TEST(Receipt, IsPrintedAndRememberedHoweverItsBytesArrive) {
    Bytes receipt;
    for (const Bytes& sequence : kSequences) receipt = receipt + sequence;
    for (const std::size_t portion : {receipt.size(), std::size_t{1}, std::size_t{7}}) {
        SCOPED_TRACE(portion);
        Device device({.vat_rates = kRates});
        Bytes answers;
        for (std::size_t i = 0; i < receipt.size(); i += portion) {
            const auto end = std::min(i + portion, receipt.size());
            answers = answers + Send(device, {receipt.data() + i, receipt.data() + end});
        }
        // Begin and end; everything else is sent into silence.
        EXPECT_EQ(answers, Bytes(2, kAck));
        EXPECT_EQ(Paper(device), Contents(TESTS_DIR "/sim/receipt.txt"));
        EXPECT_EQ(device.day_totals(), (sim::RateAmounts{0, 3779, 0, 0, 0, 319, 225}));
        EXPECT_EQ(Send(device, Esc(0x66)), (Bytes{kAck, 1, 0})) << "receipts";
    }
}

Bytes Times(int count, const Bytes& bytes) {
    Bytes all;
    for (int i = 0; i < count; ++i) all = all + bytes;
    return all;
}

Bytes Amount(int command, const char* sign, std::int64_t amount) {
    return Esc(command, Text(sign) + Long(amount));
}

const Bytes kOnePercent = Esc(0x1C, {'R', 1, 0});
const Bytes kCurrencyPayment = Esc(0x84, Long(100) + Long(400) + Long(0) + Long(0));

// What the host sends into an open receipt that holds two loaves of bread.
const struct {
    const char* name;
    int reason;
    Bytes sent, answer{};
    int type = 10;
    std::chrono::milliseconds pause{};
} kRules[] = {
    {"currency payment first", 32, kCancel + kBegin + kCurrencyPayment, Bytes(3, kAck)},
    {"on its sister type", 32, kCancel + kBegin + kCurrencyPayment, Bytes(3, kAck), 11},
    {"stray byte", 49, {'x'}},
    {"unknown command", 49, Esc(0x03), {kNak}},
    {"payment that the type lacks", 49, Payment(0x81, 1, "Karta", 1), {}, 3},
    {"discount above the total", 50, Amount(0x19, "-", 701)},
    {"receipt in a receipt", 51, kBegin, {kNak}},
    {"end before the total", 51, kEnd, {kNak}},
    {"too many items", 52, Times(1000, kBread)},
    {"too many lines", 53, Times(24, Esc(0x09, Text("1tekst\n")))},
    {"open too long", 54, {}, {}, 10, 21min},
    {"unprintable name", 65, Sold({.name = "Chleb\x07razowy"})},
    {"locked", 67, Sold({.rate = 2}) + Total(1400) + kEnd + kBegin + kBread, {kAck, kAck}},
    {"quantity", 70, Sold({.quantity = 100'000'000, .price = 1, .value = 100'000'000})},
    {"quantity of an older type", 70, Sold({.quantity = 1'000'000, .price = 1}), {}, 2},
    {"price", 71, Sold({.quantity = 1, .price = 1'000'000'000, .value = 1'000'000'000})},
    {"no marker", 72, Sold({.marker = 0x1C})},
    {"rate not in use", 73, Sold({.rate = 6})},
    {"balance", 74, Sold({.sign = "-", .quantity = 3, .value = 1050})},
    {"correction of more than was paid", 74, kOnePercent + kCorrection},
    {"value", 75, Sold({.quantity = 1500, .decimals = 3, .price = 250, .value = 376})},
    {"value too big", 75, Sold({.quantity = 10, .price = 999'999'999, .value = -1})},
    {"value of nothing", 82, Sold({.value = 0})},
    {"receipt too big", 83, Sold({.quantity = 1, .price = 999'999'999, .value = 999'999'999})},
    {"nothing sold", 84, kCorrection + Total(0)},
    {"surcharge", 85, Amount(0x19, " ", 999'999'999)},
    {"second discount on an item", 87, kOnePercent + kOnePercent},
    {"pause in the data", 88, Esc(0x06, Text(" C")), {}, 10, 2001ms},
    {"currency", 89, Esc(0x83, Text("EURabc", 13) + Bytes{1} + Long(100))},
};

TEST(Receipt, IsCancelledForAReasonAndTheNextOneWorks) {
    for (const auto& [name, reason, sent, answer, type, pause] : kRules) {
        SCOPED_TRACE(name);
        Device device({.type = type});
        Send(device, kBegin + kBread);
        EXPECT_EQ(Send(device, sent), answer);
        device.Advance(pause);
        EXPECT_FALSE(device.receipt_open());
        EXPECT_NE(Paper(device).find("PARAGON ANULOWANY"), std::string::npos);
        // The rest of the receipt falls on deaf ears and does no harm.
        Talk(device, {{"reason", Esc(0x50), {kAck, static_cast<std::uint8_t>(reason)}},
                      {"status", Esc(0x95), {0x10}},
                      {"rest", kBread + Total(700) + kEnd, {kNak}},
                      {"next", kBegin + Sold({.name = "Gazeta"}) + Total(700) + kEnd, {kAck, kAck}},
                      {"no reason", Esc(0x50) + Esc(0x95), {kAck, 0, 0}}});
    }
}

using Faults = sim::FaultPanel;
const struct {
    bool Faults::*fault;
    Bytes status;  // A, B, C, D
} kObstacles[] = {
    {&Faults::no_producer_data, {0, 0, 2, 0}},
    {&Faults::no_user_data, {0, 0, 1, 0}},
    {&Faults::read_only, {0, 0, 7, 0}},
    {&Faults::cmos_erased, {0x11, 0, 3, 0}},
    {&Faults::service_jumper, {0, 0, 3, 0x40}},
    {&Faults::no_printer_controller, {0x80, 0x80, 3, 0}},
    {&Faults::printer_failure, {0, 0x04, 3, 0}},
    {&Faults::no_customer_display, {0x40, 0, 3, 0}},
    {&Faults::pending_daily_report, {0x08, 0, 3, 0}},
    {&Faults::no_paper, {0, 0x02, 3, 0}},
    {&Faults::print_halted, {0, 0x40, 3, 0}},
};

TEST(Receipt, ObstaclesShowInTheStatusAndKeepItClosed) {
    for (const auto& [fault, status] : kObstacles) {
        SCOPED_TRACE(testing::PrintToString(status));
        Device device;
        device.faults().*fault = true;
        EXPECT_EQ(Send(device, Esc(0x94) + Esc(0x95) + Esc(0x9B) + Esc(0x96)), status);
        EXPECT_EQ(Send(device, kBegin), Bytes{kNak});
    }
}

}  // namespace
}  // namespace sim_test
