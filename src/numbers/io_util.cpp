#include "numbers/io_util.h"

char* NumToStr(uint32_t value, char* out, uint32_t min_digits, char kind) {
    char* end = out;
    if (value == 0 && min_digits == 0) {
        *end++ = '0';
        *end = '\0';
        return out;
    }
    if (kind == 'i' && (value & 0x80000000u) != 0) {
        *end++ = '-';
        value = 0u - value;
    }
    bool started = false;
    uint32_t weight = 1000000000u;
    for (uint32_t position = 0; position < 10; ++position, weight /= 10) {
        const uint32_t digit = value / weight % 10;
        started = started || digit != 0 || position + min_digits > 9 || min_digits > 9;
        if (started) *end++ = static_cast<char>('0' + digit);
    }
    *end = '\0';
    return out;
}

char* IntToStr(uint32_t value, char* out, uint32_t min_digits) {
    return NumToStr(value, out, min_digits, 'i');
}

void UlToStr(uint32_t value, char* out, uint32_t min_digits) {
    NumToStr(value, out, min_digits, 'u');
}
