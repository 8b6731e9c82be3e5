// Channels: several devices on one line behind a multiplexer, or behind a serial-to-network device
// server that is programmed over a socket.
#pragma once

#include <cstdint>

extern uint8_t NrMultipleksera;  // 0 none, 3 selection by sequence, 4 by raw bytes, other by lines
extern int32_t NrKanalu;         // channel to select, 1 to 4 for line selection; default 1

void PrzelaczNaKanal();  // selects NrKanalu; a failure sets error 52

// By the multiplexer's lines and the port's speed, or on the device server when it is selected.
bool UstawionoKanal(int32_t kanal);
bool UstawionoSzybkosc(int32_t szybkosc);
bool UstawKanalPleko(int32_t kanal);
bool ChangeSpeedPleko(int32_t szybkosc);
bool UstawSzybkoscTransmisji();

// The device server. The selector is fixed at 0 and its socket operations are inert: they report
// success and move nothing. Set to 1 they are real TCP connections.
extern int32_t WyborSerweraUrzadzen;
extern char AdresSerweraUrzadzen[64];          // numeric address
extern int32_t PortTransmisjiSerweraUrzadzen;  // port that carries the line; default 1001

// The connection that carries the line when TransmisjaPrzezTCP is set.
bool OtwartoGniazdoTransmisji();
bool ZamknietoGniazdoTransmisji();
bool WyslanoPrzezGniazdo(const uint8_t* bajty, uint32_t ile);
bool OdebranoPrzezGniazdo(uint8_t& bajt);

// Sends command texts in order, skipping empty ones; each has to be answered with 'A'. A failure
// sets error 65 when none was set before. The programming connection has to be open.
bool TibboWykonalo3Rozkazy(const char* rozkaz1, const char* rozkaz2, const char* rozkaz3);
bool TibboWykonalo2Rozkazy(const char* rozkaz1, const char* rozkaz2);
bool TibboWykonalo1Rozkaz(const char* rozkaz);

// Programs the device server's speed, and its channel when asked.
bool UstawionoSzybkoscLubKanalTibbo(const char* adres, int32_t kanal, int32_t szybkosc,
                                    bool ustawKanal);
