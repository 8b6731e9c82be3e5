#include "port/sockpro.h"

#include <initializer_list>

#include "platform/clock.h"
#include "port/device_server.h"
#include "port/exchange_cells.h"
#include "port/portpro.h"
#include "port/sysseria.h"
#include "port/upward.h"

uint8_t NrMultipleksera = 0;
int32_t NrKanalu = 1;

namespace {

constexpr uint8_t kMultiplekserBrak = 0;
constexpr uint8_t kMultiplekserSekwencja = 3;
constexpr uint8_t kMultiplekserBajty = 4;

constexpr int32_t kSzybkoscWyboru = 9600;   // baud at which the multiplexer takes the sequence
constexpr uint8_t kRozkazWyboruKanalu = 1;  // control sequence 0x01: one data byte, no answer
constexpr uint8_t kZnakWyboruKanalu = 0xFE;

// Lines of a channel, in the order in which they are changed.
struct ChannelLines {
    int32_t channel;
    bool dtr, rts;
};
constexpr ChannelLines kLinieKanalow[] = {
    {1, false, true}, {2, true, true}, {3, false, false}, {4, true, false}};

// A time-out of an earlier transfer is none of this wait's.
bool NadajnikOprozniony() {
    BylTimeout = 0;
    OczekiwanieNaOproznienieNadajnikaPortuSzeregowego();
    return !BylTimeout;
}

void ZresetujTavloa() {
    if (TavloJestObecny()) ZresetowanoTavloa(SzybkoscTransmisji, 1);
}

// Oddity: A failed channel selection leaves RTS raised. After a time-out before or after the
// sequence (52) nobody knows what the multiplexer has taken, and it is not told to end. When the
// sequence itself fails, the line is put back and the sequence's own error stands.
// The data of a sequence that is waiting for the port meanwhile (the server's RESUME opens it) keep
// their place.
void WybierzKanalSekwencja() {
    if (!NadajnikOprozniony()) return UstawNumerBledu(kBladKanal);
    const int32_t baud = SzybkoscTransmisji;
    ChangeSpeedPleko(kSzybkoscWyboru);
    SetRTSLine();
    const uint8_t kept = BajtyDoPoslania[1];
    BajtyDoPoslania[1] = static_cast<uint8_t>(NrKanalu);
    PoslanieSekwencjiSterujacej(kRozkazWyboruKanalu, 0, 1, 0);
    BajtyDoPoslania[1] = kept;
    if (WymianaUdana() && !NadajnikOprozniony()) return UstawNumerBledu(kBladKanal);
    ClearRTSLine();
    ChangeSpeedPleko(baud);
    ZresetujTavloa();
}

void WybierzKanalBajtami() {
    if (!NadajnikOprozniony()) return UstawNumerBledu(kBladKanal);
    SetRTSLine();
    for (const uint8_t byte : {kZnakWyboruKanalu, static_cast<uint8_t>(NrKanalu)}) {
        PoslijNaPortSzeregowy(byte);
        if (BylTimeout) return UstawNumerBledu(kBladKanal);
    }
    if (!NadajnikOprozniony()) return UstawNumerBledu(kBladKanal);
    ClearRTSLine();
    ZresetujTavloa();
}

}  // namespace

void PrzelaczNaKanal() {
    switch (NrMultipleksera) {
        case kMultiplekserBrak:
            UstawionoKanal(0);  // no such channel: nothing but the wait
            return;
        case kMultiplekserSekwencja:
            return WybierzKanalSekwencja();
        case kMultiplekserBajty:
            return WybierzKanalBajtami();
        default:
            UstawionoKanal(NrKanalu);
    }
}

bool UstawionoKanal(int32_t channel) {
    if (WyborSerweraUrzadzen == 0) return UstawKanalPleko(channel);
    return UstawionoSzybkoscLubKanalTibbo(AdresSerweraUrzadzen, channel, SzybkoscTransmisji, true);
}

bool UstawionoSzybkosc(int32_t baud) {
    if (WyborSerweraUrzadzen == 0) return ChangeSpeedPleko(baud);
    return UstawionoSzybkoscLubKanalTibbo(AdresSerweraUrzadzen, NrKanalu, baud, false);
}

bool UstawKanalPleko(int32_t channel) {
    bool done = false;
    for (const ChannelLines& lines : kLinieKanalow) {
        if (lines.channel != channel) continue;
        const bool dtr = lines.dtr ? SetDTRLine() : ClearDTRLine();
        const bool rts = lines.rts ? SetRTSLine() : ClearRTSLine();
        done = dtr && rts;
    }
    platform::PauseMs(1);
    return done;
}

bool ChangeSpeedPleko(int32_t baud) {
    TablicaPortow[PortSelector].baud = static_cast<uint32_t>(baud);
    if (SetSerialParameters() != 0) return false;
    platform::PauseMs(10);
    return true;
}

bool UstawSzybkoscTransmisji() {
    return UstawionoSzybkosc(SzybkoscTransmisji);
}
