#include "port/sysseria.h"

#include "port/exchange_cells.h"
#include "port/portpro.h"
#include "port/sockpro.h"

uint8_t NrPortu = 1;
int32_t SzybkoscTransmisji = 9600;
int32_t ParzystoscTransmisji = 2;
int32_t TimeoutNadawania = 3;
int32_t TimeoutOdbierania = 3;
uint8_t KontrolowacStanLiniiCTS = 1;
uint8_t SygnalizowacBledyParzystosci = 1;
uint8_t ZainicjowanoPortSzeregowy = 0;
uint8_t PozostawiacOtwartyPortSzeregowy = 0;
uint8_t BylTimeout = 0;
uint8_t LicznikBajtowOdebranych = 0;

uint8_t TransmisjaPrzezModem = 0;
uint8_t TransmisjaPrzezTCP = 0;
int32_t TimeoutNadawaniaPrzezModem = 3;
int32_t TimeoutOdbieraniaPrzezModem = 3;

namespace {

bool OtwartoLacze() {
    const auto szybkosc = static_cast<uint32_t>(SzybkoscTransmisji);
    if (TransmisjaPrzezModem) {
        return InitializePort(NrPortu, szybkosc, TimeoutNadawaniaPrzezModem,
                              TimeoutOdbieraniaPrzezModem) == 0;
    }
    if (TransmisjaPrzezTCP) return OtwartoGniazdoTransmisji();
    return InitializePort(NrPortu, szybkosc, TimeoutNadawania, TimeoutOdbierania) == 0;
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

void InicjujKompletniePortSzeregowyDlaNivy() {
    if (SzybkoscTransmisji == 9600) ParzystoscTransmisji = 0;
    if (SzybkoscTransmisji == 19200) ParzystoscTransmisji = 2;
    SygnalizowacBledyParzystosci = 0;
    KontrolowacStanLiniiCTS =
        0;  // kept although it changes nothing on the line, see InitializePort
    InicjujKompletniePortSzeregowy();
}

void CzyscPortSzeregowy() {
    LicznikBajtowOdebranych = 0;
    if (!TransmisjaPrzezTCP) ClearPort();
}

void PoslijNaPortSzeregowy(uint8_t bajt) {
    BylTimeout = WriteByte(bajt) ? 0 : 1;
}

uint8_t OdbierzZPortuSzeregowego() {
    uint8_t bajt = 0;
    BylTimeout = ReadByte(bajt) ? 0 : 1;
    return bajt;
}

bool OdebranoBajtBezposrednio(uint8_t& bajt) {
    bajt = OdbierzZPortuSzeregowego();
    if (BylTimeout) {
        UstawNumerBledu(kBladTimeoutOdbierania);
        return false;
    }
    ++LicznikBajtowOdebranych;
    return true;
}

bool PortSzeregowyObecny(uint32_t numer) {
    return SerialPortPresent(numer);
}

void UstawParzystoscTransmisji() {
    if (ParzystoscTransmisji >= 0 && ParzystoscTransmisji <= 2) {
        ChangeParity(static_cast<uint8_t>(ParzystoscTransmisji));
    }
}

bool UstawienieStanuLiniiRTS(bool podniesiona) {
    return podniesiona ? SetRTSLine() : ClearRTSLine();
}

void UstawSposobKontrolowaniaLiniiCTS() {
    UstawCTS(KontrolowacStanLiniiCTS);
}
