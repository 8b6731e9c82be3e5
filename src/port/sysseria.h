// The engine's view of the port: the transmission settings, and single bytes that report through
// BylTimeout.
#pragma once

#include <cstdint>

extern uint8_t NrPortu;               // COM port number, 1 to 255; default 1
extern int32_t SzybkoscTransmisji;    // baud; default 9600
extern int32_t ParzystoscTransmisji;  // 0 none, 1 odd, 2 even; default 2
extern int32_t TimeoutNadawania;      // seconds for a write; default 3
extern int32_t TimeoutOdbierania;     // seconds for a read; default 3
extern uint8_t
    KontrolowacStanLiniiCTS;  // wish for flow control on CTS; default 1, see InitializePort
extern uint8_t SygnalizowacBledyParzystosci;  // report parity errors; default 1
extern uint8_t BylTimeout;                    // the last byte transfer failed
extern uint8_t LicznikBajtowOdebranych;       // bytes read since the last purge

// The links that carry the line elsewhere; no exported function sets them.
extern uint8_t TransmisjaPrzezModem;         // frames through a modem controller
extern uint8_t TransmisjaPrzezTCP;           // frames over a TCP connection
extern int32_t TimeoutNadawaniaPrzezModem;   // seconds; default 3
extern int32_t TimeoutOdbieraniaPrzezModem;  // seconds; default 3

void PoslijNaPortSzeregowy(uint8_t byte);
uint8_t OdbierzZPortuSzeregowego();

// Takes one answer byte straight from the port, outside a control sequence; a read that fails sets
// NumerBledu to 21. True when a byte came.
bool OdebranoBajtBezposrednio(uint8_t& byte);

bool PortSzeregowyObecny(uint32_t number);
void UstawParzystoscTransmisji();
bool UstawienieStanuLiniiRTS(bool raised);
void UstawSposobKontrolowaniaLiniiCTS();
