// Discounts and surcharges on the last item, returnable packages, the subtotal, the drawer.
#include "koraxdr/device_types.h"
#include "koraxdr/receipt.h"
#include "koraxdr/send_layout.h"

namespace {

constexpr ControlSequence kRabatOdPozycji = {24, 0, 5};
constexpr ControlSequence kRabatProcentowyOdPozycji = {28, 0, 3};
constexpr ControlSequence kSumyParagonu = {133, 29};
constexpr ControlSequence kOpakowanie = {23, 0, 10};
constexpr ControlSequence kSumaPosrednia = {128, 0};
constexpr ControlSequence kSzuflady[] = {{87}, {88}, {89}};

constexpr DeviceTypes kTypyZRabatami = {8, 10, 11, 13};
constexpr DeviceTypes kTypyZeStatusemPrzedOpakowaniem = {4};

constexpr struct {
    char sign, kind;
} kOpakowania[] = {{' ', 'S'}, {' ', 'Z'}, {'-', 'S'}, {'-', 'Z'}};
constexpr int32_t kRodzajowOpakowan = 4;

// The checks that the functions inside a receipt share, on the types that know the command.
int32_t SprawdzParagon(const DeviceTypes& typy) {
    if (const int32_t numer = RozpocznijSesje()) return numer;
    if (!ParagonRozpoczety) return blad::kParagonNierozpoczety;
    return typy.Contains(Urzadzenie) ? blad::kBrak : blad::kRozkazNiedostepny;
}

int32_t OdczytajSumyParagonu() {
    if (const int32_t numer = Wyslij(kSumyParagonu)) return numer;
    for (int i = 1; i <= kStawek; ++i) Total[i] = LiczbaOdpowiedzi(4 * i - 3);
    return blad::kBrak;
}

}  // namespace

int32_t KORAX_CALL DiscountOrSurcharge(int32_t Discount, int32_t Amount) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function DiscountOrSurcharge: ",
                       {{"1.Discount: ", Discount}, {"2.Amount: ", Amount}});
        if (const int32_t numer = SprawdzParagon(kTypyZRabatami)) return numer;
        WpiszBajt(1, Discount ? '-' : ' ');
        WpiszLiczbe(2, Amount);
        if (const int32_t numer = Wyslij(kRabatOdPozycji)) return numer;
        if (const int32_t numer = SprawdzUniewaznieniePrzezPowod()) return numer;
        if (OstatniaStawka >= 1 && OstatniaStawka <= kStawek) {
            // Unlike a correction this may leave the total below zero; that is meant.
            const int64_t zmiana = Discount ? -int64_t{Amount} : int64_t{Amount};
            Total[OstatniaStawka] = Nasycona(Total[OstatniaStawka] + zmiana);
        }
        return blad::kBrak;
    });
}

int32_t KORAX_CALL PercentDiscountOrSurcharge(int32_t Discount, int32_t Percent) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function PercentDiscountOrSurcharge: ",
                       {{"1.Discount: ", Discount}, {"2.Percent: ", Percent}});
        if (const int32_t numer = SprawdzParagon(kTypyZRabatami)) return numer;
        WpiszBajt(1, Discount ? 'R' : 'N');
        WpiszSlowo(2, Percent);
        if (const int32_t numer = Wyslij(kRabatProcentowyOdPozycji)) return numer;
        if (const int32_t numer = SprawdzUniewaznieniePrzezPowod()) return numer;
        return OdczytajSumyParagonu();  // the device has rounded; its totals are the ones to pay
    });
}

int32_t KORAX_CALL PackageItem(int32_t Parameter, int32_t Number, int32_t Quantity, int32_t Price) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function PackageItem: ", {{"1.Parameter: ", Parameter},
                                                          {"2.Number: ", Number},
                                                          {"3.Qantity: ", Quantity},
                                                          {"4.Price: ", Price}});
        if (const int32_t numer = SprawdzParagon(kTypyZPlatnosciami)) return numer;
        const int32_t uniewazniony = kTypyZeStatusemPrzedOpakowaniem.Contains(Urzadzenie)
                                         ? SprawdzUniewaznieniePrzezStatus()
                                         : SprawdzUniewaznieniePrzezPowod();
        if (uniewazniony != 0) return uniewazniony;
        if (Parameter < 0 || Parameter >= kRodzajowOpakowan) return blad::kRodzajOpakowania;
        WpiszBajt(1, kOpakowania[Parameter].sign);
        WpiszBajt(2, kOpakowania[Parameter].kind);
        WpiszSlowo(3, Number);
        WpiszSlowo(5, Quantity);
        WpiszLiczbe(7, Price);
        if (const int32_t numer = Wyslij(kOpakowanie)) return numer;
        uint8_t odpowiedz = 0;
        if (const int32_t numer = OdbierzBajt(odpowiedz)) return numer;
        return odpowiedz == kAck ? blad::kBrak : blad::kZbytDuzoOpakowan;
    });
}

int32_t KORAX_CALL PrintSubtotal(void) {
    return Funkcja([]() -> int32_t {
        if (const int32_t numer = SprawdzParagon(kTypyZPlatnosciami)) return numer;
        return Wyslij(kSumaPosrednia);
    });
}

int32_t KORAX_CALL OpenDrawer(int32_t DrawerNumber) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function OpenDrawer: ", {{"1.DrawerNumber: ", DrawerNumber}});
        if (DrawerNumber < 1 || DrawerNumber > 3) return blad::kNumerSzuflady;
        if (const int32_t numer = RozpocznijSesje()) return numer;
        return Wyslij(kSzuflady[DrawerNumber - 1]);
    });
}
