// A serial-to-network device server: the TCP connection that carries the line, and the one that
// programs the server's channel and speed.
#pragma once

#include <cstdint>

// The selector is fixed at 0 and the connections are inert: they report success and move nothing.
// Set to 1 they are real.
extern int32_t WyborSerweraUrzadzen;
extern char AdresSerweraUrzadzen[64];          // numeric address
extern int32_t PortTransmisjiSerweraUrzadzen;  // port that carries the line; default 1001

// The connection that carries the line when TransmisjaPrzezTCP is set.
bool OtwartoGniazdoTransmisji();
bool ZamknietoGniazdoTransmisji();
bool WyslanoPrzezGniazdo(const uint8_t* bytes, uint32_t count);
bool OdebranoPrzezGniazdo(uint8_t& byte);
void OproznijGniazdoTransmisji();  // discards what it holds

// Sends command texts in order, skipping empty ones; each has to be answered with 'A'. A failure
// sets error 65 when none was set before. The programming connection has to be open.
bool TibboWykonalo3Rozkazy(const char* command1, const char* command2, const char* command3);
bool TibboWykonalo2Rozkazy(const char* command1, const char* command2);
bool TibboWykonalo1Rozkaz(const char* command);

// Programs the device server's speed, and its channel when asked.
bool UstawionoSzybkoscLubKanalTibbo(const char* address, int32_t channel, int32_t baud,
                                    bool set_channel);
