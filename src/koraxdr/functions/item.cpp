// The receipt item: its checks, its value, and what becomes of it.
#include <cstring>

#include "engine/sysproc.h"
#include "koraxdr/article_name.h"
#include "koraxdr/command.h"
#include "koraxdr/device_types.h"
#include "koraxdr/document.h"
#include "koraxdr/frame.h"
#include "koraxdr/functions/item_layouts.h"
#include "koraxdr/session.h"
#include "koraxdr/texts.h"

namespace {

constexpr DeviceTypes kTypyZSiedmiomaStawkami = {2, 3, 4, 8, 10, 11, 12, 13};
constexpr DeviceTypes kTypyZPieciomaStawkami = {1};
constexpr int64_t kNajwiekszaWartosc = 999999999;  // hundredths
constexpr int32_t kNajwiekszaCena = 999999999;     // hundredths
bool Zakres(int64_t value, int64_t first, int64_t last) {
    return value >= first && value <= last;
}

// The devices count the exempt rate G fifth.
uint32_t StawkaDlaUrzadzenia(uint32_t rate) {
    switch (rate) {
        case 5:
            return 6;
        case 6:
            return 7;
        case 7:
            return 5;
        default:
            return rate;
    }
}

// --- checks and value ----------------------------------------------------------------------------

// The item is sent whatever these say; the device refuses what it cannot take. A later failure
// replaces an earlier one.
void SprawdzArgumenty(Item& item) {
    const uint32_t rate = item.rate % 8;
    if (kTypyZSiedmiomaStawkami.Contains(Urzadzenie) && !Zakres(rate, 1, 7)) {
        item.check = KORAX_E_RATE;
    }
    if (kTypyZPieciomaStawkami.Contains(Urzadzenie) && !Zakres(rate, 1, 5)) {
        item.check = KORAX_E_RATE;
    }
    if (item.message > 7) item.check = KORAX_E_MESSAGE;
    const int32_t largest_quantity = kTypyZPlatnosciami.Contains(Urzadzenie) ? 99999999 : 999999;
    if (!Zakres(item.quantity, 1, largest_quantity)) item.check = KORAX_E_QUANTITY;
    if (item.decimals > 4) item.check = KORAX_E_QUANTITY_DECIMALS;
    if (!Zakres(item.price, 1, kNajwiekszaCena)) item.check = KORAX_E_PRICE;
}

// Price times quantity divided by 10 to the decimals, exactly: rounded half up, and whether it
// exceeds the largest value before it is rounded.
struct ItemValue {
    int64_t rounded;
    bool too_large;
};

ItemValue ObliczWartosc(const Item& item) {
    const int64_t product = int64_t{item.price} * item.quantity;  // below 2^63 for any arguments
    constexpr uint32_t most_decimals = 18;
    if (item.decimals > most_decimals) return {0, false};  // less than half a hundredth
    int64_t divisor = 1;
    for (uint32_t i = 0; i < item.decimals; ++i) divisor *= 10;
    int64_t whole = product / divisor;
    int64_t remainder = product % divisor;
    if (remainder < 0) {
        --whole;
        remainder += divisor;
    }
    const bool too_large =
        whole > kNajwiekszaWartosc || (whole == kNajwiekszaWartosc && remainder > 0);
    return {whole + (remainder >= divisor - remainder ? 1 : 0), too_large};
}

// Rounds the last digits of a value away: below half down, else up to the next step.
int64_t ZaokraglonaDo(int64_t value, int64_t step) {
    const int64_t remainder = value % step;
    return remainder < step / 2 ? value - remainder : value - remainder + step;
}

// Settles the value in the caller's cell. 227 at once when it was to be worked out and is too
// large.
int32_t UstalWartosc(Item& item) {
    const ItemValue value = ObliczWartosc(item);
    int32_t& amount = *item.amount;
    if (amount == 0) {
        amount = Nasycona(value.rounded);
        if (value.too_large) return KORAX_E_ITEM_VALUE;
    } else {
        if (value.too_large) item.check = KORAX_E_ITEM_VALUE;
        if (value.rounded != amount) item.check = KORAX_E_AMOUNT;
    }
    if (SposobZaokraglania == 1) amount = Nasycona(ZaokraglonaDo(amount, 10));
    if (SposobZaokraglania == 2) amount = Nasycona(ZaokraglonaDo(amount, 100));
    WyliczonaWartoscPoz = amount;
    return KORAX_E_OK;
}

// --- sending -------------------------------------------------------------------------------------

int32_t WyslijTekstowo(int length) {
    if (const int32_t error = Wyslij(kRamkaTekstowa, length)) return error;
    return OdbierzPotwierdzenieBezposrednio();
}

int32_t WyslijPozycjeTekstowa(const Item& item) {
    if (PierwszaPozycjaSprzedazy) {
        if (const int32_t error = WyslijTekstowo(WpiszOtwarcieTekstowe())) return error;
    }
    return WyslijTekstowo(WpiszPozycjeTekstowa(item));
}

int32_t WyslijPozycje(const Item& item) {
    switch (UkladPozycji(std::strlen(item.name))) {
        case ItemLayout::kShort:
            WpiszPozycje(item, kNazwaKrotka);
            return Wyslij(kPozycjaKrotka);
        case ItemLayout::kCutLong:
            WpiszPozycje(item, kNazwaDluga);
            return Wyslij(kPozycjaKrotka);
        case ItemLayout::kLong:
            WpiszPozycje(item, kNazwaDluga);
            return Wyslij(kPozycjaDluga);
        case ItemLayout::kText:
            break;
    }
    return WyslijPozycjeTekstowa(item);
}

// --- after the sending ---------------------------------------------------------------------------

void DoliczDoSumy(const Item& item) {
    if (item.rate < 1 || item.rate > kStawek) return;
    int32_t& sum = Total[item.rate];
    if (item.sale) {
        sum = Nasycona(int64_t{sum} + *item.amount);
    } else {
        sum = sum < *item.amount ? 0 : Nasycona(int64_t{sum} - *item.amount);
    }
}

// The older types tell by status B; the query is repeated once when its answer does not come.
int32_t PotwierdzPrzezStatus(Item& item) {
    int32_t error = SprawdzUniewaznieniePrzezStatus();
    if (error == KORAX_E_RECEIVE_TIMEOUT) error = SprawdzUniewaznieniePrzezStatus();
    if (error == KORAX_E_RECEIPT_CANCELLED && item.check != 0) return item.check;
    if (error != 0) return error;
    item.check = 0;  // forgiven: the device has taken the line
    return KORAX_E_OK;
}

int32_t PotwierdzPozycje(Item& item) {
    if (kTypyNowszejRodziny.Contains(Urzadzenie)) return SprawdzUniewaznieniePrzezPowod();
    if (Optimize) return KORAX_E_OK;
    return PotwierdzPrzezStatus(item);
}

int32_t SprzedajPozycje(Item& item) {
    if (const int32_t error = RozpocznijSesje()) return error;
    if (!ParagonRozpoczety) return KORAX_E_NO_RECEIPT;
    if (!Optimize && !kTypyNowszejRodziny.Contains(Urzadzenie)) {
        if (const int32_t error = SprawdzUniewaznieniePrzezStatus()) return error;
    }
    NormalizujNazwe(item.work_name, item.name);
    SprawdzArgumenty(item);
    if (const int32_t error = UstalWartosc(item)) return error;

    const int32_t sent = WyslijPozycje(item);
    PierwszaPozycjaSprzedazy = 0;
    if (sent != 0) return sent;
    if (item.check == 0) DoliczDoSumy(item);
    // Held at its top: a receipt with printed lines must never look like one without.
    if (WydrukowanychLiniiPar < 255) ++WydrukowanychLiniiPar;
    if (const int32_t error = PotwierdzPozycje(item)) return error;
    OstatniaStawka = static_cast<int32_t>(item.rate);
    return item.check;
}

}  // namespace

int32_t KORAX_CALL pReceiptItem(int32_t Sale, const char* Name, int32_t TaxRate,
                                int32_t Communicate, int32_t Quantity, int32_t QAC,
                                const char* Unit, int32_t Price, int32_t* Amount) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function pReceiptItem: ",
                       {{"1.Sale: ", Sale},
                        {"2.Name: ", Name},
                        {"3.TaxRate: ", TaxRate},
                        {"4.Communicate: ", Communicate},
                        {"5.Quantity: ", Quantity},
                        {"6.QAC: ", QAC},
                        {"7.Unit: ", Unit},
                        {"8.Price: ", Price},
                        {"9.Amount: ", Amount != nullptr ? *Amount : 0}});
        if (Name == nullptr || Unit == nullptr || Amount == nullptr) return KORAX_E_NULL;
        WyliczonaWartoscPoz = 0;
        const auto rate = static_cast<uint32_t>(TaxRate);
        Item item = {.sale = Sale == 1,
                     .name = Name,
                     .rate_given = rate,
                     .rate = StawkaDlaUrzadzenia(rate),
                     .message = static_cast<uint32_t>(Communicate),
                     .quantity = Quantity,
                     .decimals = static_cast<uint32_t>(QAC),
                     .unit = Unit,
                     .price = Price,
                     .amount = Amount,
                     .work_name = "",
                     .check = 0};
        return SprzedajPozycje(item);
    });
}

int32_t KORAX_CALL pReceiptItemEx(int32_t Sale, const char* Name, int32_t TaxRate,
                                  int32_t Communicate, int32_t Quantity, int32_t QAC,
                                  const char* Unit, int32_t Price) {
    int32_t amount = 0;
    return pReceiptItem(Sale, Name, TaxRate, Communicate, Quantity, QAC, Unit, Price, &amount);
}

int32_t KORAX_CALL NormNazwa(char* Destination, const char* Name) {
    return Funkcja([&]() -> int32_t {
        if (Destination == nullptr || Name == nullptr) return KORAX_E_NULL;
        return NormalizujNazwe(Destination, Name);
    });
}

int32_t KORAX_CALL NormNazwa1(char* Destination, const char* Name) {
    return Funkcja([&]() -> int32_t {
        if (Destination == nullptr || Name == nullptr) return KORAX_E_NULL;
        KopiujTekst(Destination, Name, kNazwaKrotka + 1);
        DopelnijOdstepami(Destination, kNazwaKrotka);
        return KORAX_E_OK;
    });
}

int32_t KORAX_CALL pCharsInArticleName(const char* Name) {
    if (Name == nullptr) return ZapamietajBlad(KORAX_E_NULL);
    ZapamietajBlad(KORAX_E_OK);
    return LiczbaZnakowZnaczacych(Name);
}
