// The Nivo model: its special function needs a keyboard on the modem lines.
#include "engine/sysproc.h"
#include "platform/clock.h"
#include "platform/serial.h"
#include "port/portpro.h"
#include "port/sysseria.h"

uint8_t KomunikacjaDlaNivy = 0;
uint8_t WymaganySprzetDoFunkcjiSpecjalnych = 1;
int32_t DlaczegoNiemozliwaFunkcjaSpecjalna = 0;

namespace {

constexpr int32_t kFunkcjaMozliwa = 510;
constexpr int32_t kKlawiaturaZlePodlaczona = 257;
constexpr int32_t kBrakKlawiatury = 256;
constexpr uint32_t kUstalenieLiniiMs = 100;

bool DsrPrzyRts(bool raised) {
    UstawienieStanuLiniiRTS(raised);
    platform::SleepMs(kUstalenieLiniiMs);
    return (ModemStatus() & platform::kLineDsr) != 0;
}

}  // namespace

void WykrywanieHardwareDoFunkcjiSpecjalnejDlaKasyNivo() {
    DlaczegoNiemozliwaFunkcjaSpecjalna = kFunkcjaMozliwa;
    if (WymaganySprzetDoFunkcjiSpecjalnych && !KlawiaturaSpecjalnaJestPrawidlowoPodlaczona()) {
        DlaczegoNiemozliwaFunkcjaSpecjalna =
            WykrytoHardwareKlawiaturySpecjalnej() ? kKlawiaturaZlePodlaczona : kBrakKlawiatury;
    }
    if (DlaczegoNiemozliwaFunkcjaSpecjalna != kFunkcjaMozliwa) {
        UstawNumerBledu(kBladSprzetNivo);
    } else {
        DlaczegoNiemozliwaFunkcjaSpecjalna = 0;
    }
}

// The keyboard answers on DSR what the driver says on RTS.
bool WykrytoHardwareKlawiaturySpecjalnej() {
    const bool with_rts = DsrPrzyRts(true);
    const bool without_rts = DsrPrzyRts(false);
    return with_rts && !without_rts;
}

bool KlawiaturaSpecjalnaJestPrawidlowoPodlaczona() {
    return WykrytoHardwareKlawiaturySpecjalnej() && (ModemStatus() & platform::kLineCarrier) != 0;
}
