// The receipt item: checks, value, and the three layouts in which it goes to the device.
#include <cstring>
#include <string_view>

#include "engine/sysproc.h"
#include "koraxdr/device_types.h"
#include "koraxdr/polish_text.h"
#include "koraxdr/receipt.h"
#include "koraxdr/send_layout.h"
#include "numbers/konwers.h"
#include "numbers/napzbpro.h"

namespace {

constexpr ControlSequence kPozycjaKrotka = {6, 0, 49};
constexpr ControlSequence kPozycjaDluga = {5, 0, 61};
constexpr ControlSequence kPozycjaTekstowa = {176, 0};

constexpr DeviceTypes kTypyZSiedmiomaStawkami = {2, 3, 4, 8, 10, 11, 12, 13};
constexpr DeviceTypes kTypyZPieciomaStawkami = {1};
constexpr DeviceTypes kTypyTylkoKrotkie = {1, 2, 3, 4, 7, 9};
constexpr DeviceTypes kTypyKrotkiejNazwy = {1, 2, 3, 4};
constexpr DeviceTypes kTypyBezTekstu = {8, 12};

constexpr int32_t kTola = 8;
constexpr int32_t kTolaZDlugaNazwa = 2;  // program version from which type 8 takes long names

constexpr int kNazwaKrotka = 28;  // characters
constexpr int kNazwaDluga = 40;
constexpr int kNazwaTekstowa = 120;
constexpr int kBuforNazwy = 256;

constexpr int64_t kNajwiekszaWartosc = 999999999;  // hundredths
constexpr int32_t kNajwiekszaCena = 999999999;     // hundredths
constexpr uint8_t kEsc = 0x1B;
constexpr uint8_t kLf = 10;
constexpr uint8_t kCr = 13;

// The arguments of one item, and what the call makes of them.
struct Item {
    bool sale;
    const char* name;
    uint32_t rate_given;  // as the caller counts it, A to G
    uint32_t rate;        // as it is sent
    uint32_t message;
    int32_t quantity;
    uint32_t decimals;
    const char* unit;
    int32_t price;
    int32_t* amount;
    char work_name[kBuforNazwy];
    int32_t check;  // the last argument check that failed
};

bool Zakres(int64_t wartosc, int64_t od, int64_t doKonca) {
    return wartosc >= od && wartosc <= doKonca;
}

// The devices count the exempt rate G fifth.
uint32_t StawkaDlaUrzadzenia(uint32_t stawka) {
    switch (stawka) {
        case 5:
            return 6;
        case 6:
            return 7;
        case 7:
            return 5;
        default:
            return stawka;
    }
}

bool DlugieNazwy() {
    return Urzadzenie != kTola || Prog >= kTolaZDlugaNazwa;
}

// --- names ---------------------------------------------------------------------------------------

void Dopelnij(char* tekst, size_t szerokosc) {
    size_t length = std::strlen(tekst);
    while (length < szerokosc) tekst[length++] = ' ';
    tekst[length] = '\0';
}

bool ZnakZnaczacy(uint8_t znak) {
    constexpr std::string_view inne = ",.%/\\";
    return (znak >= 'A' && znak <= 'Z') || (znak >= 'a' && znak <= 'z') ||
           (znak >= '0' && znak <= '9') || inne.find(static_cast<char>(znak)) != inne.npos ||
           PolskaLiteraWStronie852(znak);
}

int32_t LiczbaZnakowZnaczacych(const char* nazwa) {
    int32_t count = 0;
    for (int i = 0; i < kNazwaKrotka && nazwa[i] != '\0'; ++i) {
        if (ZnakZnaczacy(static_cast<uint8_t>(nazwa[i]))) ++count;
    }
    return count;
}

int32_t NormalizujNazwe(char* cel, const char* nazwa) {
    KopiujTekst(cel, nazwa, kBuforNazwy);
    const int32_t znaczacych = LiczbaZnakowZnaczacych(cel);
    Dopelnij(cel, kNazwaDluga);
    // One significant character is enough. The newer types were meant to ask for five, but that
    // test stood behind this one; it stays without effect.
    return znaczacych == 0 ? blad::kMaloZnakowWNazwie : blad::kBrak;
}

// --- checks and value ----------------------------------------------------------------------------

// The item is sent whatever these say; the device refuses what it cannot take. A later failure
// replaces an earlier one.
void SprawdzArgumenty(Item& item) {
    const uint32_t stawka = item.rate % 8;
    if (kTypyZSiedmiomaStawkami.Contains(Urzadzenie) && !Zakres(stawka, 1, 7)) {
        item.check = blad::kStawka;
    }
    if (kTypyZPieciomaStawkami.Contains(Urzadzenie) && !Zakres(stawka, 1, 5)) {
        item.check = blad::kStawka;
    }
    if (item.message > 7) item.check = blad::kKomunikat;
    const int32_t najwiekszaIlosc = kTypyZPlatnosciami.Contains(Urzadzenie) ? 99999999 : 999999;
    if (!Zakres(item.quantity, 1, najwiekszaIlosc)) item.check = blad::kIlosc;
    if (item.decimals > 4) item.check = blad::kMiejscaIlosci;
    if (!Zakres(item.price, 1, kNajwiekszaCena)) item.check = blad::kCena;
}

// Price times quantity divided by 10 to the decimals, exactly: rounded half up, and whether it
// exceeds the largest value before it is rounded.
struct ItemValue {
    int64_t rounded;
    bool too_large;
};

ItemValue ObliczWartosc(const Item& item) {
    const int64_t iloczyn = int64_t{item.price} * item.quantity;  // below 2^63 for any arguments
    constexpr uint32_t najwiecejMiejsc = 18;
    if (item.decimals > najwiecejMiejsc) return {0, false};  // less than half a hundredth
    int64_t dzielnik = 1;
    for (uint32_t i = 0; i < item.decimals; ++i) dzielnik *= 10;
    int64_t calosci = iloczyn / dzielnik;
    int64_t reszta = iloczyn % dzielnik;
    if (reszta < 0) {
        --calosci;
        reszta += dzielnik;
    }
    const bool zaDuza =
        calosci > kNajwiekszaWartosc || (calosci == kNajwiekszaWartosc && reszta > 0);
    return {calosci + (reszta >= dzielnik - reszta ? 1 : 0), zaDuza};
}

// Rounds the last digits of a value away: below half down, else up to the next step.
int64_t ZaokraglonaDo(int64_t wartosc, int64_t krok) {
    const int64_t reszta = wartosc % krok;
    return reszta < krok / 2 ? wartosc - reszta : wartosc - reszta + krok;
}

// Settles the value in the caller's cell. 227 at once when it was to be worked out and is too
// large.
int32_t UstalWartosc(Item& item) {
    const ItemValue wartosc = ObliczWartosc(item);
    int32_t& amount = *item.amount;
    if (amount == 0) {
        amount = Nasycona(wartosc.rounded);
        if (wartosc.too_large) return blad::kWartoscPozycji;
    } else {
        if (wartosc.too_large) item.check = blad::kWartoscPozycji;
        if (wartosc.rounded != amount) item.check = blad::kWartosc;
    }
    if (SposobZaokraglania == 1) amount = Nasycona(ZaokraglonaDo(amount, 10));
    if (SposobZaokraglania == 2) amount = Nasycona(ZaokraglonaDo(amount, 100));
    WyliczonaWartoscPoz = amount;
    return blad::kBrak;
}

// --- layouts -------------------------------------------------------------------------------------

// Layouts S and L differ in the width of the name alone.
void WpiszPozycje(const Item& item, int szerokoscNazwy) {
    const int p = 1 + szerokoscNazwy;  // position of the name's last character
    WpiszBajt(1, item.sale ? ' ' : '-');
    WpiszPole(2, szerokoscNazwy, item.work_name);
    WpiszBajt(p + 1, '0' + static_cast<int>(item.message & 0xFF));
    WpiszLiczbe(p + 2, item.quantity);
    WpiszBajt(p + 6, static_cast<int>(item.decimals & 0xFF));
    WpiszPole(p + 7, 4, item.unit);
    WpiszLiczbe(p + 11, item.price);
    WpiszBajt(p + 15, kEsc);
    WpiszBajt(p + 16, static_cast<int>(item.rate & 0xFF));
    WpiszLiczbe(p + 17, *item.amount);
}

// The text of a 32-bit field with decimals, as the devices print it.
const char* NapisLiczby(int32_t wartosc, uint8_t miejsc) {
    uint8_t pole[5] = {};
    bajty(pole, static_cast<uint32_t>(wartosc));
    return NapisZBajtowOpisujacych(pole, 1, 4, miejsc);
}

int32_t WyslijTekstowo(int dlugosc) {
    if (const int32_t numer = Wyslij(kPozycjaTekstowa, dlugosc)) return numer;
    return OdbierzPotwierdzenieBezposrednio();
}

int32_t OtworzPozycjeTekstowe() {
    WpiszBajt(1, 'C');
    WpiszBajt(2, kEsc);
    WpiszBajt(3, 0xB3);
    return WyslijTekstowo(3);
}

int WpiszPozycjeTekstowa(const Item& item) {
    const auto miejsca = static_cast<uint8_t>(item.decimals);
    const int dlugosc = static_cast<int>(strnlen(item.name, kNazwaTekstowa));
    SendRun run;
    run.Bytes({'D'})
        .Field(kNazwaDluga, item.name)
        .Bytes({0})
        .Text(NapisLiczby(item.quantity, miejsca), TextForm::kAsGiven)
        .Bytes({' '})
        .Field(4, item.unit)
        .Bytes({' ', '*', ' '})
        .Text(NapisLiczby(item.price, 2), TextForm::kAsGiven)
        .Bytes({' ', '=', kLf, kCr})
        .Text(item.name + kNazwaDluga, TextForm::kDevice, kNazwaDluga);
    if (dlugosc > 2 * kNazwaDluga) {
        run.Bytes({kLf, kCr}).Text(item.name + 2 * kNazwaDluga, TextForm::kDevice, kNazwaDluga);
    }
    run.Bytes({kEsc, 0xB1, 'a'})
        .Text(NapisLiczby(*item.amount, 2), TextForm::kAsGiven)
        .Bytes({kEsc, 0xB2, 0x40 + static_cast<int>(item.rate_given & 0xFF), kEsc, 0xB3});
    // The longest texts and numbers of decimals would pass the length byte.
    return run.length() < 255 ? run.length() : 255;
}

int32_t WyslijPozycjeTekstowa(const Item& item) {
    if (PierwszaPozycjaSprzedazy) {
        if (const int32_t numer = OtworzPozycjeTekstowe()) return numer;
    }
    return WyslijTekstowo(WpiszPozycjeTekstowa(item));
}

int32_t WyslijPozycje(const Item& item) {
    const size_t dlugosc = std::strlen(item.name);
    const bool krotka = dlugosc <= kNazwaKrotka;
    if (krotka || kTypyTylkoKrotkie.Contains(Urzadzenie) || !DlugieNazwy()) {
        // Types 7 and 9 get a longer name as the first 49 bytes of the long layout. This is kept as
        // the devices have always been sent it; applications keep to 28 characters there.
        const bool zDlugiej = !krotka && !kTypyKrotkiejNazwy.Contains(Urzadzenie) && DlugieNazwy();
        WpiszPozycje(item, zDlugiej ? kNazwaDluga : kNazwaKrotka);
        return Wyslij(kPozycjaKrotka);
    }
    if (dlugosc <= kNazwaDluga || kTypyBezTekstu.Contains(Urzadzenie)) {
        WpiszPozycje(item, kNazwaDluga);
        return Wyslij(kPozycjaDluga);
    }
    return WyslijPozycjeTekstowa(item);
}

// --- after the sending ---------------------------------------------------------------------------

void DoliczDoSumy(const Item& item) {
    if (item.rate < 1 || item.rate > kStawek) return;
    int32_t& suma = Total[item.rate];
    if (item.sale) {
        suma = Nasycona(int64_t{suma} + *item.amount);
    } else {
        suma = suma < *item.amount ? 0 : Nasycona(int64_t{suma} - *item.amount);
    }
}

// The older types tell by status B; the query is repeated once when its answer does not come.
int32_t PotwierdzPrzezStatus(Item& item) {
    uint8_t b = 0;
    int32_t numer = OdczytajStatus(kStatusB, b);
    if (numer == blad::kTimeoutOdbierania) numer = OdczytajStatus(kStatusB, b);
    if (numer != 0) return numer;
    if (b & kBitUniewaznienia) {
        const int32_t uniewazniony = UniewaznijParagon();
        return item.check != 0 ? item.check : uniewazniony;
    }
    item.check = 0;  // forgiven: the device has taken the line
    return blad::kBrak;
}

int32_t PotwierdzPozycje(Item& item) {
    if (kTypyNowszejRodziny.Contains(Urzadzenie)) return SprawdzUniewaznieniePrzezPowod();
    if (Optimize) return blad::kBrak;
    return PotwierdzPrzezStatus(item);
}

int32_t SprzedajPozycje(Item& item) {
    if (const int32_t numer = RozpocznijSesje()) return numer;
    if (!ParagonRozpoczety) return blad::kParagonNierozpoczety;
    if (!Optimize && !kTypyNowszejRodziny.Contains(Urzadzenie)) {
        if (const int32_t numer = SprawdzUniewaznieniePrzezStatus()) return numer;
    }
    NormalizujNazwe(item.work_name, item.name);
    SprawdzArgumenty(item);
    if (const int32_t numer = UstalWartosc(item)) return numer;

    const int32_t wyslano = WyslijPozycje(item);
    PierwszaPozycjaSprzedazy = 0;
    if (wyslano != 0) return wyslano;
    if (item.check == 0) DoliczDoSumy(item);
    // Held at its top: a receipt with printed lines must never look like one without.
    if (WydrukowanychLiniiPar < 255) ++WydrukowanychLiniiPar;
    if (const int32_t numer = PotwierdzPozycje(item)) return numer;
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
        if (Name == nullptr || Unit == nullptr || Amount == nullptr) return blad::kPustyBufor;
        WyliczonaWartoscPoz = 0;
        const auto stawka = static_cast<uint32_t>(TaxRate);
        Item item = {.sale = Sale == 1,
                     .name = Name,
                     .rate_given = stawka,
                     .rate = StawkaDlaUrzadzenia(stawka),
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
        if (Destination == nullptr || Name == nullptr) return blad::kPustyBufor;
        return NormalizujNazwe(Destination, Name);
    });
}

int32_t KORAX_CALL NormNazwa1(char* Destination, const char* Name) {
    return Funkcja([&]() -> int32_t {
        if (Destination == nullptr || Name == nullptr) return blad::kPustyBufor;
        KopiujTekst(Destination, Name, kNazwaKrotka + 1);
        Dopelnij(Destination, kNazwaKrotka);
        return blad::kBrak;
    });
}

int32_t KORAX_CALL pCharsInArticleName(const char* Name) {
    if (Name == nullptr) return ZapamietajBlad(blad::kPustyBufor);
    ZapamietajBlad(blad::kBrak);
    return LiczbaZnakowZnaczacych(Name);
}
