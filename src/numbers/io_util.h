// Decimal text of 32-bit integers.
#pragma once

#include <cstdint>

// Writes `value` in decimal with at least min_digits digits (leading zeros; 10 or more prints all
// ten). Kind 'i' reads the value as signed, any other as unsigned. `out` takes 12 bytes.
char* NumToStr(uint32_t value, char* out, uint32_t min_digits, char kind);
char* IntToStr(uint32_t value, char* out, uint32_t min_digits);
void UlToStr(uint32_t value, char* out, uint32_t min_digits);
