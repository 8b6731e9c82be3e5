// Forms of payment, currency payments, and the lines printed after a receipt.
#include <cstring>

#include "koraxdr/command.h"
#include "koraxdr/device_types.h"
#include "koraxdr/document.h"
#include "koraxdr/frame.h"
#include "koraxdr/send_layout.h"
#include "koraxdr/texts.h"

namespace {

constexpr DeviceTypes kTypyZWyslaniemPlatnosci = {4, 8, 9, 10, 11, 12, 13};
constexpr DeviceTypes kTypyZPlatnosciaWalutowa1 = {8, 10, 11, 12};
constexpr DeviceTypes kTypyZPlatnosciaWalutowa2 = {8, 10, 11, 12, 13};
constexpr DeviceTypes kTypyBezDodatkowejPlatnosci = {1, 2, 3, 5, 6};

constexpr int kNazwaWaluty = 3;  // characters
constexpr int32_t kZaDuzyNumerLinii = 23;

// Types that take the additional currency payment from a program version on.
constexpr struct { int32_t type, version; } kOdWersji[] = {{4, 6}, {8, 2}};

bool NumerPlatnosciZly(int32_t number) {
    return number < 1 || number > kPlatnosci;
}

void PokazArgumentyPlatnosci(const char* head, int32_t number, const char* name, int32_t amount,
                             int32_t change) {
    // Oddity: The label PamentName is misspelt. Labels are texts that applications' authors know.
    PokazArgumenty(head, {{"1.PaymentNo: ", number},
                          {"2.PamentName: ", name},
                          {"3.Total: ", amount},
                          {"4.Change: ", change}});
}

void DopelnijNazwe(char* target, const char* name) {
    KopiujTekst(target, name, kNazwaPlatnosci + 1);
    DopelnijOdstepami(target, kNazwaPlatnosci);
}

int32_t LiczbaWolnychLinii() {
    int32_t free_lines = 0;
    for (int i = 1; i <= kLiniiDodatkowych; ++i) {
        if (AdditionalLines[i].number == kLiniaWolna) ++free_lines;
    }
    return free_lines;
}

bool DodatkowaPlatnoscDostepna() {
    for (const auto& [type, version] : kOdWersji) {
        if (Urzadzenie == type && Prog < version) return false;
    }
    return !kTypyBezDodatkowejPlatnosci.Contains(Urzadzenie);
}

int32_t WyslijDodatkowaPlatnosc(int32_t number, int32_t is_change, const char* currency,
                                int32_t paid_in_currency, int32_t rate, int32_t decimals,
                                int32_t paid_in_base) {
    WpiszBajt(1, number);
    WpiszBajt(2, is_change);
    WpiszPole(3, kNazwaWaluty, currency, TextForm::kAsGiven);
    WpiszLiczbe(6, paid_in_currency);
    WpiszLiczbe(10, rate);
    WpiszBajt(14, decimals);
    WpiszLiczbe(15, paid_in_base);
    return Wyslij(kDodatkowaPlatnoscWalutowa);
}

}  // namespace

int32_t KORAX_CALL pFillPayment(int32_t PaymentNo, const char* PaymentName, int32_t Paid,
                                int32_t Change) {
    return Funkcja([&]() -> int32_t {
        PokazArgumentyPlatnosci("Sent to function pFillPayment: ", PaymentNo, PaymentName, Paid,
                                Change);
        if (PaymentName == nullptr) return KORAX_E_NULL;
        if (NumerPlatnosciZly(PaymentNo)) return KORAX_E_OUT_OF_RANGE;
        PaymentSlot& slot = Payments[PaymentNo];
        DopelnijNazwe(slot.name, PaymentName);
        slot.total = Paid;
        slot.change = Change;
        return KORAX_E_OK;
    });
}

int32_t KORAX_CALL pSendPayment(int32_t PaymentNo, const char* PaymentName, int32_t Paid,
                                int32_t Change) {
    return Funkcja([&]() -> int32_t {
        PokazArgumentyPlatnosci("Sent to function pSendPayment: ", PaymentNo, PaymentName, Paid,
                                Change);
        if (PaymentName == nullptr) return KORAX_E_NULL;
        if (NumerPlatnosciZly(PaymentNo)) return KORAX_E_OUT_OF_RANGE;
        if (!kTypyZWyslaniemPlatnosci.Contains(Urzadzenie)) return KORAX_E_COMMAND_NOT_AVAILABLE;
        return WyslijPlatnosc(PaymentNo, PaymentName, Paid, Change);
    });
}

int32_t KORAX_CALL ErasePayments(void) {
    return Funkcja([]() -> int32_t {
        for (int i = 1; i <= kPlatnosci; ++i) Payments[i] = {};
        return KORAX_E_OK;
    });
}

int32_t KORAX_CALL pFillLines(int32_t Number, const char* Line, int32_t* FreeLines) {
    return Funkcja([&]() -> int32_t {
        // Oddity: The head of pFillLines is misspelt. It lacks an "i", and a blank at its end.
        PokazArgumenty("Sent to functon pFillLines:", {{"1.Number: ", Number}, {"2.Line: ", Line}});
        if (Line == nullptr || FreeLines == nullptr) return KORAX_E_NULL;
        if (Number >= kZaDuzyNumerLinii) return KORAX_E_OUT_OF_RANGE;
        *FreeLines = LiczbaWolnychLinii();
        if (*FreeLines == 0) return KORAX_E_NO_FREE_LINE;
        // Slots are taken from the front; the used ones are there already.
        LineSlot& slot = AdditionalLines[kLiniiDodatkowych + 1 - *FreeLines];
        slot.number = Number;
        KopiujTekst(slot.text, Line, sizeof slot.text);
        --*FreeLines;
        return KORAX_E_OK;
    });
}

int32_t KORAX_CALL xFillLines(int32_t Number, const char* Line) {
    int32_t free_lines = 0;
    ZapamietajBlad(pFillLines(Number, Line, &free_lines));
    return free_lines;
}

int32_t KORAX_CALL EraseLines(void) {
    return Funkcja([]() -> int32_t {
        for (int i = 1; i <= kLiniiDodatkowych; ++i) AdditionalLines[i] = {};
        return KORAX_E_OK;
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
        if (CurrencyName == nullptr || Rate == nullptr) return KORAX_E_NULL;
        if (!kTypyZPlatnosciaWalutowa1.Contains(Urzadzenie)) return KORAX_E_COMMAND_NOT_AVAILABLE;
        WpiszPole(1, kNazwaWaluty, CurrencyName);
        WpiszPole(4, 10, Rate);
        WpiszBajt(14, Qantity);
        WpiszLiczbe(15, Subtotal);
        if (Send) return Wyslij(kPlatnoscWalutowa1);
        CP1.send = 1;
        KopiujTekst(CP1.currency_name, CurrencyName, sizeof CP1.currency_name);
        KopiujTekst(CP1.rate, Rate, sizeof CP1.rate);
        CP1.quantity = Qantity;
        CP1.subtotal = Subtotal;
        return KORAX_E_OK;
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
        if (!kTypyZPlatnosciaWalutowa2.Contains(Urzadzenie)) return KORAX_E_COMMAND_NOT_AVAILABLE;
        WpiszLiczbe(1, TotalInCurrency);
        WpiszLiczbe(5, TotalInBaseCurrency);
        WpiszLiczbe(9, TypeOfChange != 0 ? Change : 0);
        WpiszLiczbe(13, TypeOfChange != 1 ? Change : 0);
        if (Send) return Wyslij(kPlatnoscWalutowa2);
        CP2 = {1, TotalInCurrency, TotalInBaseCurrency, Change, TypeOfChange};
        return KORAX_E_OK;
    });
}

int32_t KORAX_CALL pAdditionalCurrencyPayment(int32_t Number, int32_t IsChange, const char* Name,
                                              int32_t PaidInForeignCurrency, int32_t ExchangeRate,
                                              int32_t QAC, int32_t PaidInBaseCurrency) {
    int32_t not_stored = KORAX_E_OK;
    const int32_t result = Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function pAdditionalCurrencyPayment: ",
                       {{"1.Number: ", Number},
                        {"2.IsChange: ", IsChange},
                        {"3.Name: ", Name},
                        {"4.PaidInForeignCurrency: ", PaidInForeignCurrency},
                        {"5.ExchangeRate: ", ExchangeRate},
                        {"6.QAC: ", QAC},
                        {"7.PaidInBaseCurrency: ", PaidInBaseCurrency}});
        if (Name == nullptr) return KORAX_E_NULL;
        if (!DodatkowaPlatnoscDostepna()) return KORAX_E_COMMAND_NOT_AVAILABLE;
        // Oddity: Two results of pAdditionalCurrencyPayment are not stored. After a name that is
        // too short, and after whatever the exchange gave, LastError says 0.
        not_stored = std::strlen(Name) < kNazwaWaluty
                         ? KORAX_E_CURRENCY_NAME
                         : WyslijDodatkowaPlatnosc(Number, IsChange, Name, PaidInForeignCurrency,
                                                   ExchangeRate, QAC, PaidInBaseCurrency);
        return KORAX_E_OK;
    });
    return result != KORAX_E_OK ? result : not_stored;
}
