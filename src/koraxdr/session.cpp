#include "koraxdr/session.h"

#include "engine/sysproc.h"
#include "koraxdr/command.h"
#include "koraxdr/device.h"
#include "koraxdr/print_unit.h"
#include "koraxdr/state.h"
#include "port/opening.h"
#include "port/sysseria.h"
#include "trace/line_trace.h"

namespace {

// The open receipt's flags are left alone: the receipt's own functions settle them with the device.
void WyczyscStanParagonu() {
    for (int i = 1; i <= kStawek; ++i) Total[i] = 0;
    for (int i = 1; i <= kPlatnosci; ++i) Payments[i] = {};
    for (int i = 1; i <= kLiniiDodatkowych; ++i) AdditionalLines[i] = {};
    for (int i = 1; i <= kPozycjiKontrolnych; ++i) Control[i] = {};
    CP1 = {};
    CP2 = {};
}

int32_t OtworzPortSesji(uint8_t port) {
    Urzadzenie = kInneUrzadzenie;
    KontrolowacStanLiniiCTS = 1;
    return OtworzPort(port, SzybkTrans, Timeouty, Timeouty);
}

// The cancellation voids what the device still has open. One that has nothing open refuses it and
// is identified all the same, without the print check.
int32_t UniewaznijIRozpoznaj() {
    const int32_t cancellation = Wyslij(kAnulowanieParagonu);
    const bool refused =
        cancellation == KORAX_E_UNEXPECTED_ANSWER || cancellation == KORAX_E_REFUSED;
    if (cancellation != 0 && !refused) return cancellation;
    if (cancellation == 0) {
        if (const int32_t error = SprawdzGotowoscDrukowania(0)) return error;
    }
    return RozpoznajUrzadzenie();
}

}  // namespace

int32_t OtworzPort(uint8_t port, int32_t baud, int32_t write_timeout_s, int32_t read_timeout_s) {
    NrPortu = port;
    SzybkoscTransmisji = baud;
    TimeoutNadawania = write_timeout_s;
    TimeoutOdbierania = read_timeout_s;
    UstalZapisLinii();
    UstawNumerBledu(0);  // the outcome of an older exchange is none of the opening's
    InicjujKompletniePortSzeregowy();
    return ZainicjowanoPortSzeregowy ? KORAX_E_OK : KORAX_E_PORT;
}

int32_t ZacznijSesje(uint8_t port, bool identify) {
    // Oddity: The port in force is tested, not the new one. A function that starts a session by
    // itself after CommunicationEnd opens port 0, fails, and from then on says that no port number
    // is set, until CommunicationInit or OpenPort names one.
    if (NrPortu == 0) return KORAX_E_NO_PORT_NUMBER;
    KomunikacjaInit = 0;
    WyczyscStanParagonu();
    int32_t error = OtworzPortSesji(port);
    if (error == 0 && identify) error = UniewaznijIRozpoznaj();
    if (error != 0) {
        ZakonczSesje();
    } else {
        KomunikacjaInit = 1;
    }
    return error;
}

void ZakonczSesje() {
    Optimize = 0;
    Urzadzenie = kInneUrzadzenie;
    CzyscPortSzeregowy();
    OdinicjujPortSzeregowy();
    KomunikacjaInit = 0;
    NumerPortuDrukarki = 0;
}

int32_t RozpocznijSesje() {
    if (KomunikacjaInit) return KORAX_E_OK;
    return ZacznijSesje(static_cast<uint8_t>(NumerPortuDrukarki), true);
}

int32_t RozpocznijSesjePozaParagonem() {
    if (const int32_t error = RozpocznijSesje()) return error;
    return ParagonRozpoczety ? KORAX_E_RECEIPT_OPEN : KORAX_E_OK;
}
