// The device's status and configuration bytes, passed through without a meaning given to them.
#include "koraxdr/frame.h"
#include "koraxdr/send_layout.h"

namespace {

constexpr ControlSequence kOdczytKonfiguracji = {0xDF, 1, 1, 4};
constexpr ControlSequence kZapisKonfiguracji = {0xDE, 1, 4, 1};

}  // namespace

// No pointer is checked here, on purpose.
int32_t KORAX_CALL ReadStatus(int32_t* Status1, int32_t* Status2, int32_t* Status3,
                              int32_t* Status4) {
    return Funkcja([&]() -> int32_t {
        if (const int32_t numer = RozpocznijSesje()) return numer;
        const struct {
            const ControlSequence& sequence;
            int32_t* cell;
        } odczyty[] = {
            {kStatusC, Status1}, {kStatusA, Status2}, {kStatusB, Status3}, {kStatusD, Status4}};
        for (const auto& [sequence, cell] : odczyty) {
            uint8_t bajt = 0;
            if (const int32_t numer = OdczytajStatus(sequence, bajt)) return numer;
            *cell = bajt;
        }
        return blad::kBrak;
    });
}

int32_t KORAX_CALL xReadStatus(int32_t Which) {
    int32_t statusy[4] = {};
    ZapamietajBlad(ReadStatus(&statusy[0], &statusy[1], &statusy[2], &statusy[3]));
    return Which >= 0 && Which < 4 ? statusy[Which] : 0;
}

int32_t KORAX_CALL ReadConfigBytes(int32_t Group, int32_t* Byte1, int32_t* Byte2, int32_t* Byte3) {
    return Funkcja([&]() -> int32_t {
        if (const int32_t numer = RozpocznijSesje()) return numer;
        WpiszBajt(1, Group);
        if (const int32_t numer = Wyslij(kOdczytKonfiguracji)) return numer;
        *Byte1 = BajtOdpowiedzi(1);
        *Byte2 = BajtOdpowiedzi(2);
        *Byte3 = BajtOdpowiedzi(3);
        return blad::kBrak;
    });
}

int32_t KORAX_CALL WriteConfigBytes(uint8_t Group, uint8_t Byte1, uint8_t Byte2, uint8_t Byte3) {
    return Funkcja([&]() -> int32_t {
        if (const int32_t numer = RozpocznijSesje()) return numer;
        WpiszBajt(1, Group);
        WpiszBajt(2, Byte1);
        WpiszBajt(3, Byte2);
        WpiszBajt(4, Byte3);
        return Wyslij(kZapisKonfiguracji);
    });
}

// Tells whether any bit at the position or above is set, not that bit alone, and stores the answer
// as the last error. Both are kept on purpose.
int32_t KORAX_CALL BitZBajtu(uint8_t Value, uint8_t Bit) {
    return ZapamietajBlad((Value >> (Bit % 32)) != 0 ? 1 : 0);
}
