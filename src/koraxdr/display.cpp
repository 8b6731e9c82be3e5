// The customer display on the device, of one of three kinds.
#include <cstring>

#include "koraxdr/device_types.h"
#include "koraxdr/frame.h"
#include "koraxdr/polish_text.h"
#include "koraxdr/raw_frame.h"
#include "koraxdr/send_layout.h"

namespace {

constexpr ControlSequence kPytanieOWyswietlacz = {0x56, 2};
constexpr ControlSequence kRamkaWyswietlacza = {0x52, 1};
constexpr ControlSequence kRozkazNumeru4 = {0x75};

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

// The query refreshes the first answer byte alone; the second is read as the exchange before left
// it. This is kept.
int32_t RozpoznajWyswietlacz(DisplayKind& rodzaj) {
    if (const int32_t numer = Wyslij(kPytanieOWyswietlacz)) return numer;
    rodzaj.sparse = (BajtOdpowiedzi(1) & 0x01) != 0;
    rodzaj.numbered = (BajtOdpowiedzi(1) & 0x04) != 0;
    rodzaj.two_line = (BajtOdpowiedzi(2) & 0x02) != 0;
    return blad::kBrak;
}

int32_t WyslijRamke(SendRun& ramka) {
    ramka.Bytes({kLf, kEsc, 'S'});
    return Wyslij(kRamkaWyswietlacza, ramka.length());
}

int32_t WyslijTekst(std::initializer_list<int> naglowek, const char* tekst, int najwyzej) {
    SendRun ramka;
    ramka.Bytes(naglowek).Text(tekst, TextForm::kDevice, najwyzej);
    return WyslijRamke(ramka);
}

int32_t SkasujWyswietlacz(const DisplayKind& rodzaj) {
    if (rodzaj.numbered) {
        if (const int32_t numer = WyslijTekst({kPierwszaLinia, '0'}, "", 0)) return numer;
    }
    return Wyslij(kRozkazNumeru4);
}

// Every odd position below the text's length holds its first character; the positions in between
// keep what the send buffer last held. The display wants it so.
int32_t WyslijRzadko(const char* tekst) {
    const int dlugosc = static_cast<int>(strnlen(tekst, kZnakow));
    SendRun ramka;
    for (int pozycja = 1; pozycja < dlugosc; pozycja += 2) {
        ramka.MoveTo(pozycja).Text(tekst, TextForm::kDevice, 1);
    }
    return WyslijRamke(ramka);
}

int32_t WyslijDwieLinie(const char* tekst) {
    const int naglowek = kTypyZLinia19.Contains(Urzadzenie) ? kPierwszaLinia19 : kPierwszaLinia;
    const bool druga = strnlen(tekst, kZnakowLinii) == kZnakowLinii;
    if (const int32_t numer = WyslijTekst({naglowek}, tekst, kZnakowLinii)) return numer;
    return WyslijTekst({kDrugaLinia}, druga ? tekst + kZnakowLinii : "", kZnakowLinii);
}

}  // namespace

int32_t KORAX_CALL pDisplayGX450(int32_t Number, const char* Text) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function pDisplayGX450:",
                       {{"1.Number: ", Number}, {"2.Text: ", Text}});
        if (Text == nullptr) return blad::kPustyBufor;
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        if (!kTypyZWyswietlaczem.Contains(Urzadzenie)) return blad::kRozkazNiedostepny;
        DisplayKind rodzaj = {};
        if (const int32_t numer = RozpoznajWyswietlacz(rodzaj)) return numer;
        if (Number == kNumerKasujacy) return SkasujWyswietlacz(rodzaj);
        if (rodzaj.sparse) return WyslijRzadko(Text);
        if (rodzaj.numbered)
            return WyslijTekst({kPierwszaLinia, '0' + (Number & 0xFF)}, Text, kZnakow);
        return rodzaj.two_line ? WyslijDwieLinie(Text) : blad::kBrak;
    });
}
