// Totals per rate, the unique number, and the daily totalizers and counters.
#include <climits>
#include <cstdlib>
#include <cstring>

#include "engine/sysproc.h"
#include "koraxdr/device_types.h"
#include "koraxdr/frame.h"
#include "koraxdr/raw_frame.h"
#include "koraxdr/send_layout.h"
#include "koraxdr/vat.h"
#include "numbers/io_util.h"

namespace {

constexpr ControlSequence kSumyStawek = {0xDA, 36};
constexpr ControlSequence kNumerUnikatowy = {0x71, 12};

// Type 9 is left out on purpose although other readouts serve it.
constexpr DeviceTypes kTypyZSumami = {4, 7, 8, 10, 11, 12, 13};

constexpr int kZnakowNumeruUnikatowego = 11;

// --- totals per rate -----------------------------------------------------------------------------

struct RateTotals {
    uint32_t of_rate[kStawek];
    uint32_t Sum() const {
        uint32_t sum = 0;
        for (const uint32_t total : of_rate) sum += total;
        return sum;
    }
};

// Five bytes in 32 bits: the shift of the fifth is taken modulo 32, so that it is added at the
// bottom. The arithmetic is kept as it is.
uint32_t SumaZPieciuBajtow(int pozycja) {
    uint32_t suma = 0;
    for (int j = 0; j < 5; ++j) {
        suma += uint32_t{BajtOdpowiedzi(pozycja + j)} << (8 * j % 32);
    }
    return suma;
}

int32_t OdczytajSumy(RateTotals& sumy) {
    if (const int32_t numer = Wyslij(kSumyStawek)) return numer;
    for (int i = 0; i < kStawek; ++i) sumy.of_rate[i] = SumaZPieciuBajtow(1 + 5 * i);
    return blad::kBrak;
}

int32_t RozpocznijOdczytSum() {
    if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
    if (const int32_t numer = DeviceType(&Urzadzenie, &Prog)) return numer;
    return kTypyZSumami.Contains(Urzadzenie) ? blad::kBrak : blad::kNiedostepnyWTymUrzadzeniu;
}

// The rate that is tested is named by the second character, the total by the first; both are kept.
bool WybranaStawkaNieuzywana(const VatRates& stawki, const char* selector) {
    const int numer = selector[0] == '\0' ? 0 : selector[1] & 7;
    return numer != 0 && stawki.rates[numer - 1] == kStawkaNieuzywana;
}

void ZapiszWybranaSume(const RateTotals& sumy, const char* selector, char* bufor) {
    const char stawka = selector[0];
    if (stawka >= 'A' && stawka <= 'G') IntToStr(sumy.of_rate[stawka - 'A'], bufor, 0);
    if (stawka != '\0' && selector[1] == '+') IntToStr(sumy.Sum(), bufor, 0);
}

// --- daily totalizers and counters ---------------------------------------------------------------

constexpr int kPolTotalizerow = 7;
constexpr int kZnakowPola = 10;
constexpr int kTrescTotalizerow = kPolTotalizerow * kZnakowPola;
constexpr int kTrescLicznikow = 6;

int32_t OdbierzBajtPoBajcie(uint8_t* cel, int ile) {
    for (int i = 0; i < ile; ++i) {
        uint8_t bajt = 0;
        if (const int32_t numer = OdbierzBajt(bajt)) return numer;
        if (i < kTrescTotalizerow) cel[i] = bajt;  // a longer body is read off the line and dropped
    }
    return blad::kBrak;
}

// The dialogue outside the exchange: a request, and an answer of Esc, "r", a length (high byte
// first) and a body, whose length has to be the expected one.
int32_t OdczytajDobowe(char selektor, uint8_t* tresc, int oczekiwana) {
    uint8_t naglowek[4] = {};
    RawFrame().Bytes({kEsc, 0xB0, 'L', 'O', selektor, kEsc, 0xB3}).Send();
    if (const int32_t numer = OdbierzBajtPoBajcie(naglowek, sizeof naglowek)) return numer;
    if (naglowek[0] != kEsc || naglowek[1] != 'r') return blad::kNiepoprawnaOdpowiedz;
    const int dlugosc = naglowek[2] * 256 + naglowek[3];
    if (const int32_t numer = OdbierzBajtPoBajcie(tresc, dlugosc)) return numer;
    return dlugosc == oczekiwana ? blad::kBrak : blad::kNiepoprawnaOdpowiedz;
}

int32_t RozpocznijOdczytDobowych() {
    if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
    if (const int32_t numer = DeviceType(&Urzadzenie, &Prog)) return numer;
    return kTypyToliE.Contains(Urzadzenie) ? blad::kBrak : blad::kNiedostepnyWTymUrzadzeniu;
}

// A decimal field, held inside 32 bits.
int64_t LiczbaZPola(const uint8_t* pole) {
    char text[kZnakowPola + 1] = "";
    std::memcpy(text, pole, kZnakowPola);
    const long long value = std::strtoll(text, nullptr, 10);
    return value > INT32_MAX ? INT32_MAX : value < INT32_MIN ? INT32_MIN : value;
}

}  // namespace

int32_t KORAX_CALL pReadTotal(char* Buffer) {
    return Funkcja([&]() -> int32_t {
        if (Buffer == nullptr) return blad::kPustyBufor;
        if (const int32_t numer = RozpocznijOdczytSum()) return numer;
        uint8_t okreslone = 0;
        if (const int32_t numer = Stawki(&okreslone)) return numer;
        RateTotals sumy = {};
        if (const int32_t numer = OdczytajSumy(sumy)) return numer;
        IntToStr(sumy.Sum(), Buffer, 0);
        return blad::kBrak;
    });
}

char* KORAX_CALL xReadTotal(void) {
    ZapamietajBlad(pReadTotal(ZmiennaDodatkowaDlaTypuX));
    return ZmiennaDodatkowaDlaTypuX;
}

int32_t KORAX_CALL pReadSelTotal(const char* Selector, char* Buffer) {
    return Funkcja([&]() -> int32_t {
        if (Buffer == nullptr) return blad::kPustyBufor;
        if (const int32_t numer = RozpocznijOdczytSum()) return numer;
        VatRates stawki;
        if (const int32_t numer = OdczytajStawki(stawki)) return numer;
        if (WybranaStawkaNieuzywana(stawki, Selector)) return blad::kStawkaNiezdefiniowana;
        RateTotals sumy = {};
        if (const int32_t numer = OdczytajSumy(sumy)) return numer;
        ZapiszWybranaSume(sumy, Selector, Buffer);
        return blad::kBrak;
    });
}

char* KORAX_CALL xReadSelTotal(const char* Selector) {
    ZapamietajBlad(pReadSelTotal(Selector, ZmiennaDodatkowaDlaTypuX));
    return ZmiennaDodatkowaDlaTypuX;
}

int32_t KORAX_CALL pReadUniqueNumber(char* Buffer) {
    return Funkcja([&]() -> int32_t {
        if (Buffer == nullptr) return blad::kPustyBufor;
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        if (const int32_t numer = Wyslij(kNumerUnikatowy)) return numer;
        KopiujOdpowiedz(Buffer, 1, kZnakowNumeruUnikatowego);
        return blad::kBrak;
    });
}

char* KORAX_CALL xReadUniqueNumber(void) {
    ZapamietajBlad(pReadUniqueNumber(ZmiennaDodatkowaDlaTypuX));
    return ZmiennaDodatkowaDlaTypuX;
}

int32_t KORAX_CALL pReadDailyTotalizers(int32_t Kind, int64_t* T1, int64_t* T2, int64_t* T3,
                                        int64_t* T4, int64_t* T5, int64_t* T6, int64_t* T7) {
    int64_t* const cele[kPolTotalizerow] = {T1, T2, T3, T4, T5, T6, T7};
    bool zlyRodzaj = false;
    const int32_t wynik = Funkcja([&]() -> int32_t {
        for (const int64_t* cel : cele) {
            if (cel == nullptr) return blad::kPustyBufor;
        }
        if (const int32_t numer = RozpocznijOdczytDobowych()) return numer;
        zlyRodzaj = Kind != 1 && Kind != 2;
        if (zlyRodzaj) return blad::kBrak;
        uint8_t tresc[kTrescTotalizerow] = {};
        if (const int32_t numer = OdczytajDobowe(Kind == 1 ? '0' : '2', tresc, kTrescTotalizerow)) {
            return numer;
        }
        for (int i = 0; i < kPolTotalizerow; ++i) *cele[i] = LiczbaZPola(tresc + kZnakowPola * i);
        return blad::kBrak;
    });
    // A wrong kind is returned but, on purpose, not stored as the last error.
    return zlyRodzaj ? blad::kParametrPozaZakresem : wynik;
}

int32_t KORAX_CALL pReadDailyCounters(int32_t* Counter1, int32_t* Counter2) {
    return Funkcja([&]() -> int32_t {
        if (Counter1 == nullptr || Counter2 == nullptr) return blad::kPustyBufor;
        if (const int32_t numer = RozpocznijOdczytDobowych()) return numer;
        uint8_t tresc[kTrescTotalizerow] = {};
        if (const int32_t numer = OdczytajDobowe('4', tresc, kTrescLicznikow)) return numer;
        *Counter1 = tresc[0] * 256 + tresc[1];
        *Counter2 = tresc[2] * 256 + tresc[3];  // the last two bytes are not used
        return blad::kBrak;
    });
}
