// The life of a receipt: its begin, its end, its number.
#include "engine/sysproc.h"
#include "koraxdr/command.h"
#include "koraxdr/device_types.h"
#include "koraxdr/document.h"
#include "koraxdr/frame.h"
#include "koraxdr/functions/conditions.h"
#include "koraxdr/polish_text.h"
#include "koraxdr/send_layout.h"
#include "koraxdr/session.h"
#include "port/wire_bytes.h"

namespace {

// Characters; with its number and the line feed such a line fills the length byte.
constexpr int kNajdluzszaLiniaDodatkowa = 253;

enum ReceiptDiscount : int32_t { kProcentowy = 0, kKwotowyRabat = 1, kKwotowyNarzut = 2 };

// The entry less the percent, in hundredths.
// Oddity: What a percent discount leaves rounds half down. The devices round the discount itself
// half up, and the sum that is sent has to be theirs.
int64_t PoRabacie(int32_t amount, int32_t percent) {
    const int64_t product = int64_t{amount} * (100 - percent);
    return product / 100 + (product % 100 >= 51 ? 1 : 0);
}

int32_t WyslijRabatKwotowy(char sign, int32_t amount) {
    WpiszBajt(1, sign);
    WpiszLiczbe(2, amount);
    return Wyslij(kRabatKwotowy);
}

// Sends the discount or surcharge on the whole receipt and works out what is to be paid.
int32_t UstalDoZaplaty(int32_t discount, int32_t kind, int64_t& to_pay) {
    to_pay = SumaParagonu();
    switch (kind) {
        case kProcentowy:
            if (discount < 1 || discount > 99) return KORAX_E_OK;
            to_pay = 0;
            for (int i = 1; i <= kStawek; ++i) to_pay += PoRabacie(Total[i], discount);
            WpiszBajt(1, discount);
            return Wyslij(kRabatProcentowy);
        case kKwotowyRabat:
            to_pay -= discount;
            return WyslijRabatKwotowy('-', discount);
        case kKwotowyNarzut:
            to_pay += discount;
            return WyslijRabatKwotowy(' ', discount);
        default:
            return KORAX_E_OK;
    }
}

// A currency payment whose sending fails stays deferred. The exported functions are called, because
// their debug boxes show the payment a second time.
int32_t WyslijOdlozonePlatnosciWalutowe() {
    constexpr int32_t send_now = 1;
    if (CP1.send) {
        if (const int32_t error = pCurrencyPayment1(CP1.currency_name, CP1.rate, CP1.quantity,
                                                    CP1.subtotal, send_now)) {
            return error;
        }
        CP1.send = 0;
    }
    if (CP2.send) {
        if (const int32_t error =
                pCurrencyPayment2(CP2.total_in_currency, CP2.total_in_base_currency, CP2.change,
                                  CP2.type_of_change, send_now)) {
            return error;
        }
        CP2.send = 0;
    }
    return KORAX_E_OK;
}

int32_t WyslijFormyPlatnosci() {
    if (!kTypyZPlatnosciami.Contains(Urzadzenie)) return KORAX_E_OK;
    for (int i = 1; i <= kPlatnosci; ++i) {
        PaymentSlot& slot = Payments[i];
        if (slot.name[0] == '\0') continue;
        if (const int32_t error = WyslijPlatnosc(i, slot.name, slot.total, slot.change)) {
            return error;
        }
        slot = {};
    }
    return KORAX_E_OK;
}

int32_t WyslijLinie(const LineSlot& slot) {
    WpiszBajt(1, '0' + static_cast<uint8_t>(slot.number));
    const int end = WpiszTekst(2, slot.text, TextForm::kDevice, kNajdluzszaLiniaDodatkowa);
    WpiszBajt(end, kLf);
    return Wyslij(kLiniaDodatkowa, end);
}

// These lines are printed in code page 852 by the newest types, whatever page they use otherwise.
int32_t WyslijLinieDodatkowe() {
    for (int i = 1; i <= kLiniiDodatkowych; ++i) {
        LineSlot& slot = AdditionalLines[i];
        if (slot.number == kLiniaWolna) continue;
        const auto send = [&] {
            if (!kTypyRodzinyToliE.Contains(Urzadzenie)) return WyslijLinie(slot);
            const CodePage852 page;
            return WyslijLinie(slot);
        };
        if (const int32_t error = send()) return error;
        slot = {};
    }
    return KORAX_E_OK;
}

int32_t ZakonczParagon() {
    const int32_t error = Wyslij(kZakonczenieParagonu);
    PierwszaPozycjaSprzedazy = 0;
    FakturaRozpoczeta = 0;
    if (error == 0) {
        ParagonRozpoczety = 0;
        WydrukowanychLiniiPar = 0;
        return PrintControl(0);
    }
    if (error == KORAX_E_REFUSED) ParagonRozpoczety = 0;  // the device knows of no open receipt
    // Oddity: A receipt without a line ends well. The device refuses to end it, and nobody is told.
    return WydrukowanychLiniiPar == 0 ? KORAX_E_OK : error;
}

int32_t ZamknijParagon(int32_t discount, int32_t kind) {
    int64_t to_pay = 0;
    if (const int32_t error = UstalDoZaplaty(discount, kind, to_pay)) return error;
    if (const int32_t error = WyslijOdlozonePlatnosciWalutowe()) return error;
    if (const int32_t error = WyslijSumeDoZaplaty(to_pay)) return error;
    if (const int32_t error = WyslijFormyPlatnosci()) return error;
    if (const int32_t error = WyslijLinieDodatkowe()) return error;
    return ZakonczParagon();
}

}  // namespace

int32_t KORAX_CALL ReceiptBegin(void) {
    PierwszaPozycjaSprzedazy = 1;  // whatever becomes of the call
    return Funkcja([]() -> int32_t {
        if (const int32_t error = RozpocznijSesje()) return error;
        if (const int32_t error = PrzygotujDokument()) return error;
        const int32_t error = Wyslij(kOtwarcieParagonu);
        if (error == KORAX_E_REFUSED) {
            const int32_t reason = ZnajdzPowodOdmowy();
            return reason != 0 ? reason : error;
        }
        if (error == 0) RozpocznijDokument(false);
        return error;
    });
}

int32_t KORAX_CALL ReceiptEndEx(int32_t DiscountSurcharge, int32_t TypeOfDiscountSurcharge) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function ReceiptEndEx: ",
                       {{"1.DiscountSurcharge: ", DiscountSurcharge},
                        {"2.TypeOfDiscountSurcharge: ", TypeOfDiscountSurcharge}});
        if (const int32_t error = RozpocznijSesje()) return error;
        const int32_t result = ParagonRozpoczety
                                   ? ZamknijParagon(DiscountSurcharge, TypeOfDiscountSurcharge)
                                   : KORAX_E_NO_RECEIPT;
        Optimize = 0;  // the setting lasts for one receipt
        return result;
    });
}

int32_t KORAX_CALL ReceiptEnd(int32_t DiscountSurcharge) {
    return ReceiptEndEx(DiscountSurcharge, kProcentowy);
}

int32_t KORAX_CALL ReceiptNumber(int32_t* Number) {
    return Funkcja([&]() -> int32_t {
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        return OdczytajLicznikParagonow(*Number);
    });
}

int32_t KORAX_CALL xReceiptNumber(void) {
    int32_t number = 0;
    ZapamietajBlad(ReceiptNumber(&number));
    return number;
}

int32_t KORAX_CALL PrintResume(void) {
    return Funkcja([]() -> int32_t {
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        uint8_t b = 0;
        if (const int32_t error = OdczytajStatus(kStatusB, b)) return error;
        if (b & kBitBrakuPapieru) return KORAX_E_NO_PAPER;
        if (const int32_t error = Wyslij(kWznowienieWydruku)) return error;
        return PrintControl(0);
    });
}
