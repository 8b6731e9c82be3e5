// Totals per rate, the unique number, and the daily totalizers and counters.
#include <climits>
#include <cstdlib>
#include <cstring>

#include "koraxdr/command.h"
#include "koraxdr/device.h"
#include "koraxdr/device_types.h"
#include "koraxdr/frame.h"
#include "koraxdr/raw_frame.h"
#include "koraxdr/session.h"
#include "koraxdr/vat_rates.h"
#include "numbers/io_util.h"

namespace {

// Oddity: Type 9 tells no totals. Other readouts serve it; these never have.
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

// Oddity: The fifth byte of a total is added at the bottom. The number has 32 bits, and the shift
// is taken modulo 32.
uint32_t SumaZPieciuBajtow(int position) {
    uint32_t sum = 0;
    for (int j = 0; j < 5; ++j) {
        sum += uint32_t{BajtOdpowiedzi(position + j)} << (8 * j % 32);
    }
    return sum;
}

int32_t OdczytajSumy(RateTotals& totals) {
    if (const int32_t error = Wyslij(kSumyStawek)) return error;
    for (int i = 0; i < kStawek; ++i) totals.of_rate[i] = SumaZPieciuBajtow(1 + 5 * i);
    return KORAX_E_OK;
}

int32_t RozpocznijOdczytSum() {
    if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
    if (const int32_t error = RozpoznajUrzadzenie()) return error;
    return kTypyZSumami.Contains(Urzadzenie) ? KORAX_E_OK : KORAX_E_NOT_IN_THIS_DEVICE;
}

// Oddity: The wrong rate is tested for use. The total is named by the selector's first character,
// the tested rate by its second.
bool WybranaStawkaNieuzywana(const VatRates& rates, const char* selector) {
    const int rate_number = selector[0] == '\0' ? 0 : selector[1] & 7;
    return rate_number != 0 && rates.rates[rate_number - 1] == KORAX_RATE_NOT_USED;
}

void ZapiszWybranaSume(const RateTotals& totals, const char* selector, char* buffer) {
    const char rate = selector[0];
    if (rate >= 'A' && rate <= 'G') IntToStr(totals.of_rate[rate - 'A'], buffer, 0);
    if (rate != '\0' && selector[1] == '+') IntToStr(totals.Sum(), buffer, 0);
}

// --- daily totalizers and counters ---------------------------------------------------------------

constexpr int kPolTotalizerow = 7;
constexpr int kZnakowPola = 10;
constexpr int kTrescTotalizerow = kPolTotalizerow * kZnakowPola;
constexpr int kTrescLicznikow = 6;

int32_t OdbierzBajtPoBajcie(uint8_t* target, int count) {
    for (int i = 0; i < count; ++i) {
        uint8_t byte = 0;
        if (const int32_t error = OdbierzBajt(byte)) return error;
        if (i < kTrescTotalizerow)
            target[i] = byte;  // a longer body is read off the line and dropped
    }
    return KORAX_E_OK;
}

// The dialogue outside the exchange: a request, and an answer of Esc, "r", a length (high byte
// first) and a body, whose length has to be the expected one.
int32_t OdczytajDobowe(char selector, uint8_t* body, int expected) {
    uint8_t head[4] = {};
    RawFrame().Bytes({kEsc, kRamkaTekstowa.command, 'L', 'O', selector, kEsc, kKoniecRamki}).Send();
    if (const int32_t error = OdbierzBajtPoBajcie(head, sizeof head)) return error;
    if (head[0] != kEsc || head[1] != 'r') return KORAX_E_UNEXPECTED_ANSWER;
    const int length = head[2] * 256 + head[3];
    if (const int32_t error = OdbierzBajtPoBajcie(body, length)) return error;
    return length == expected ? KORAX_E_OK : KORAX_E_UNEXPECTED_ANSWER;
}

int32_t RozpocznijOdczytDobowych() {
    if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
    if (const int32_t error = RozpoznajUrzadzenie()) return error;
    return kTypyToliE.Contains(Urzadzenie) ? KORAX_E_OK : KORAX_E_NOT_IN_THIS_DEVICE;
}

// A decimal field, held inside 32 bits.
int64_t LiczbaZPola(const uint8_t* field) {
    char text[kZnakowPola + 1] = "";
    std::memcpy(text, field, kZnakowPola);
    const long long value = std::strtoll(text, nullptr, 10);
    return value > INT32_MAX ? INT32_MAX : value < INT32_MIN ? INT32_MIN : value;
}

}  // namespace

int32_t KORAX_CALL pReadTotal(char* Buffer) {
    return Funkcja([&]() -> int32_t {
        if (Buffer == nullptr) return KORAX_E_NULL;
        if (const int32_t error = RozpocznijOdczytSum()) return error;
        uint8_t defined = 0;
        if (const int32_t error = Stawki(&defined)) return error;
        RateTotals totals = {};
        if (const int32_t error = OdczytajSumy(totals)) return error;
        IntToStr(totals.Sum(), Buffer, 0);
        return KORAX_E_OK;
    });
}

char* KORAX_CALL xReadTotal(void) {
    ZapamietajBlad(pReadTotal(ZmiennaDodatkowaDlaTypuX));
    return ZmiennaDodatkowaDlaTypuX;
}

int32_t KORAX_CALL pReadSelTotal(const char* Selector, char* Buffer) {
    return Funkcja([&]() -> int32_t {
        if (Buffer == nullptr) return KORAX_E_NULL;
        if (const int32_t error = RozpocznijOdczytSum()) return error;
        VatRates rates;
        if (const int32_t error = OdczytajStawki(rates)) return error;
        if (WybranaStawkaNieuzywana(rates, Selector)) return KORAX_E_RATE_NOT_DEFINED;
        RateTotals totals = {};
        if (const int32_t error = OdczytajSumy(totals)) return error;
        ZapiszWybranaSume(totals, Selector, Buffer);
        return KORAX_E_OK;
    });
}

char* KORAX_CALL xReadSelTotal(const char* Selector) {
    ZapamietajBlad(pReadSelTotal(Selector, ZmiennaDodatkowaDlaTypuX));
    return ZmiennaDodatkowaDlaTypuX;
}

int32_t KORAX_CALL pReadUniqueNumber(char* Buffer) {
    return Funkcja([&]() -> int32_t {
        if (Buffer == nullptr) return KORAX_E_NULL;
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        if (const int32_t error = Wyslij(kNumerUnikatowy)) return error;
        KopiujOdpowiedz(Buffer, 1, kZnakowNumeruUnikatowego);
        return KORAX_E_OK;
    });
}

char* KORAX_CALL xReadUniqueNumber(void) {
    ZapamietajBlad(pReadUniqueNumber(ZmiennaDodatkowaDlaTypuX));
    return ZmiennaDodatkowaDlaTypuX;
}

int32_t KORAX_CALL pReadDailyTotalizers(int32_t Kind, int64_t* T1, int64_t* T2, int64_t* T3,
                                        int64_t* T4, int64_t* T5, int64_t* T6, int64_t* T7) {
    int64_t* const cells[kPolTotalizerow] = {T1, T2, T3, T4, T5, T6, T7};
    bool wrong_kind = false;
    const int32_t result = Funkcja([&]() -> int32_t {
        for (const int64_t* target : cells) {
            if (target == nullptr) return KORAX_E_NULL;
        }
        if (const int32_t error = RozpocznijOdczytDobowych()) return error;
        wrong_kind = Kind != 1 && Kind != 2;
        if (wrong_kind) return KORAX_E_OK;
        uint8_t body[kTrescTotalizerow] = {};
        if (const int32_t error = OdczytajDobowe(Kind == 1 ? '0' : '2', body, kTrescTotalizerow)) {
            return error;
        }
        for (int i = 0; i < kPolTotalizerow; ++i) *cells[i] = LiczbaZPola(body + kZnakowPola * i);
        return KORAX_E_OK;
    });
    // Oddity: A wrong kind of totalizers is not stored. It is returned, and LastError says 0.
    return wrong_kind ? KORAX_E_OUT_OF_RANGE : result;
}

int32_t KORAX_CALL pReadDailyCounters(int32_t* Counter1, int32_t* Counter2) {
    return Funkcja([&]() -> int32_t {
        if (Counter1 == nullptr || Counter2 == nullptr) return KORAX_E_NULL;
        if (const int32_t error = RozpocznijOdczytDobowych()) return error;
        uint8_t body[kTrescTotalizerow] = {};
        if (const int32_t error = OdczytajDobowe('4', body, kTrescLicznikow)) return error;
        *Counter1 = body[0] * 256 + body[1];
        *Counter2 = body[2] * 256 + body[3];  // the last two bytes are not used
        return KORAX_E_OK;
    });
}
