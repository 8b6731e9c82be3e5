// Non-fiscal printouts and the control printout. Their lines go out as raw frames.
#include <cstring>

#include "koraxdr/frame.h"
#include "koraxdr/raw_frame.h"
#include "koraxdr/send_layout.h"

namespace {

constexpr ControlSequence kPoczatekWydruku = {0x73, 1, 2};
constexpr ControlSequence kKoniecWydruku = {0x51, 0};
constexpr ControlSequence kPoczatekWydrukuKontrolnego = {0x3F};

constexpr int32_t kNajwiekszyNumer = 99;
constexpr int kNazwaKontrolna = 28;

enum OperacjaKontrolna : int32_t { kPoczatek = 1, kKoniec = 2 };

int32_t RozpocznijZNumerem(int32_t numerWydruku) {
    if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
    // Negative numbers are not refused, on purpose.
    return numerWydruku > kNajwiekszyNumer ? blad::kParametrPozaZakresem : blad::kBrak;
}

int32_t ZakonczWydruk() {
    if (const int32_t numer = Wyslij(kKoniecWydruku)) return numer;
    return ZakonczDrukowanie();
}

int32_t PoslijWolnaLinie(const char* tekst) {
    return RawFrame().Bytes({kEsc, 'c'}).Text(tekst).Bytes({kLf}).Send();
}

int32_t PoslijLinieB(const char* tekst) {
    return RawFrame()
        .Bytes({kEsc, 0xB0})
        .Text("qBI:N1:10:30:")
        .Text(tekst + 1)
        .Bytes({kEsc, 0xB3})
        .SendForConsent();
}

int32_t RozpocznijWydrukKontrolny() {
    if (const int32_t numer = PrintControl(1)) return numer;
    if (const int32_t numer = IsCodePage1250(&CodePage1250)) return numer;
    return Wyslij(kPoczatekWydrukuKontrolnego);
}

int32_t PoslijLinieKontrolna(const char* nazwa, int32_t stawka) {
    char znormalizowana[256];
    NormNazwa(znormalizowana, nazwa);
    RawFrame ramka;
    ramka.Bytes({stawka & 0xFF}).Field(kNazwaKontrolna, znormalizowana);
    return ramka.Sent() ? blad::kBrak : blad::kTimeoutNadawania;
}

}  // namespace

int32_t KORAX_CALL NonFiscalPrintoutBegin(int32_t Number) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function NonFiscalPrintoutBegin:", {{"1.Number: ", Number}});
        if (const int32_t numer = RozpocznijZNumerem(Number)) return numer;
        if (const int32_t numer = PrintControl(1)) return numer;
        WpiszBajt(1, '0' + Number / 10);
        WpiszBajt(2, '0' + Number % 10);
        return Wyslij(kPoczatekWydruku);
    });
}

int32_t KORAX_CALL NonFiscalPrintoutEnd(void) {
    return Funkcja([]() -> int32_t {
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        return ZakonczWydruk();
    });
}

int32_t KORAX_CALL pNonFiscalPrintoutLine(int32_t Number, const char* Text, int32_t If0A) {
    return Funkcja([&]() -> int32_t {
        // The third label repeats the number 1, and the head leaves out the "p"; both are meant.
        PokazArgumenty("Sent to function NonFiscalPrintoutLine:",
                       {{"1.Number: ", Number}, {"2.Text: ", Text}, {"1.If0A: ", If0A}});
        if (Text == nullptr) return blad::kPustyBufor;
        if (const int32_t numer = RozpocznijZNumerem(Number)) return numer;
        RawFrame ramka;
        ramka.Bytes({'0' + Number / 10, '0' + Number % 10}).Text(Text);
        if (If0A) ramka.Bytes({kLf});
        return ramka.Send();
    });
}

int32_t KORAX_CALL pAddNonFiscalPrintoutLine(const char* Text) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function NonFiscalPrintoutLine:", {{"1.Text: ", Text}});
        if (Text == nullptr) return blad::kPustyBufor;
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        return Text[0] == 'B' ? PoslijLinieB(Text) : PoslijWolnaLinie(Text);
    });
}

int32_t KORAX_CALL pControlPrintout(int32_t Operation, const char* Name, int32_t TaxRate) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty(
            "Sent to function pControlPrintout:",
            {{"1.Operation: ", Operation}, {"2.Name: ", Name}, {"3.TaxRate: ", TaxRate}});
        const bool linia = Operation != kPoczatek && Operation != kKoniec;
        if (linia && Name == nullptr) return blad::kPustyBufor;
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        if (linia) return PoslijLinieKontrolna(Name, TaxRate);
        return Operation == kPoczatek ? RozpocznijWydrukKontrolny() : ZakonczWydruk();
    });
}
