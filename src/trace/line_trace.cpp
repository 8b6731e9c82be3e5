#include "trace/line_trace.h"

#include <chrono>
#include <cstdio>
#include <cstring>

#include "platform/clock.h"
#include "platform/trace_file.h"

uint8_t ZapisywacLinie = 0;

namespace {

constexpr char kZmiennaSrodowiska[] = "KORAXDR_TRACE";
constexpr int kNajdluzszaNazwa = 256;  // characters; a longer name is passed over
constexpr int kNajwiecejBajtowWiersza = 64;
constexpr uint64_t kNajdluzszaPrzerwaUs = 1'000;  // between bytes that share a line of the record

char NazwaZapisu[kNajdluzszaNazwa + 1] = "";  // of the file that is open
uint64_t PoczatekZapisuUs = 0;

// Bytes of one direction that will share a line; none when the direction is 0.
struct PendingBytes {
    char direction = 0;
    uint64_t first_us = 0;
    uint64_t last_us = 0;
    int count = 0;
    uint8_t bytes[kNajwiecejBajtowWiersza]{};
};
PendingBytes Oczekujace;

// Seconds with six decimals; the formatter is the standard library's, without floating point.
int WpiszCzas(char* line, std::size_t size, uint64_t at_us) {
    const uint64_t passed_us = at_us - PoczatekZapisuUs;
    return std::snprintf(line, size, "%llu.%06llu ",
                         static_cast<unsigned long long>(passed_us / 1'000'000),
                         static_cast<unsigned long long>(passed_us % 1'000'000));
}

// "2026-01-31T12:00:00Z"
void WpiszDate(char (&text)[32]) {
    using namespace std::chrono;
    const sys_seconds now{seconds{platform::SecondsSince1970()}};
    const auto midnight = floor<days>(now);
    const year_month_day date{midnight};
    const hh_mm_ss time{now - midnight};
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ",
                  static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                  static_cast<unsigned>(date.day()), static_cast<int>(time.hours().count()),
                  static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
}

void DopiszBajt(char direction, uint8_t byte) {
    const uint64_t now_us = platform::MonotonicUs();
    if (Oczekujace.direction != direction || Oczekujace.count == kNajwiecejBajtowWiersza ||
        now_us - Oczekujace.last_us > kNajdluzszaPrzerwaUs) {
        OproznijZapisLinii();
        Oczekujace.direction = direction;
        Oczekujace.first_us = now_us;
    }
    Oczekujace.bytes[Oczekujace.count++] = byte;
    Oczekujace.last_us = now_us;
}

void DopiszBajty(char direction, const uint8_t* bytes, uint32_t count) {
    if (!ZapisywacLinie) return;
    for (uint32_t i = 0; i < count; ++i) DopiszBajt(direction, bytes[i]);
}

void PorzucZapis() {
    if (ZapisywacLinie) OproznijZapisLinii();
    ZapisywacLinie = 0;
    NazwaZapisu[0] = '\0';
    platform::CloseTraceFile();
}

void RozpocznijPlik() {
    char date[32];
    char line[64];
    WpiszDate(date);
    const int length = std::snprintf(line, sizeof line, "# korax line 1 %s\n", date);
    platform::AppendToTraceFile(line, static_cast<std::size_t>(length));
}

}  // namespace

void UstalZapisLinii() {
    char name[sizeof NazwaZapisu];
    if (!platform::ReadEnvironment(kZmiennaSrodowiska, name, sizeof name) || name[0] == '\0') {
        return PorzucZapis();
    }
    if (ZapisywacLinie && std::strcmp(name, NazwaZapisu) == 0) return;
    PorzucZapis();
    bool is_new = false;
    if (!platform::OpenTraceFile(name, is_new)) return;
    std::memcpy(NazwaZapisu, name, sizeof name);
    ZapisywacLinie = 1;
    if (is_new) RozpocznijPlik();
}

void ZapiszOtwarcieLinii(const char* device_name, uint32_t baud) {
    if (!ZapisywacLinie) return;
    char date[32];
    char remark[400];
    WpiszDate(date);
    std::snprintf(remark, sizeof remark, "opened %s %lu %s", device_name,
                  static_cast<unsigned long>(baud), date);
    ZapiszUwageOLinii(remark);
    PoczatekZapisuUs = platform::MonotonicUs();
}

void ZapiszZamkniecieLinii() {
    ZapiszUwageOLinii("closed");
}

void ZapiszBajtyWyslane(const uint8_t* bytes, uint32_t count) {
    DopiszBajty('>', bytes, count);
}

void ZapiszBajtyOdebrane(const uint8_t* bytes, uint32_t count) {
    DopiszBajty('<', bytes, count);
}

void OproznijZapisWyslanych() {
    if (Oczekujace.direction == '>') OproznijZapisLinii();
}

void OproznijZapisLinii() {
    if (Oczekujace.count == 0) return;
    char line[40 + 2 * kNajwiecejBajtowWiersza];
    int length = WpiszCzas(line, sizeof line, Oczekujace.first_us);
    line[length++] = Oczekujace.direction;
    line[length++] = ' ';
    for (int i = 0; i < Oczekujace.count; ++i) {
        constexpr char digits[] = "0123456789abcdef";
        line[length++] = digits[Oczekujace.bytes[i] >> 4];
        line[length++] = digits[Oczekujace.bytes[i] & 0x0F];
    }
    line[length++] = '\n';
    Oczekujace = {};
    platform::AppendToTraceFile(line, static_cast<std::size_t>(length));
}

void ZapiszUwageOLinii(const char* remark) {
    if (!ZapisywacLinie) return;
    OproznijZapisLinii();
    char line[420];
    const int length = std::snprintf(line, sizeof line, "# %s\n", remark);
    platform::AppendToTraceFile(line, static_cast<std::size_t>(length));
}
