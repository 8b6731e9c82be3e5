// Discounts and surcharges on the last item, returnable packages, the subtotal, the drawer.
#include "koraxdr/command.h"
#include "koraxdr/device_types.h"
#include "koraxdr/document.h"
#include "koraxdr/frame.h"
#include "koraxdr/send_layout.h"
#include "koraxdr/session.h"
#include "port/wire_bytes.h"

namespace {

constexpr ControlSequence kSzuflady[] = {kSzuflada1, kSzuflada2, kSzuflada3};

constexpr DeviceTypes kTypyZRabatami = {8, 10, 11, 13};
constexpr DeviceTypes kTypyZeStatusemPrzedOpakowaniem = {4};

constexpr struct {
    char sign, kind;
} kOpakowania[] = {{' ', 'S'}, {' ', 'Z'}, {'-', 'S'}, {'-', 'Z'}};
constexpr int32_t kRodzajowOpakowan = 4;

// The checks that the functions inside a receipt share, on the types that know the command.
int32_t SprawdzParagon(const DeviceTypes& types) {
    if (const int32_t error = RozpocznijSesje()) return error;
    if (!ParagonRozpoczety) return KORAX_E_NO_RECEIPT;
    return types.Contains(Urzadzenie) ? KORAX_E_OK : KORAX_E_COMMAND_NOT_AVAILABLE;
}

int32_t OdczytajSumyParagonu() {
    if (const int32_t error = Wyslij(kSumyParagonu)) return error;
    for (int i = 1; i <= kStawek; ++i) Total[i] = LiczbaOdpowiedzi(4 * i - 3);
    return KORAX_E_OK;
}

}  // namespace

int32_t KORAX_CALL DiscountOrSurcharge(int32_t Discount, int32_t Amount) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function DiscountOrSurcharge: ",
                       {{"1.Discount: ", Discount}, {"2.Amount: ", Amount}});
        if (const int32_t error = SprawdzParagon(kTypyZRabatami)) return error;
        WpiszBajt(1, Discount ? '-' : ' ');
        WpiszLiczbe(2, Amount);
        if (const int32_t error = Wyslij(kRabatOdPozycji)) return error;
        if (const int32_t error = SprawdzUniewaznieniePrzezPowod()) return error;
        if (OstatniaStawka >= 1 && OstatniaStawka <= kStawek) {
            // Oddity: A discount can leave a total below zero. A correction cannot; the device
            // cancels a receipt whose discount exceeds its line.
            const int64_t change = Discount ? -int64_t{Amount} : int64_t{Amount};
            Total[OstatniaStawka] = Nasycona(Total[OstatniaStawka] + change);
        }
        return KORAX_E_OK;
    });
}

int32_t KORAX_CALL PercentDiscountOrSurcharge(int32_t Discount, int32_t Percent) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function PercentDiscountOrSurcharge: ",
                       {{"1.Discount: ", Discount}, {"2.Percent: ", Percent}});
        if (const int32_t error = SprawdzParagon(kTypyZRabatami)) return error;
        WpiszBajt(1, Discount ? 'R' : 'N');
        WpiszSlowo(2, Percent);
        if (const int32_t error = Wyslij(kRabatProcentowyOdPozycji)) return error;
        if (const int32_t error = SprawdzUniewaznieniePrzezPowod()) return error;
        return OdczytajSumyParagonu();  // the device has rounded; its totals are the ones to pay
    });
}

int32_t KORAX_CALL PackageItem(int32_t Parameter, int32_t Number, int32_t Quantity, int32_t Price) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function PackageItem: ", {{"1.Parameter: ", Parameter},
                                                          {"2.Number: ", Number},
                                                          {"3.Qantity: ", Quantity},
                                                          {"4.Price: ", Price}});
        if (const int32_t error = SprawdzParagon(kTypyZPlatnosciami)) return error;
        const int32_t cancelled = kTypyZeStatusemPrzedOpakowaniem.Contains(Urzadzenie)
                                      ? SprawdzUniewaznieniePrzezStatus()
                                      : SprawdzUniewaznieniePrzezPowod();
        if (cancelled != 0) return cancelled;
        if (Parameter < 0 || Parameter >= kRodzajowOpakowan) return KORAX_E_PACKAGE_KIND;
        WpiszBajt(1, kOpakowania[Parameter].sign);
        WpiszBajt(2, kOpakowania[Parameter].kind);
        WpiszSlowo(3, Number);
        WpiszSlowo(5, Quantity);
        WpiszLiczbe(7, Price);
        if (const int32_t error = Wyslij(kOpakowanie)) return error;
        uint8_t answer = 0;
        if (const int32_t error = OdbierzBajt(answer)) return error;
        return answer == kAck ? KORAX_E_OK : KORAX_E_TOO_MANY_PACKAGES;
    });
}

int32_t KORAX_CALL PrintSubtotal(void) {
    return Funkcja([]() -> int32_t {
        if (const int32_t error = SprawdzParagon(kTypyZPlatnosciami)) return error;
        return Wyslij(kSumaPosrednia);
    });
}

int32_t KORAX_CALL OpenDrawer(int32_t DrawerNumber) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function OpenDrawer: ", {{"1.DrawerNumber: ", DrawerNumber}});
        if (DrawerNumber < 1 || DrawerNumber > 3) return KORAX_E_DRAWER;
        if (const int32_t error = RozpocznijSesje()) return error;
        return Wyslij(kSzuflady[DrawerNumber - 1]);
    });
}
