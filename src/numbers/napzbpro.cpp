#include "numbers/napzbpro.h"

#include <algorithm>
#include <cstring>

#include "numbers/konwers.h"

char StringZwracanyPrzezFunkcje[256] = "";

const char* NapisZBajtowOpisujacych(const uint8_t* bytes, uint8_t first, uint8_t last,
                                    uint8_t decimals) {
    return NapisZBajtowOpisujacychOgolnie(bytes, first, last, decimals, false);
}

const char* NapisZBajtowOpisujacychWKodzieU2(const uint8_t* bytes, uint8_t first, uint8_t last,
                                             uint8_t decimals) {
    return NapisZBajtowOpisujacychOgolnie(bytes, first, last, decimals, true);
}

const char* NapisZBajtowOpisujacychOgolnie(const uint8_t* bytes, uint8_t first, uint8_t last,
                                           uint8_t decimals, bool twos_complement) {
    uint8_t number[8] = {};
    const int length = std::clamp(last - first + 1, 0, 8);
    mem_cpy(number, bytes + first, length);
    bool negative =
        twos_complement && UjemnaLiczbaWKodzieU2(number, static_cast<uint8_t>(length)) != 0;

    const char* digits = btoa(number);
    if (std::strcmp(digits, "0") == 0) negative = false;

    // Sign, at least one digit before the point, `decimals` digits behind it. The longest number of
    // decimals would pass the result's end; what does not fit there is cut.
    char text[1 + 1 + 255 + 1 + 19 + 1];
    char* end = text;
    if (negative) *end++ = '-';
    const int count = static_cast<int>(std::strlen(digits));
    const int total = decimals > 0 ? std::max(count, decimals + 1) : count;
    for (int i = 0; i < total; ++i) {
        if (decimals > 0 && i == total - decimals) *end++ = '.';
        *end++ = i < total - count ? '0' : digits[i - (total - count)];
    }
    *end = '\0';

    const size_t kept =
        std::min(static_cast<size_t>(end - text), sizeof StringZwracanyPrzezFunkcje - 1);
    std::memcpy(StringZwracanyPrzezFunkcje, text, kept);
    StringZwracanyPrzezFunkcje[kept] = '\0';
    return StringZwracanyPrzezFunkcje;
}

int32_t UjemnaLiczbaWKodzieU2(uint8_t* number, uint8_t length) {
    if (length == 0 || (number[length - 1] & 0x80) == 0) return 0;
    // The magnitude of a negative number: one less, then every bit turned.
    for (int i = 0; i < length && number[i]-- == 0; ++i) {
    }
    for (int i = 0; i < length; ++i) number[i] = static_cast<uint8_t>(~number[i]);
    return 1;
}

void ZerowanieBajtowOpisujacych(uint8_t* p) {
    mem_cls(p, 0, 100);
}
