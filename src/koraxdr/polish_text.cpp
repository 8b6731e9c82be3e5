#include "koraxdr/polish_text.h"

#include "koraxdr/frame.h"

namespace {

constexpr int32_t kStrona852 = 0;
constexpr int32_t kStrona1250 = 1;
constexpr int32_t kMazovia = 2;

// The Polish letters: nine capitals, then the nine small ones in the same order.
struct PolishLetter {
    uint8_t cp1250, cp852, mazovia;
};
constexpr int kLiter = 18;
constexpr int kWielkichLiter = 9;
constexpr PolishLetter kLitery[kLiter] = {
    {0xA5, 0xA4, 0x8F},  // Ą
    {0xC6, 0x8F, 0x95},  // Ć
    {0xCA, 0xA8, 0x90},  // Ę
    {0xA3, 0x9D, 0x9C},  // Ł
    {0xD1, 0xE3, 0xA5},  // Ń
    {0xD3, 0xE0, 0xA3},  // Ó
    {0x8C, 0x97, 0x98},  // Ś
    {0x8F, 0x8D, 0xA0},  // Ź
    {0xAF, 0xBD, 0xA1},  // Ż
    {0xB9, 0xA5, 0x86},  // ą
    {0xE6, 0x86, 0x8D},  // ć
    {0xEA, 0xA9, 0x91},  // ę
    {0xB3, 0x88, 0x92},  // ł
    {0xF1, 0xE4, 0xA4},  // ń
    {0xF3, 0xA2, 0xA2},  // ó
    {0x9C, 0x98, 0x9E},  // ś
    {0x9F, 0xAB, 0xA6},  // ź
    {0xBF, 0xBE, 0xA7},  // ż
};

int NumerLitery(uint8_t znak) {
    for (int i = 0; i < kLiter; ++i) {
        if (kLitery[i].cp1250 == znak) return i;
    }
    return -1;
}

bool ZnanaStrona() {
    return CodePage1250 >= kStrona852 && CodePage1250 <= kMazovia;
}

uint8_t ZnakStrony(const PolishLetter& litera) {
    return CodePage1250 == kMazovia ? litera.mazovia : litera.cp852;
}

uint8_t WielkaLiteraLacinska(uint8_t znak) {
    return znak >= 'a' && znak <= 'z' ? static_cast<uint8_t>(znak - 'a' + 'A') : znak;
}

// Stores what a conversion gave as the last error, on purpose; a mode that gives no character
// leaves the last error alone.
int32_t ZapamietajZnak(int32_t wynik) {
    if (ZnanaStrona()) ErrorLastError = static_cast<uint32_t>(wynik);
    return wynik;
}

}  // namespace

int32_t ZnakDlaUrzadzenia(uint8_t znak) {
    if (!ZnanaStrona()) return CodePage1250;
    if (CodePage1250 == kStrona1250) return znak;
    const int litera = NumerLitery(znak);
    return litera < 0 ? znak : ZnakStrony(kLitery[litera]);
}

// In code page 1250 the Polish letters keep their case: only the letters a to z are raised.
int32_t WielkiZnakDlaUrzadzenia(uint8_t znak) {
    if (!ZnanaStrona()) return CodePage1250;
    if (CodePage1250 == kStrona1250) return WielkaLiteraLacinska(znak);
    const int litera = NumerLitery(znak);
    if (litera < 0) return WielkaLiteraLacinska(znak);
    return ZnakStrony(kLitery[litera % kWielkichLiter]);
}

bool PolskaLiteraWStronie852(uint8_t znak) {
    for (const PolishLetter& litera : kLitery) {
        if (litera.cp852 == znak) return true;
    }
    return false;
}

CodePage852::CodePage852() : saved_(CodePage1250) {
    CodePage1250 = kStrona852;
}
CodePage852::~CodePage852() {
    CodePage1250 = saved_;
}

int32_t KORAX_CALL NaLatin2(uint8_t Character) {
    return ZapamietajZnak(ZnakDlaUrzadzenia(Character));
}

int32_t KORAX_CALL NaLatin2AndUpper(uint8_t Character) {
    return ZapamietajZnak(WielkiZnakDlaUrzadzenia(Character));
}

// Always against code page 852, whatever the device's. The answer replaces the last error, on
// purpose.
int32_t KORAX_CALL InZnakiPolskie(uint8_t Character) {
    return ZapamietajBlad(PolskaLiteraWStronie852(Character) ? 1 : 0);
}
