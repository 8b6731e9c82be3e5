#include "port/opening.h"

#include "port/device_server.h"
#include "port/exchange_cells.h"
#include "port/portpro.h"
#include "port/sockpro.h"
#include "port/sysseria.h"

uint8_t ZainicjowanoPortSzeregowy = 0;
uint8_t PozostawiacOtwartyPortSzeregowy = 0;

namespace {

bool OtwartoLacze() {
    const auto baud = static_cast<uint32_t>(SzybkoscTransmisji);
    if (TransmisjaPrzezModem) {
        return InitializePort(NrPortu, baud, TimeoutNadawaniaPrzezModem,
                              TimeoutOdbieraniaPrzezModem) == 0;
    }
    if (TransmisjaPrzezTCP) return OtwartoGniazdoTransmisji();
    return InitializePort(NrPortu, baud, TimeoutNadawania, TimeoutOdbierania) == 0;
}

}  // namespace

void InicjujKompletniePortSzeregowy() {
    if (ZainicjowanoPortSzeregowy && PozostawiacOtwartyPortSzeregowy) return;
    OdinicjujPortSzeregowy();
    UstawSposobKontrolowaniaLiniiCTS();
    ZainicjowanoPortSzeregowy = OtwartoLacze() ? 1 : 0;
    if (WymianaUdana() && ZainicjowanoPortSzeregowy && !TransmisjaPrzezTCP) {
        UstawParzystoscTransmisji();
        PrzelaczNaKanal();
    }
}

void InicjujKompletniePortSzeregowyDlaNivy() {
    if (SzybkoscTransmisji == 9600) ParzystoscTransmisji = 0;
    if (SzybkoscTransmisji == 19200) ParzystoscTransmisji = 2;
    SygnalizowacBledyParzystosci = 0;
    KontrolowacStanLiniiCTS = 0;  // kept although it changes nothing on the line: see OtworzPort
    InicjujKompletniePortSzeregowy();
}

void OdinicjujPortSzeregowy() {
    if (!ZainicjowanoPortSzeregowy || PozostawiacOtwartyPortSzeregowy) return;
    CzyscPortSzeregowy();
    if (TransmisjaPrzezTCP) {
        ZamknietoGniazdoTransmisji();
    } else {
        UnInitializePort();
    }
    ZainicjowanoPortSzeregowy = 0;
}

void UstawieniePozostawiacOtwartyPortSzeregowy(uint8_t flag) {
    PozostawiacOtwartyPortSzeregowy = flag;
    OdinicjujPortSzeregowy();
}

void CzyscPortSzeregowy() {
    LicznikBajtowOdebranych = 0;
    if (TransmisjaPrzezTCP) {
        OproznijGniazdoTransmisji();
    } else {
        ClearPort();
    }
}
