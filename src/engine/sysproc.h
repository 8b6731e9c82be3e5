// The transmission engine: one control sequence out and the device's answer back. The outcome is in
// NumerBledu, the answer in BajtyOdebrane.
#pragma once

#include <cstdint>

#include "port/exchange_cells.h"

// Details of the device's type, filled by its identification.
struct DeviceTypeDetails {
    uint8_t type_code = 0;  // the model code that the device gave
};

extern uint8_t BajtyDoPoslania1[kRozmiarBuforaWymiany];  // copy for the block write, from index 0
extern uint8_t BajtOdmowy;  // with which the device refused the last exchange; 0 = it did not
extern uint8_t WTrakcieSekwencjiSterujacej;  // an exchange is going on
extern uint8_t TransmisjaPrzezTavloa;        // link through the communication component
extern int32_t Optimize;                     // data bytes leave in one block write
extern DeviceTypeDetails SzczegoloweDaneOTypieUrzadzenia;

extern uint8_t KomunikacjaDlaNivy;                  // the device needs the special keyboard
extern uint8_t WymaganySprzetDoFunkcjiSpecjalnych;  // default 1
extern int32_t DlaczegoNiemozliwaFunkcjaSpecjalna;  // 0 possible, 256 not connected, 257 badly

extern uint8_t RetransmitowacSekwencjeSterujaca;  // repeat after a receive time-out; default 0
extern uint8_t PierwszaSekwencjaSterujaca;        // the next exchange is the first one
extern uint32_t LicznikPoslanychSekwencjiSterujacych;
extern uint32_t CoIleSygnalizowacLicznikPoslanychSekwencji;  // report every N exchanges; 0 never
extern uint8_t FunkcjaWStanieUspienia;                       // the server has suspended the driver
extern uint8_t DebugowacDzialanieFunkcji;                    // trace the server's commands
extern char NazwaFunkcji[64];                                // running function, for the trace
extern uint32_t LicznikOdczytanychLiniiZPlikuWejsciowego;
extern uint32_t LicznikZapisanychLiniiDoPlikuWyjsciowego;

enum ExchangeMode : uint32_t {
    kTrybZwykly = 0,
    kTrybProstePotwierdzenie = 1,  // a bad acknowledgement gives only 24 or 23
    kTrybKontynuacja = 2,          // no purge, no Esc and command; as 1 from the acknowledgement on
};

// One exchange with the repeats that the settings allow (none by default).
//   command        command byte after Esc
//   ack_length     bytes answered right after it: 0, or the acknowledgement and k-1 more
//   data_length    bytes sent from BajtyDoPoslania[1]
//   answer_length  bytes answered after the data, the status byte first (used as a byte)
// Answer bytes land in BajtyOdebrane from index 1; the byte that opens each phase is overwritten
// there by the second one.
void PoslanieSekwencjiSterujacej(uint8_t command, uint8_t ack_length, uint8_t data_length,
                                 int32_t answer_length);

// Serves the controlling server's commands, then makes one exchange.
void PoslanieSekwencjiSterujacejBezRetransmisji(uint8_t command, uint8_t ack_length,
                                                uint8_t data_length, int32_t answer_length);

// The exchange itself, one attempt.
void OgolnePoslanieSekwencjiSterujacej(uint32_t mode, uint8_t command, uint8_t ack_length,
                                       uint8_t data_length, uint8_t answer_length);

bool PoslanoCiagBajtow(uint8_t count);  // BajtyDoPoslania[1..count]; one block when Optimize is set
void PoslijBajtUwzgledniajacModem(uint8_t byte);
uint8_t OdbierzBajtUwzgledniajacModem();

uint8_t Moje_fmod(uint8_t a, uint8_t b);  // 0 for b = 0
void Moje_delay(uint32_t ms);
bool KasaWegierska();
void ZablokujPrzerwania();
void OdblokujPrzerwania();

void WykrywanieHardwareDoFunkcjiSpecjalnejDlaKasyNivo();
bool WykrytoHardwareKlawiaturySpecjalnej();
bool KlawiaturaSpecjalnaJestPrawidlowoPodlaczona();
