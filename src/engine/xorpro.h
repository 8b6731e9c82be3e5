// XOR check sums over the bytes of an exchange.
#pragma once

#include <cstdint>

// XOR of the start value with bufor[od .. od+ile-1].
uint8_t SumaXORBajtow(const uint8_t* bufor, uint8_t poczatek, uint8_t od, uint8_t ile);
uint8_t SumaXORBajtowDoPoslania(uint8_t poczatek, uint8_t od, uint8_t ile);
uint8_t SumaXORBajtowOdebranych(uint8_t poczatek, uint8_t od, uint8_t ile);
// Holds the sum of ile-1 received bytes from position od against the byte behind them; error 46.
void SprawdzSumeXORBajtowOdebranych(uint8_t poczatek, uint8_t od, uint8_t ile);
