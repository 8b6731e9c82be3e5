// The life of a receipt: begin, conditions, end, cancellation.
#include "koraxdr/receipt.h"

#include <algorithm>
#include <limits>

#include "engine/sysproc.h"
#include "koraxdr/cp1250.h"
#include "koraxdr/device_types.h"
#include "koraxdr/polish_text.h"
#include "koraxdr/send_layout.h"
#include "koraxdr/vat.h"
#include "port/opening.h"
#include "port/sysseria.h"

namespace {

constexpr ControlSequence kOtwarcieParagonu = {33};
constexpr ControlSequence kStanParagonu = {95, 2};
constexpr ControlSequence kRabatProcentowy = {27, 0, 1};
constexpr ControlSequence kRabatKwotowy = {25, 0, 5};
constexpr ControlSequence kSumaDoZaplaty = {7, 0, 4};
constexpr ControlSequence kLiniaDodatkowa = {9, 0};
constexpr ControlSequence kZakonczenieParagonu = {36};
constexpr ControlSequence kAnulowanieParagonu = {35};
constexpr ControlSequence kNumerParagonu = {102, 3};
constexpr ControlSequence kWznowienieWydruku = {42};
constexpr ControlSequence kDalszyStatus = {245, 2};

constexpr DeviceTypes kTypyBezOtwarciaPoWarunkach = {5, 6, 9};

constexpr uint8_t kBitOtwartegoParagonu = 0x02;  // receipt state
constexpr int kNajdluzszaLiniaDodatkowa =
    253;  // with number and line feed it fills the length byte
constexpr uint8_t kKoniecLinii = 10;

enum RodzajRabatu : int32_t { kProcentowy = 0, kKwotowyRabat = 1, kKwotowyNarzut = 2 };

struct ReasonText {
    int32_t code;
    Text1250 text;
};
// "sekwecją" is spelt so on purpose.
constexpr ReasonText kPowody[] = {
    {32, "Paragon unieważniony programowo (sekwecją ESC, 23H)"},
    {49,
     "Odebranie znaku różnego od Esc w momencie oczekiwania na sekwencję Esc,XXH lub sekwencja "
     "Esc,XXH nieznana w paragonie lub niewłaściwa w danym momencie"},
    {50, "Nieprawidłowa wartość rabatu (mniejsza od 1 lub większa od 99)"},
    {51,
     "Nieprawidłowa kolejność sekwencji paragonowych lub powtórzenie paragonowych sekwencji "
     "jednokrotnych"},
    {52, "Przekroczona maksymalna długość paragonu"},
    {53, "Przekroczona maksymalna liczba linii drukowanych za pomocą sekwencji Esc,09H"},
    {54, "Przekroczony maksymalny czas wystawiania paragonu"},
    {55, "Niezgodność sumy do zapłaty przesłanej z komputera z wyliczoną przez drukarkę"},
    {65, "Znak niedrukowalny w nazwie paragonu (o kodzie mniejszym od 20H)"},
    {66, "Mniej niż 5 znaków znaczących w nazwie towaru"},
    {67,
     "Nastąpiło zablokowanie towaru (zmiana stawki na mniejszą a następnie próba powrotu na "
     "większą)"},
    {68, "Brak miejsca na zapis towaru w bazie sum"},
    {69, "Brak miejsca na zapis towaru w bazie nazw"},
    {70, "Przekroczona maksymalna ilość towaru (6 cyfr znaczących)"},
    {71, "Przekroczona maksymalna cena towaru (większa od 9999999,99)"},
    {72, "Sekwencja Esc,ST nie wystąpiła w oczekiwanym miejscu"},
    {73,
     "Stawka podatku w sekwencji Esc,ST nie w zakresie od A do G lub użyta stawka nie "
     "zdefiniowana"},
    {74, "Ujemne saldo z towaru dla którego realizowana jest pozycja korekcyjna"},
    {75,
     "Wartość pozycji (iloczyn ilości towaru i ceny) niezgodna z przesłaną z komputera lub "
     "przekracza maksymalną wartość"},
    {82, "Zerowa wartość pozycji"},
    {83, "Przekroczona maksymalna kwota na paragon (9999999,99 zł)"},
    {84, "Zerowa wartość sumy paragonu"},
    {85, "Kwota z narzutem przekracza maksymalną"},
    {87, "Rabat / narzut nie po pozycji sprzedaży"},
    {88, "Timeout odbierania danych z komputera"},
    {89, "Błędne dane w płatności walutowej"},
};

// --- conditions of a receipt ---------------------------------------------------------------------

struct StatusBytes {
    uint8_t c, a, b, d;
};

int32_t OdczytajStatusy(StatusBytes& s) {
    if (const int32_t numer = OdczytajStatus(kStatusC, s.c)) return numer;
    if (const int32_t numer = OdczytajStatus(kStatusA, s.a)) return numer;
    if (const int32_t numer = OdczytajStatus(kStatusB, s.b)) return numer;
    if (const int32_t numer = OdczytajStatus(kStatusD, s.d)) return numer;
    const int32_t numer = Wyslij(kDalszyStatus);
    return numer == blad::kNak ? blad::kBrak : numer;
}

// A bit of a status byte and what it means when it is set (or clear).
struct StatusTest {
    uint8_t StatusBytes::*byte;
    uint8_t bit;
    bool fails_when_set;
    int32_t reason;
};

constexpr StatusTest kBrakKontrolera = {&StatusBytes::a, 0x80, true, blad::kBrakKontroleraDrukarki};
constexpr StatusTest kAwaria = {&StatusBytes::b, 0x04, true, blad::kAwariaDrukarki};

// In the order in which they are reported.
constexpr StatusTest kTestyPrzedStawkami[] = {
    {&StatusBytes::c, 0x01, false, blad::kBrakDanychProducenta},
    {&StatusBytes::a, 0x10, true, blad::kSkasowanaPamiec},
    {&StatusBytes::d, 0x40, true, blad::kZworaSerwisowa},
    kBrakKontrolera,
    kAwaria,
    {&StatusBytes::c, 0x02, false, blad::kBrakDanychUzytkownika},
    {&StatusBytes::c, 0x04, true, blad::kTylkoOdczyt},
    {&StatusBytes::a, 0x40, true, blad::kBrakWyswietlacza},
    {&StatusBytes::a, 0x08, true, blad::kZaleglyRaportDobowy},
};
// The last two stand here a second time; the repetition is kept.
constexpr StatusTest kTestyPoStawkach[] = {
    {&StatusBytes::b, 0x02, true, blad::kBrakPapieru},
    kBrakKontrolera,
    kAwaria,
};

template <size_t N>
int32_t PierwszyPowod(const StatusBytes& s, const StatusTest (&testy)[N]) {
    for (const StatusTest& test : testy) {
        if (((s.*test.byte & test.bit) != 0) == test.fails_when_set) return test.reason;
    }
    return blad::kBrak;
}

// --- end of a receipt ----------------------------------------------------------------------------

// The entry less the percent, in hundredths; an exact half is rounded down, on purpose.
int64_t PoRabacie(int32_t kwota, int32_t procent) {
    const int64_t pomnozona = int64_t{kwota} * (100 - procent);
    return pomnozona / 100 + (pomnozona % 100 >= 51 ? 1 : 0);
}

int32_t WyslijRabatKwotowy(char znak, int32_t kwota) {
    WpiszBajt(1, znak);
    WpiszLiczbe(2, kwota);
    return Wyslij(kRabatKwotowy);
}

// Sends the discount or surcharge on the whole receipt and works out what is to be paid.
int32_t UstalDoZaplaty(int32_t rabat, int32_t rodzaj, int64_t& doZaplaty) {
    doZaplaty = SumaParagonu();
    switch (rodzaj) {
        case kProcentowy:
            if (rabat < 1 || rabat > 99) return blad::kBrak;
            doZaplaty = 0;
            for (int i = 1; i <= kStawek; ++i) doZaplaty += PoRabacie(Total[i], rabat);
            WpiszBajt(1, rabat);
            return Wyslij(kRabatProcentowy);
        case kKwotowyRabat:
            doZaplaty -= rabat;
            return WyslijRabatKwotowy('-', rabat);
        case kKwotowyNarzut:
            doZaplaty += rabat;
            return WyslijRabatKwotowy(' ', rabat);
        default:
            return blad::kBrak;
    }
}

// A currency payment whose sending fails stays deferred.
int32_t WyslijOdlozonePlatnosciWalutowe() {
    constexpr int32_t wyslac = 1;
    if (CP1.send) {
        if (const int32_t numer = pCurrencyPayment1(CP1.currency_name, CP1.rate, CP1.quantity,
                                                    CP1.subtotal, wyslac)) {
            return numer;
        }
        CP1.send = 0;
    }
    if (CP2.send) {
        if (const int32_t numer =
                pCurrencyPayment2(CP2.total_in_currency, CP2.total_in_base_currency, CP2.change,
                                  CP2.type_of_change, wyslac)) {
            return numer;
        }
        CP2.send = 0;
    }
    return blad::kBrak;
}

int32_t WyslijSume(int64_t doZaplaty) {
    WpiszLiczbe(1, Nasycona(doZaplaty));
    return Wyslij(kSumaDoZaplaty);
}

int32_t WyslijFormyPlatnosci() {
    if (!kTypyZPlatnosciami.Contains(Urzadzenie)) return blad::kBrak;
    for (int i = 1; i <= kPlatnosci; ++i) {
        PaymentSlot& slot = Payments[i];
        if (slot.name[0] == '\0') continue;
        if (const int32_t numer = WyslijPlatnosc(i, slot.name, slot.total, slot.change)) {
            return numer;
        }
        slot = {};
    }
    return blad::kBrak;
}

int32_t WyslijLinie(const LineSlot& slot) {
    WpiszBajt(1, '0' + static_cast<uint8_t>(slot.number));
    const int koniec = WpiszTekst(2, slot.text, TextForm::kDevice, kNajdluzszaLiniaDodatkowa);
    WpiszBajt(koniec, kKoniecLinii);
    return Wyslij(kLiniaDodatkowa, koniec);
}

// These lines are printed in code page 852 by the newest types, whatever page they use otherwise.
int32_t WyslijLinieDodatkowe() {
    for (int i = 1; i <= kLiniiDodatkowych; ++i) {
        LineSlot& slot = AdditionalLines[i];
        if (slot.number == kLiniaWolna) continue;
        const auto wyslij = [&] {
            if (!kTypyRodzinyToliE.Contains(Urzadzenie)) return WyslijLinie(slot);
            const CodePage852 strona;
            return WyslijLinie(slot);
        };
        if (const int32_t numer = wyslij()) return numer;
        slot = {};
    }
    return blad::kBrak;
}

int32_t ZakonczParagon() {
    const int32_t numer = Wyslij(kZakonczenieParagonu);
    PierwszaPozycjaSprzedazy = 0;
    FakturaRozpoczeta = 0;
    if (numer == 0) {
        ParagonRozpoczety = 0;
        WydrukowanychLiniiPar = 0;
        return ZakonczDrukowanie();
    }
    if (numer == blad::kNak) ParagonRozpoczety = 0;  // the device knows of no open receipt
    return WydrukowanychLiniiPar == 0 ? blad::kBrak : numer;
}

// --- cancellation --------------------------------------------------------------------------------

int32_t WyslijAnulowanie() {
    const bool bezWydruku =
        kTypyToliE.Contains(Urzadzenie) && WydrukowanychLiniiPar == 0 && !FakturaRozpoczeta;
    if (!bezWydruku) return Wyslij(kAnulowanieParagonu);
    // The device takes the sixteen bytes as they stand; their values mean nothing here.
    if (const int32_t numer = Wyslij(kPlatnoscWalutowa2)) return numer;
    return OdbierzPotwierdzenieBezposrednio();
}

bool ParagonOtwartyWUrzadzeniu() {
    return Wyslij(kStanParagonu) != 0 || (BajtOdpowiedzi(1) & kBitOtwartegoParagonu) != 0;
}

}  // namespace

int64_t SumaParagonu() {
    int64_t suma = 0;
    for (int i = 1; i <= kStawek; ++i) suma += Total[i];
    return suma;
}

int32_t Nasycona(int64_t kwota) {
    using Limits = std::numeric_limits<int32_t>;
    return static_cast<int32_t>(std::clamp<int64_t>(kwota, Limits::min(), Limits::max()));
}

int32_t SprawdzUniewaznieniePrzezStatus() {
    uint8_t b = 0;
    if (const int32_t numer = OdczytajStatus(kStatusB, b)) return numer;
    return b & kBitUniewaznienia ? UniewaznijParagon() : blad::kBrak;
}

int32_t SprawdzUniewaznieniePrzezPowod() {
    if (const int32_t numer = Wyslij(kPowodUniewaznienia)) return numer;
    return BajtOdpowiedzi(1) != 0 ? UniewaznijParagon() : blad::kBrak;
}

int32_t PrzygotujDokument() {
    if (ParagonRozpoczety) {
        if (ParagonOtwartyWUrzadzeniu()) return blad::kParagonRozpoczety;
        ParagonRozpoczety = 0;  // stale: the code-page query below must not stumble over it
    }
    WydrukowanychLiniiPar = 0;
    CzyscPortSzeregowy();
    if (Optimize) return blad::kBrak;
    CzyscPortSzeregowy();
    return IsCodePage1250(&CodePage1250);
}

void RozpocznijDokument(bool faktura) {
    ParagonRozpoczety = 1;
    FakturaRozpoczeta = faktura ? 1 : 0;
    std::fill(Total + 1, Total + 1 + kStawek, 0);
}

int32_t KORAX_CALL ReceiptBegin(void) {
    PierwszaPozycjaSprzedazy = 1;  // whatever becomes of the call
    return Funkcja([]() -> int32_t {
        if (const int32_t numer = RozpocznijSesje()) return numer;
        if (const int32_t numer = PrzygotujDokument()) return numer;
        const int32_t numer = Wyslij(kOtwarcieParagonu);
        if (numer == blad::kNak) {
            const int32_t powod = ReceiptConditions();
            return powod != 0 ? powod : numer;
        }
        if (numer == 0) RozpocznijDokument(false);
        return numer;
    });
}

int32_t KORAX_CALL ReceiptConditions(void) {
    return Funkcja([]() -> int32_t {
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        StatusBytes s = {};
        if (const int32_t numer = OdczytajStatusy(s)) return numer;
        if (const int32_t powod = PierwszyPowod(s, kTestyPrzedStawkami)) return powod;
        uint8_t okreslone = 0;
        if (const int32_t numer = Stawki(&okreslone)) return numer;
        if (const int32_t powod = PierwszyPowod(s, kTestyPoStawkach)) return powod;
        // These types end here even when nothing is wrong with them; the rule is kept.
        if (kTypyBezOtwarciaPoWarunkach.Contains(Urzadzenie)) {
            return blad::kNiedostepnyWTymUrzadzeniu;
        }
        return PrintControl(1);
    });
}

int32_t KORAX_CALL ReceiptEndEx(int32_t DiscountSurcharge, int32_t TypeOfDiscountSurcharge) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function ReceiptEndEx: ",
                       {{"1.DiscountSurcharge: ", DiscountSurcharge},
                        {"2.TypeOfDiscountSurcharge: ", TypeOfDiscountSurcharge}});
        if (const int32_t numer = RozpocznijSesje()) return numer;
        const auto zakoncz = [&]() -> int32_t {
            if (!ParagonRozpoczety) return blad::kParagonNierozpoczety;
            int64_t doZaplaty = 0;
            if (const int32_t numer =
                    UstalDoZaplaty(DiscountSurcharge, TypeOfDiscountSurcharge, doZaplaty)) {
                return numer;
            }
            if (const int32_t numer = WyslijOdlozonePlatnosciWalutowe()) return numer;
            if (const int32_t numer = WyslijSume(doZaplaty)) return numer;
            if (const int32_t numer = WyslijFormyPlatnosci()) return numer;
            if (const int32_t numer = WyslijLinieDodatkowe()) return numer;
            return ZakonczParagon();
        };
        const int32_t wynik = zakoncz();
        Optimize = 0;  // the setting lasts for one receipt
        return wynik;
    });
}

int32_t KORAX_CALL ReceiptEnd(int32_t DiscountSurcharge) {
    return ReceiptEndEx(DiscountSurcharge, kProcentowy);
}

int32_t KORAX_CALL ReceiptCancel(void) {
    return Funkcja([]() -> int32_t {
        if (const int32_t numer = RozpocznijSesje()) return numer;
        if (!ParagonRozpoczety) return blad::kParagonNierozpoczety;
        if (const int32_t numer = SprawdzUniewaznieniePrzezStatus()) return numer;
        const bool nowszy = kTypyToliE.Contains(Urzadzenie);
        if (!nowszy) {
            if (const int32_t numer = WyslijSume(SumaParagonu())) return numer;
        }
        PierwszaPozycjaSprzedazy = 0;
        int32_t numer = WyslijAnulowanie();
        if (numer != 0) {
            if (nowszy && numer == blad::kNiepoprawnaOdpowiedz) numer = 0;
            // An unexpected answer of the newer types thus ends in 0 with the receipt's flags left
            // set. This is meant: the next call settles them with the device.
            if (WydrukowanychLiniiPar != 0 || numer != blad::kNak) return numer;
        }
        WydrukowanychLiniiPar = 0;
        ParagonRozpoczety = 0;
        FakturaRozpoczeta = 0;
        return ZakonczDrukowanie();
    });
}

int32_t KORAX_CALL CancellationReason(int32_t* Code, char* Reason) {
    return Funkcja([&]() -> int32_t {
        if (Code == nullptr) return blad::kPustyBufor;
        if (const int32_t numer = RozpocznijSesje()) return numer;
        if (const int32_t numer = Wyslij(kPowodUniewaznienia)) return numer;
        *Code = BajtOdpowiedzi(1);
        if (Reason == nullptr) return blad::kPustyBufor;
        Reason[0] = '\0';
        for (const ReasonText& powod : kPowody) {
            if (powod.code == *Code) KopiujTekst(Reason, powod.text.bytes, kDlugoscTekstu1250);
        }
        return blad::kBrak;
    });
}

int32_t KORAX_CALL ReceiptNumber(int32_t* Number) {
    return Funkcja([&]() -> int32_t {
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        if (const int32_t numer = Wyslij(kNumerParagonu)) return numer;
        *Number = SlowoOdpowiedzi(1);
        return blad::kBrak;
    });
}

int32_t KORAX_CALL xReceiptNumber(void) {
    int32_t number = 0;
    ZapamietajBlad(ReceiptNumber(&number));
    return number;
}

int32_t KORAX_CALL PrintResume(void) {
    return Funkcja([]() -> int32_t {
        constexpr uint8_t brakPapieru = 0x02;
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        uint8_t b = 0;
        if (const int32_t numer = OdczytajStatus(kStatusB, b)) return numer;
        if (b & brakPapieru) return blad::kBrakPapieru;
        if (const int32_t numer = Wyslij(kWznowienieWydruku)) return numer;
        return ZakonczDrukowanie();
    });
}
