#include "port/sysseria.h"

#include "port/exchange_cells.h"
#include "port/portpro.h"

uint8_t NrPortu = 1;
int32_t SzybkoscTransmisji = 9600;
int32_t ParzystoscTransmisji = 2;
int32_t TimeoutNadawania = 3;
int32_t TimeoutOdbierania = 3;
uint8_t KontrolowacStanLiniiCTS = 1;
uint8_t SygnalizowacBledyParzystosci = 1;
uint8_t BylTimeout = 0;
uint8_t LicznikBajtowOdebranych = 0;

uint8_t TransmisjaPrzezModem = 0;
uint8_t TransmisjaPrzezTCP = 0;
int32_t TimeoutNadawaniaPrzezModem = 3;
int32_t TimeoutOdbieraniaPrzezModem = 3;

void PoslijNaPortSzeregowy(uint8_t byte) {
    BylTimeout = WriteByte(byte) ? 0 : 1;
}

uint8_t OdbierzZPortuSzeregowego() {
    uint8_t byte = 0;
    BylTimeout = ReadByte(byte) ? 0 : 1;
    return byte;
}

bool OdebranoBajtBezposrednio(uint8_t& byte) {
    byte = OdbierzZPortuSzeregowego();
    if (BylTimeout) {
        UstawNumerBledu(kBladTimeoutOdbierania);
        return false;
    }
    ++LicznikBajtowOdebranych;
    return true;
}

bool PortSzeregowyObecny(uint32_t number) {
    return SerialPortPresent(number);
}

void UstawParzystoscTransmisji() {
    if (ParzystoscTransmisji >= 0 && ParzystoscTransmisji <= 2) {
        ChangeParity(static_cast<uint8_t>(ParzystoscTransmisji));
    }
}

bool UstawienieStanuLiniiRTS(bool raised) {
    return raised ? SetRTSLine() : ClearRTSLine();
}

void UstawSposobKontrolowaniaLiniiCTS() {
    UstawCTS(KontrolowacStanLiniiCTS);
}
