// XOR check sums over the bytes of an exchange.
#pragma once

#include <cstdint>

// XOR of the start value with bufor[od .. od+ile-1].
uint8_t SumaXORBajtow(const uint8_t* buffer, uint8_t start, uint8_t first, uint8_t count);
uint8_t SumaXORBajtowDoPoslania(uint8_t start, uint8_t first, uint8_t count);
uint8_t SumaXORBajtowOdebranych(uint8_t start, uint8_t first, uint8_t count);
// Holds the sum of ile-1 received bytes from position od against the byte behind them; error 46.
void SprawdzSumeXORBajtowOdebranych(uint8_t start, uint8_t first, uint8_t count);
