// Forms of payment, currency payments, and the lines printed after a receipt.
#include <cstring>

#include "koraxdr/device_types.h"
#include "koraxdr/receipt.h"
#include "koraxdr/send_layout.h"

namespace {

constexpr ControlSequence kPlatnoscWalutowa1 = {131, 0, 18};
constexpr ControlSequence kDodatkowaPlatnoscWalutowa = {8, 0, 18};

constexpr DeviceTypes kTypyZWyslaniemPlatnosci = {4, 8, 9, 10, 11, 12, 13};
constexpr DeviceTypes kTypyZPlatnosciaWalutowa1 = {8, 10, 11, 12};
constexpr DeviceTypes kTypyZPlatnosciaWalutowa2 = {8, 10, 11, 12, 13};
constexpr DeviceTypes kTypyBezDodatkowejPlatnosci = {1, 2, 3, 5, 6};

constexpr int kNazwaPlatnosci = 13;
constexpr int32_t kZaDuzyNumerLinii = 23;

// Types that take the additional currency payment from a program version on.
constexpr struct { int32_t type, version; } kOdWersji[] = {{4, 6}, {8, 2}};

bool NumerPlatnosciZly(int32_t numer) {
    return numer < 1 || numer > kPlatnosci;
}

void PokazArgumentyPlatnosci(const char* naglowek, int32_t numer, const char* nazwa, int32_t kwota,
                             int32_t reszta) {
    PokazArgumenty(naglowek, {{"1.PaymentNo: ", numer},
                              {"2.PamentName: ", nazwa},
                              {"3.Total: ", kwota},
                              {"4.Change: ", reszta}});
}

void DopelnijNazwe(char* cel, const char* nazwa) {
    KopiujTekst(cel, nazwa, kNazwaPlatnosci + 1);
    for (size_t i = std::strlen(cel); i < kNazwaPlatnosci; ++i) cel[i] = ' ';
    cel[kNazwaPlatnosci] = '\0';
}

int32_t LiczbaWolnychLinii() {
    int32_t wolnych = 0;
    for (int i = 1; i <= kLiniiDodatkowych; ++i) {
        if (AdditionalLines[i].number == kLiniaWolna) ++wolnych;
    }
    return wolnych;
}

bool DodatkowaPlatnoscDostepna() {
    for (const auto& [type, version] : kOdWersji) {
        if (Urzadzenie == type && Prog < version) return false;
    }
    return !kTypyBezDodatkowejPlatnosci.Contains(Urzadzenie);
}

}  // namespace

int32_t WyslijPlatnosc(int32_t numer, const char* nazwa, int32_t kwota, int32_t reszta) {
    WpiszBajt(1, numer);
    WpiszPole(2, kNazwaPlatnosci, nazwa);
    WpiszLiczbe(15, kwota);
    if (const int32_t odmowa = Wyslij(kFormaPlatnosci)) return odmowa;
    WpiszLiczbe(15, reszta);  // the first 14 bytes stay
    return Wyslij(kResztaPlatnosci);
}

int32_t KORAX_CALL pFillPayment(int32_t PaymentNo, const char* PaymentName, int32_t Paid,
                                int32_t Change) {
    return Funkcja([&]() -> int32_t {
        PokazArgumentyPlatnosci("Sent to function pFillPayment: ", PaymentNo, PaymentName, Paid,
                                Change);
        if (PaymentName == nullptr) return blad::kPustyBufor;
        if (NumerPlatnosciZly(PaymentNo)) return blad::kParametrPozaZakresem;
        PaymentSlot& slot = Payments[PaymentNo];
        DopelnijNazwe(slot.name, PaymentName);
        slot.total = Paid;
        slot.change = Change;
        return blad::kBrak;
    });
}

int32_t KORAX_CALL pSendPayment(int32_t PaymentNo, const char* PaymentName, int32_t Paid,
                                int32_t Change) {
    return Funkcja([&]() -> int32_t {
        PokazArgumentyPlatnosci("Sent to function pSendPayment: ", PaymentNo, PaymentName, Paid,
                                Change);
        if (PaymentName == nullptr) return blad::kPustyBufor;
        if (NumerPlatnosciZly(PaymentNo)) return blad::kParametrPozaZakresem;
        if (!kTypyZWyslaniemPlatnosci.Contains(Urzadzenie)) return blad::kRozkazNiedostepny;
        return WyslijPlatnosc(PaymentNo, PaymentName, Paid, Change);
    });
}

int32_t KORAX_CALL ErasePayments(void) {
    return Funkcja([]() -> int32_t {
        for (int i = 1; i <= kPlatnosci; ++i) Payments[i] = {};
        return blad::kBrak;
    });
}

int32_t KORAX_CALL pFillLines(int32_t Number, const char* Line, int32_t* FreeLines) {
    return Funkcja([&]() -> int32_t {
        // The head is misspelt on purpose.
        PokazArgumenty("Sent to functon pFillLines:", {{"1.Number: ", Number}, {"2.Line: ", Line}});
        if (Line == nullptr || FreeLines == nullptr) return blad::kPustyBufor;
        if (Number >= kZaDuzyNumerLinii) return blad::kParametrPozaZakresem;
        *FreeLines = LiczbaWolnychLinii();
        if (*FreeLines == 0) return blad::kLinieZajete;
        // Slots are taken from the front; the used ones are there already.
        LineSlot& slot = AdditionalLines[kLiniiDodatkowych + 1 - *FreeLines];
        slot.number = Number;
        KopiujTekst(slot.text, Line, sizeof slot.text);
        --*FreeLines;
        return blad::kBrak;
    });
}

int32_t KORAX_CALL xFillLines(int32_t Number, const char* Line) {
    int32_t wolnych = 0;
    ZapamietajBlad(pFillLines(Number, Line, &wolnych));
    return wolnych;
}

int32_t KORAX_CALL EraseLines(void) {
    return Funkcja([]() -> int32_t {
        for (int i = 1; i <= kLiniiDodatkowych; ++i) AdditionalLines[i] = {};
        return blad::kBrak;
    });
}

int32_t KORAX_CALL pCurrencyPayment1(const char* CurrencyName, const char* Rate, int32_t Qantity,
                                     int32_t Subtotal, int32_t Send) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function pCurrencyPayment1: ", {{"1.CurrencyName: ", CurrencyName},
                                                                {"2.Rate: ", Rate},
                                                                {"3.Qantity: ", Qantity},
                                                                {"4.Subtotal: ", Subtotal},
                                                                {"5.Send: ", Send}});
        if (CurrencyName == nullptr || Rate == nullptr) return blad::kPustyBufor;
        if (!kTypyZPlatnosciaWalutowa1.Contains(Urzadzenie)) return blad::kRozkazNiedostepny;
        WpiszPole(1, 3, CurrencyName);
        WpiszPole(4, 10, Rate);
        WpiszBajt(14, Qantity);
        WpiszLiczbe(15, Subtotal);
        if (Send) return Wyslij(kPlatnoscWalutowa1);
        CP1.send = 1;
        KopiujTekst(CP1.currency_name, CurrencyName, sizeof CP1.currency_name);
        KopiujTekst(CP1.rate, Rate, sizeof CP1.rate);
        CP1.quantity = Qantity;
        CP1.subtotal = Subtotal;
        return blad::kBrak;
    });
}

int32_t KORAX_CALL pCurrencyPayment2(int32_t TotalInCurrency, int32_t TotalInBaseCurrency,
                                     int32_t Change, int32_t TypeOfChange, int32_t Send) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function pCurrencyPayment2: ",
                       {{"1.TotalInCurrency: ", TotalInCurrency},
                        {"2.TotalInBaseCurrency: ", TotalInBaseCurrency},
                        {"3.Change: ", Change},
                        {"4.TypeOfChange: ", TypeOfChange},
                        {"5.Send: ", Send}});
        if (!kTypyZPlatnosciaWalutowa2.Contains(Urzadzenie)) return blad::kRozkazNiedostepny;
        WpiszLiczbe(1, TotalInCurrency);
        WpiszLiczbe(5, TotalInBaseCurrency);
        WpiszLiczbe(9, TypeOfChange != 0 ? Change : 0);
        WpiszLiczbe(13, TypeOfChange != 1 ? Change : 0);
        if (Send) return Wyslij(kPlatnoscWalutowa2);
        CP2 = {1, TotalInCurrency, TotalInBaseCurrency, Change, TypeOfChange};
        return blad::kBrak;
    });
}

// None of its results is stored as the last error, on purpose: LastError gives 0 after it.
int32_t KORAX_CALL pAdditionalCurrencyPayment(int32_t Number, int32_t IsChange, const char* Name,
                                              int32_t PaidInForeignCurrency, int32_t ExchangeRate,
                                              int32_t QAC, int32_t PaidInBaseCurrency) {
    ErrorLastError = 0;
    PokazArgumenty("Sent to function pAdditionalCurrencyPayment: ",
                   {{"1.Number: ", Number},
                    {"2.IsChange: ", IsChange},
                    {"3.Name: ", Name},
                    {"4.PaidInForeignCurrency: ", PaidInForeignCurrency},
                    {"5.ExchangeRate: ", ExchangeRate},
                    {"6.QAC: ", QAC},
                    {"7.PaidInBaseCurrency: ", PaidInBaseCurrency}});
    if (Name == nullptr) return blad::kPustyBufor;
    if (!DodatkowaPlatnoscDostepna()) return blad::kRozkazNiedostepny;
    if (std::strlen(Name) < 3) return blad::kZaKrotkaNazwaWaluty;
    WpiszBajt(1, Number);
    WpiszBajt(2, IsChange);
    WpiszPole(3, 3, Name, TextForm::kAsGiven);
    WpiszLiczbe(6, PaidInForeignCurrency);
    WpiszLiczbe(10, ExchangeRate);
    WpiszBajt(14, QAC);
    WpiszLiczbe(15, PaidInBaseCurrency);
    return Wyslij(kDodatkowaPlatnoscWalutowa);
}
