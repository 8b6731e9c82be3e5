// The device's clock: read as text, moved by at most an hour.
#include <cstddef>

#include "koraxdr/device_types.h"
#include "koraxdr/frame.h"
#include "koraxdr/send_layout.h"
#include "numbers/io_util.h"

namespace {

constexpr ControlSequence kZegarZMinutami = {0x35, 11};
constexpr ControlSequence kZegarZSekundami = {0x40, 13};
constexpr ControlSequence kPrzestawienieZegara = {0x36, 1, 3};

constexpr int kCyfrZMinutami = 10;
constexpr int kCyfrZSekundami = 12;
constexpr std::size_t kNajdluzszyZapis = 17;  // characters of "dd.dd.dd;hh:mm:ss"

constexpr int64_t kNajwiecejMinut = 60;

// Two digits and what stands behind them; a digit byte above 9 takes more places, within the limit.
void ZapiszZegar(char* bufor, int cyfr) {
    constexpr char separatory[] = {'.', '.', ';', ':', ':'};
    std::size_t used = 0;
    const auto dopisz = [&](char znak) {
        if (used < kNajdluzszyZapis) bufor[used++] = znak;
    };
    for (int i = 1; i <= cyfr; ++i) {
        char cyfra[12];
        for (const char* znak = IntToStr(BajtOdpowiedzi(i), cyfra, 0); *znak != '\0'; ++znak) {
            dopisz(*znak);
        }
        if (i % 2 == 0 && i < cyfr) dopisz(separatory[i / 2 - 1]);
    }
    bufor[used] = '\0';
}

struct ClockTime {
    int32_t hour, minute;
    bool operator==(const ClockTime&) const = default;
};

int32_t OdczytajCzas(ClockTime& czas) {
    if (const int32_t numer = Wyslij(kZegarZMinutami)) return numer;
    czas.hour = BajtOdpowiedzi(7) * 10 + BajtOdpowiedzi(8);
    czas.minute = BajtOdpowiedzi(9) * 10 + BajtOdpowiedzi(10);
    return blad::kBrak;
}

// The day's boundary is not wrapped, on purpose: from 23:50 to 0:20 is a move of 1410 minutes back.
int64_t Roznica(int32_t godzina, int32_t minuta, const ClockTime& teraz) {
    return (int64_t{godzina} * 60 + minuta) - (int64_t{teraz.hour} * 60 + teraz.minute);
}

}  // namespace

int32_t KORAX_CALL pReadClock(char* Buffer) {
    return Funkcja([&]() -> int32_t {
        if (Buffer == nullptr) return blad::kPustyBufor;
        Buffer[0] = '\0';
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        int32_t typ = 0, wersja = 0;  // the type found at the session start stays in force
        if (const int32_t numer = DeviceType(&typ, &wersja)) return numer;
        const bool sekundy = kTypySiedmiostawkowe.Contains(typ);
        if (const int32_t numer = Wyslij(sekundy ? kZegarZSekundami : kZegarZMinutami)) {
            return numer;
        }
        ZapiszZegar(Buffer, sekundy ? kCyfrZSekundami : kCyfrZMinutami);
        return blad::kBrak;
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
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        int32_t licznik = 0;
        if (const int32_t numer = ReceiptNumber(&licznik)) return numer;
        if (licznik != 0) return blad::kNiezerowyLicznik;
        // Negative values pass on purpose; the difference below judges them.
        if (Hour >= 24 || Minute >= 60) return blad::kParametrN;
        ClockTime przed = {}, po = {};
        if (const int32_t numer = OdczytajCzas(przed)) return numer;
        const int64_t roznica = Roznica(Hour, Minute, przed);
        if (roznica == 0) return blad::kZegarOZero;
        if (roznica > kNajwiecejMinut || roznica < -kNajwiecejMinut) return blad::kZegarOZaDuzo;
        const auto minut = static_cast<int32_t>(roznica < 0 ? -roznica : roznica);
        WpiszBajt(1, roznica > 0 ? 1 : 0);
        WpiszCyfry(2, minut);
        if (const int32_t numer = Wyslij(kPrzestawienieZegara)) return numer;
        // The device refuses a second move of the day silently.
        if (const int32_t numer = OdczytajCzas(po)) return numer;
        return po == przed ? blad::kZegarRazNaDobe : blad::kBrak;
    });
}
