#include "koraxdr/print_unit.h"

#include "koraxdr/command.h"

namespace {

constexpr uint8_t kBitBrakuKontroleraB = 0x80;  // status B; the receipt's conditions ask status A

// What the printing unit has in hand. Its description gives these bits no other meaning than what
// is made of them below.
struct PrintState {
    bool document;    // status A, 0x02
    bool characters;  // status B, 0x01
    bool stopped;     // status B, 0x40
};

int32_t SprawdzPapier() {
    uint8_t b = 0;
    if (const int32_t error = OdczytajStatus(kStatusB, b)) return error;
    return b & kBitBrakuPapieru ? KORAX_E_NO_PAPER : KORAX_E_OK;
}

int32_t SprawdzDrukarke() {
    uint8_t b = 0;
    if (const int32_t error = OdczytajStatus(kStatusB, b)) return error;
    if (b & kBitBrakuKontroleraB) return KORAX_E_NO_PRINTER_CONTROLLER;
    if (b & kBitAwarii) return KORAX_E_PRINTER_FAILURE;
    return KORAX_E_OK;
}

int32_t OdczytajStanWydruku(PrintState& state) {
    uint8_t a = 0, b = 0;
    if (const int32_t error = OdczytajStatus(kStatusA, a)) return error;
    if (const int32_t error = OdczytajStatus(kStatusB, b)) return error;
    state = {(a & 0x02) != 0, (b & 0x01) != 0, (b & 0x40) != 0};
    return KORAX_E_OK;
}

}  // namespace

// Oddity: Waiting for the printer has no end. While the printing unit is neither ready nor at fault
// the driver asks again, because a long report prints for minutes; the wait ends when the unit's
// state changes or the link fails.
int32_t SprawdzGotowoscDrukowania(int32_t before_printing) {
    if (const int32_t error = SprawdzPapier()) return error;
    while (true) {
        if (const int32_t error = SprawdzDrukarke()) return error;
        PrintState state = {};
        if (const int32_t error = OdczytajStanWydruku(state)) return error;
        if (!state.document && !state.characters && !state.stopped) return KORAX_E_OK;
        const bool document_alone = state.document && !state.characters && !state.stopped;
        const bool stopped = state.characters && state.stopped;
        if (stopped || (document_alone && before_printing == 1)) return KORAX_E_PRINTOUT_STOPPED;
        const bool printing = state.characters && !state.stopped;
        if (printing || (document_alone && before_printing == 0)) {
            if (const int32_t error = SprawdzPapier()) return error;
        }
    }
}
