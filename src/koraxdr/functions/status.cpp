// The device's status and configuration bytes, passed through without a meaning given to them.
#include "koraxdr/command.h"
#include "koraxdr/frame.h"
#include "koraxdr/send_layout.h"
#include "koraxdr/session.h"

namespace {}  // namespace

// Oddity: Cells of status and configuration are not checked. A null one is written to.
int32_t KORAX_CALL ReadStatus(int32_t* Status1, int32_t* Status2, int32_t* Status3,
                              int32_t* Status4) {
    return Funkcja([&]() -> int32_t {
        if (const int32_t error = RozpocznijSesje()) return error;
        const struct {
            const ControlSequence& sequence;
            int32_t* cell;
        } readings[] = {
            {kStatusC, Status1}, {kStatusA, Status2}, {kStatusB, Status3}, {kStatusD, Status4}};
        for (const auto& [sequence, cell] : readings) {
            uint8_t byte = 0;
            if (const int32_t error = OdczytajStatus(sequence, byte)) return error;
            *cell = byte;
        }
        return KORAX_E_OK;
    });
}

int32_t KORAX_CALL xReadStatus(int32_t Which) {
    int32_t statuses[4] = {};
    ZapamietajBlad(ReadStatus(&statuses[0], &statuses[1], &statuses[2], &statuses[3]));
    return Which >= 0 && Which < 4 ? statuses[Which] : 0;
}

int32_t KORAX_CALL ReadConfigBytes(int32_t Group, int32_t* Byte1, int32_t* Byte2, int32_t* Byte3) {
    return Funkcja([&]() -> int32_t {
        if (const int32_t error = RozpocznijSesje()) return error;
        WpiszBajt(1, Group);
        if (const int32_t error = Wyslij(kOdczytKonfiguracji)) return error;
        *Byte1 = BajtOdpowiedzi(1);
        *Byte2 = BajtOdpowiedzi(2);
        *Byte3 = BajtOdpowiedzi(3);
        return KORAX_E_OK;
    });
}

int32_t KORAX_CALL WriteConfigBytes(uint8_t Group, uint8_t Byte1, uint8_t Byte2, uint8_t Byte3) {
    return Funkcja([&]() -> int32_t {
        if (const int32_t error = RozpocznijSesje()) return error;
        WpiszBajt(1, Group);
        WpiszBajt(2, Byte1);
        WpiszBajt(3, Byte2);
        WpiszBajt(4, Byte3);
        return Wyslij(kZapisKonfiguracji);
    });
}

// Oddity: BitZBajtu looks at all bits from the position on. Its answer becomes the last error, too.
int32_t KORAX_CALL BitZBajtu(uint8_t Value, uint8_t Bit) {
    return ZapamietajBlad((Value >> (Bit % 32)) != 0 ? 1 : 0);
}
