// Decimal text of the describing bytes: a little-endian field of a control sequence.
#pragma once

#include <cstdint>

// Where the conversion leaves its result; overwritten by the next one.
extern char StringZwracanyPrzezFunkcje[256];

// Text of bytes[first..last] (at most eight, lowest first) with `decimals` places behind a point.
const char* NapisZBajtowOpisujacych(const uint8_t* bytes, uint8_t first, uint8_t last,
                                    uint8_t decimals);
const char* NapisZBajtowOpisujacychWKodzieU2(const uint8_t* bytes, uint8_t first, uint8_t last,
                                             uint8_t decimals);
const char* NapisZBajtowOpisujacychOgolnie(const uint8_t* bytes, uint8_t first, uint8_t last,
                                           uint8_t decimals, bool twos_complement);
// Replaces a negative two's complement number by its magnitude; 1 when it was negative, else 0.
int32_t UjemnaLiczbaWKodzieU2(uint8_t* number, uint8_t length);
void ZerowanieBajtowOpisujacych(uint8_t* p);  // a buffer of 100 bytes
