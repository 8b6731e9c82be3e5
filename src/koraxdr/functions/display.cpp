// The customer display on the device, of one of three kinds.
#include <cstring>

#include "koraxdr/command.h"
#include "koraxdr/device_types.h"
#include "koraxdr/frame.h"
#include "koraxdr/send_layout.h"
#include "koraxdr/session.h"
#include "port/wire_bytes.h"

namespace {

constexpr DeviceTypes kTypyZWyswietlaczem = {1, 2, 3, 5, 6};
constexpr DeviceTypes kTypyZLinia19 = {3};

constexpr int kZnakow = 9;
constexpr int kZnakowLinii = 20;
constexpr int32_t kNumerKasujacy = 4;

constexpr int kPierwszaLinia = 0x0B;  // also the head of a frame to a numbered display
constexpr int kPierwszaLinia19 = 0x19;
constexpr int kDrugaLinia = 0x0C;

struct DisplayKind {
    bool sparse, numbered, two_line;
};

// Oddity: The kind of display is read from a stale byte. The query refreshes the first answer byte
// alone; the second is what the exchange before left there.
int32_t RozpoznajWyswietlacz(DisplayKind& kind) {
    if (const int32_t error = Wyslij(kPytanieOWyswietlacz)) return error;
    kind.sparse = (BajtOdpowiedzi(1) & 0x01) != 0;
    kind.numbered = (BajtOdpowiedzi(1) & 0x04) != 0;
    kind.two_line = (BajtOdpowiedzi(2) & 0x02) != 0;
    return KORAX_E_OK;
}

int32_t WyslijRamke(SendRun& frame) {
    frame.Bytes({kLf, kEsc, 'S'});
    return Wyslij(kRamkaWyswietlacza, frame.length());
}

int32_t WyslijTekst(std::initializer_list<int> head, const char* text, int at_most) {
    SendRun frame;
    frame.Bytes(head).Text(text, TextForm::kDevice, at_most);
    return WyslijRamke(frame);
}

int32_t SkasujWyswietlacz(const DisplayKind& kind) {
    if (kind.numbered) {
        if (const int32_t error = WyslijTekst({kPierwszaLinia, '0'}, "", 0)) return error;
    }
    return Wyslij(kKasowanieWyswietlacza);
}

// Oddity: A sparse display gets one character many times. Every odd position below the text's
// length holds its first character, and the positions between keep what the send buffer last held.
int32_t WyslijRzadko(const char* text) {
    const int length = static_cast<int>(strnlen(text, kZnakow));
    SendRun frame;
    for (int position = 1; position < length; position += 2) {
        frame.MoveTo(position).Text(text, TextForm::kDevice, 1);
    }
    return WyslijRamke(frame);
}

int32_t WyslijDwieLinie(const char* text) {
    const int head = kTypyZLinia19.Contains(Urzadzenie) ? kPierwszaLinia19 : kPierwszaLinia;
    const bool has_second = strnlen(text, kZnakowLinii) == kZnakowLinii;
    if (const int32_t error = WyslijTekst({head}, text, kZnakowLinii)) return error;
    return WyslijTekst({kDrugaLinia}, has_second ? text + kZnakowLinii : "", kZnakowLinii);
}

}  // namespace

int32_t KORAX_CALL pDisplayGX450(int32_t Number, const char* Text) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function pDisplayGX450:",
                       {{"1.Number: ", Number}, {"2.Text: ", Text}});
        if (Text == nullptr) return KORAX_E_NULL;
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        if (!kTypyZWyswietlaczem.Contains(Urzadzenie)) return KORAX_E_COMMAND_NOT_AVAILABLE;
        DisplayKind kind = {};
        if (const int32_t error = RozpoznajWyswietlacz(kind)) return error;
        if (Number == kNumerKasujacy) return SkasujWyswietlacz(kind);
        if (kind.sparse) return WyslijRzadko(Text);
        if (kind.numbered)
            return WyslijTekst({kPierwszaLinia, '0' + (Number & 0xFF)}, Text, kZnakow);
        return kind.two_line ? WyslijDwieLinie(Text) : KORAX_E_OK;
    });
}
