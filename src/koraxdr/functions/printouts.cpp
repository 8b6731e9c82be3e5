// Non-fiscal printouts and the control printout. Their lines go out as raw frames.
#include <cstring>

#include "koraxdr/article_name.h"
#include "koraxdr/command.h"
#include "koraxdr/device.h"
#include "koraxdr/frame.h"
#include "koraxdr/raw_frame.h"
#include "koraxdr/send_layout.h"
#include "koraxdr/session.h"

namespace {

constexpr int32_t kNajwiekszyNumer = 99;

enum ControlOperation : int32_t { kPoczatek = 1, kKoniec = 2 };

int32_t RozpocznijZNumerem(int32_t printout_number) {
    if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
    // Oddity: Negative numbers of printouts pass. The device judges them.
    return printout_number > kNajwiekszyNumer ? KORAX_E_OUT_OF_RANGE : KORAX_E_OK;
}

int32_t ZakonczWydruk() {
    if (const int32_t error = Wyslij(kKoniecWydruku)) return error;
    return PrintControl(0);
}

int32_t PoslijWolnaLinie(const char* text) {
    return RawFrame().Bytes({kEsc, 'c'}).Text(text).Bytes({kLf}).Send();
}

int32_t PoslijLinieB(const char* text) {
    return RawFrame()
        .Bytes({kEsc, kRamkaTekstowa.command})
        .Text("qBI:N1:10:30:")
        .Text(text + 1)
        .Bytes({kEsc, kKoniecRamki})
        .SendForConsent();
}

int32_t RozpocznijWydrukKontrolny() {
    if (const int32_t error = PrintControl(1)) return error;
    if (const int32_t error = OdczytajStroneKodowa(CodePage1250)) return error;
    return Wyslij(kPoczatekWydrukuKontrolnego);
}

int32_t PoslijLinieKontrolna(const char* name, int32_t rate) {
    char normalised[kBuforNazwy];
    NormalizujNazwe(normalised, name);
    RawFrame frame;
    frame.Bytes({rate & 0xFF}).Field(kNazwaKrotka, normalised);
    return frame.Sent() ? KORAX_E_OK : KORAX_E_SEND_TIMEOUT;
}

}  // namespace

int32_t KORAX_CALL NonFiscalPrintoutBegin(int32_t Number) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function NonFiscalPrintoutBegin:", {{"1.Number: ", Number}});
        if (const int32_t error = RozpocznijZNumerem(Number)) return error;
        if (const int32_t error = PrintControl(1)) return error;
        WpiszBajt(1, '0' + Number / 10);
        WpiszBajt(2, '0' + Number % 10);
        return Wyslij(kPoczatekWydruku);
    });
}

int32_t KORAX_CALL NonFiscalPrintoutEnd(void) {
    return Funkcja([]() -> int32_t {
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        return ZakonczWydruk();
    });
}

int32_t KORAX_CALL pNonFiscalPrintoutLine(int32_t Number, const char* Text, int32_t If0A) {
    return Funkcja([&]() -> int32_t {
        // Oddity: The box of pNonFiscalPrintoutLine misnames things. Its third label repeats the
        // number 1, and its head leaves out the "p".
        PokazArgumenty("Sent to function NonFiscalPrintoutLine:",
                       {{"1.Number: ", Number}, {"2.Text: ", Text}, {"1.If0A: ", If0A}});
        if (Text == nullptr) return KORAX_E_NULL;
        if (const int32_t error = RozpocznijZNumerem(Number)) return error;
        RawFrame frame;
        frame.Bytes({'0' + Number / 10, '0' + Number % 10}).Text(Text);
        if (If0A) frame.Bytes({kLf});
        return frame.Send();
    });
}

int32_t KORAX_CALL pAddNonFiscalPrintoutLine(const char* Text) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function NonFiscalPrintoutLine:", {{"1.Text: ", Text}});
        if (Text == nullptr) return KORAX_E_NULL;
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        return Text[0] == 'B' ? PoslijLinieB(Text) : PoslijWolnaLinie(Text);
    });
}

int32_t KORAX_CALL pControlPrintout(int32_t Operation, const char* Name, int32_t TaxRate) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty(
            "Sent to function pControlPrintout:",
            {{"1.Operation: ", Operation}, {"2.Name: ", Name}, {"3.TaxRate: ", TaxRate}});
        const bool line = Operation != kPoczatek && Operation != kKoniec;
        if (line && Name == nullptr) return KORAX_E_NULL;
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        if (line) return PoslijLinieKontrolna(Name, TaxRate);
        return Operation == kPoczatek ? RozpocznijWydrukKontrolny() : ZakonczWydruk();
    });
}
