// Texts in code page 1250, written in UTF-8 in the source and converted by the compiler.
#pragma once

#include <cstddef>

inline constexpr std::size_t kDlugoscTekstu1250 = 160;

struct LetterCode {
    unsigned unicode;
    unsigned char cp1250;
};
inline constexpr LetterCode kKody1250[] = {
    {0x104, 0xA5}, {0x106, 0xC6}, {0x118, 0xCA}, {0x141, 0xA3}, {0x143, 0xD1}, {0x0D3, 0xD3},
    {0x15A, 0x8C}, {0x179, 0x8F}, {0x17B, 0xAF}, {0x105, 0xB9}, {0x107, 0xE6}, {0x119, 0xEA},
    {0x142, 0xB3}, {0x144, 0xF1}, {0x0F3, 0xF3}, {0x15B, 0x9C}, {0x17A, 0x9F}, {0x17C, 0xBF},
};

void LiteraSpozaStrony1250();  // never defined: reaching it stops the compilation

consteval char ZnakStrony1250(unsigned unicode) {
    for (const LetterCode& kod : kKody1250) {
        if (kod.unicode == unicode) return static_cast<char>(kod.cp1250);
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
