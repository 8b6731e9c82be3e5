// Texts in code page 1250, written in UTF-8 in the source and converted by the compiler.
#pragma once

#include <cstddef>

#include "koraxdr/polish_letters.h"

inline constexpr std::size_t kDlugoscTekstu1250 = 160;

void LiteraSpozaStrony1250();  // never defined: reaching it stops the compilation

consteval char ZnakStrony1250(unsigned unicode) {
    for (const PolishLetter& letter : kPolskieLitery) {
        if (letter.unicode == unicode) return static_cast<char>(letter.cp1250);
    }
    LiteraSpozaStrony1250();
    return '?';
}

struct Text1250 {
    char bytes[kDlugoscTekstu1250] = {};

    template <std::size_t N>
    consteval Text1250(const char (&utf8)[N]) {
        std::size_t to = 0;
        for (std::size_t i = 0; i + 1 < N;) {
            const auto lead = static_cast<unsigned char>(utf8[i++]);
            if (lead < 0x80) {
                bytes[to++] = static_cast<char>(lead);
            } else {
                const unsigned tail = static_cast<unsigned char>(utf8[i++]) & 0x3Fu;
                bytes[to++] = ZnakStrony1250((lead & 0x1Fu) << 6 | tail);
            }
        }
        bytes[to] = '\0';
    }
};
