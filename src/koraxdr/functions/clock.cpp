// The device's clock: read as text, moved by at most an hour.
#include <cstddef>

#include "koraxdr/command.h"
#include "koraxdr/device.h"
#include "koraxdr/device_types.h"
#include "koraxdr/document.h"
#include "koraxdr/frame.h"
#include "koraxdr/send_layout.h"
#include "koraxdr/session.h"
#include "numbers/io_util.h"

namespace {

constexpr int kCyfrZMinutami = 10;
constexpr int kCyfrZSekundami = 12;
constexpr std::size_t kNajdluzszyZapis = 17;  // characters of "dd.dd.dd;hh:mm:ss"

constexpr int64_t kNajwiecejMinut = 60;

// Two digits and what stands behind them; a digit byte above 9 takes more places, within the limit.
void ZapiszZegar(char* buffer, int digit_count) {
    constexpr char separators[] = {'.', '.', ';', ':', ':'};
    std::size_t used = 0;
    const auto append = [&](char character) {
        if (used < kNajdluzszyZapis) buffer[used++] = character;
    };
    for (int i = 1; i <= digit_count; ++i) {
        char digit[12];
        for (const char* character = IntToStr(BajtOdpowiedzi(i), digit, 0); *character != '\0';
             ++character) {
            append(*character);
        }
        if (i % 2 == 0 && i < digit_count) append(separators[i / 2 - 1]);
    }
    buffer[used] = '\0';
}

struct ClockTime {
    int32_t hour, minute;
    bool operator==(const ClockTime&) const = default;
};

int32_t OdczytajCzas(ClockTime& time) {
    if (const int32_t error = Wyslij(kZegarZMinutami)) return error;
    time.hour = BajtOdpowiedzi(7) * 10 + BajtOdpowiedzi(8);
    time.minute = BajtOdpowiedzi(9) * 10 + BajtOdpowiedzi(10);
    return KORAX_E_OK;
}

// Oddity: The clock does not move over midnight. From 23:50 to 0:20 is a move of 1410 minutes back.
int64_t Roznica(int32_t hour, int32_t minute, const ClockTime& now) {
    return (int64_t{hour} * 60 + minute) - (int64_t{now.hour} * 60 + now.minute);
}

}  // namespace

int32_t KORAX_CALL pReadClock(char* Buffer) {
    return Funkcja([&]() -> int32_t {
        if (Buffer == nullptr) return KORAX_E_NULL;
        Buffer[0] = '\0';
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        int32_t type = 0, version = 0;  // the type found at the session start stays in force
        if (const int32_t error = DeviceType(&type, &version)) return error;
        const bool seconds = kTypySiedmiostawkowe.Contains(type);
        if (const int32_t error = Wyslij(seconds ? kZegarZSekundami : kZegarZMinutami)) {
            return error;
        }
        ZapiszZegar(Buffer, seconds ? kCyfrZSekundami : kCyfrZMinutami);
        return KORAX_E_OK;
    });
}

char* KORAX_CALL xReadClock(void) {
    ZapamietajBlad(pReadClock(ZmiennaDodatkowaDlaTypuX));
    return ZmiennaDodatkowaDlaTypuX;
}

int32_t KORAX_CALL ChangeTime(int32_t Hour, int32_t Minute) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function ChangeTime:",
                       {{"1.Hour: ", Hour}, {"2.Minute: ", Minute}});
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        int32_t counter = 0;
        if (const int32_t error = OdczytajLicznikParagonow(counter)) return error;
        if (counter != 0) return KORAX_E_RECEIPTS_PRINTED;
        // Negative values pass; the difference below judges them.
        if (Hour >= 24 || Minute >= 60) return KORAX_E_PARAMETER_N;
        ClockTime before = {}, after = {};
        if (const int32_t error = OdczytajCzas(before)) return error;
        const int64_t difference = Roznica(Hour, Minute, before);
        if (difference == 0) return KORAX_E_CLOCK_NO_DIFFERENCE;
        if (difference > kNajwiecejMinut || difference < -kNajwiecejMinut)
            return KORAX_E_CLOCK_TOO_FAR;
        const auto minutes = static_cast<int32_t>(difference < 0 ? -difference : difference);
        WpiszBajt(1, difference > 0 ? 1 : 0);
        WpiszCyfry(2, minutes);
        if (const int32_t error = Wyslij(kPrzestawienieZegara)) return error;
        // The device refuses a second move of the day silently.
        if (const int32_t error = OdczytajCzas(after)) return error;
        return after == before ? KORAX_E_CLOCK_ONCE_A_DAY : KORAX_E_OK;
    });
}
