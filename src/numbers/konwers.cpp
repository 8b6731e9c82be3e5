#include "numbers/konwers.h"

#include <cstring>

int32_t f_konwersja = 0;
uint8_t j_mod10 = 0;

namespace {

constexpr int kSzerokosc = 8;  // bytes of a work number
constexpr int kPozycji = 19;   // digit positions of a result: values below 10^19

uint8_t LiczbaRobocza[kSzerokosc];
char WynikDziesietny[kPozycji + 1] = "0000000000000000000";

}  // namespace

void bajty(uint8_t* dst, uint32_t value) {
    for (uint8_t n = 1; n <= 4; ++n) dst[n] = BajtZLiczby(n, value);
}

uint8_t BajtZLiczby(uint8_t n, uint32_t value) {
    if (n < 1 || n > 4) return 0;
    return static_cast<uint8_t>(value >> (8 * (n - 1)));
}

void mem_cls(uint8_t* p, uint8_t c, int n) {
    std::memset(p, c, static_cast<size_t>(n));
}

void mem_cpy(uint8_t* dst, const uint8_t* src, int n) {
    for (int i = 0; i < n; ++i) dst[i] = src[i];
}

uint8_t czy_zero(const uint8_t* p, int n) {
    uint8_t any = 0;
    for (int i = 0; i < n; ++i) any |= p[i];
    return any;
}

void mul2(uint8_t* p, int n) {
    int carry = 0;
    for (int i = 0; i < n; ++i) {
        const int doubled = p[i] * 2 + carry;
        p[i] = static_cast<uint8_t>(doubled);
        carry = doubled >> 8;
    }
    if (carry != 0) f_konwersja = kKonwersjaNadmiar;
}

void div2(uint8_t* p, int n) {
    int carry = 0;
    for (int i = n - 1; i >= 0; --i) {
        const int whole = p[i] + 256 * carry;
        p[i] = static_cast<uint8_t>(whole / 2);
        carry = whole % 2;
    }
}

void add(uint8_t* p, const uint8_t* q, uint8_t carry, int n) {
    int rest = carry;
    for (int i = 0; i < n; ++i) {
        const int sum = p[i] + q[i] + rest;
        p[i] = static_cast<uint8_t>(sum);
        rest = sum >> 8;
    }
    if (rest != 0) f_konwersja = kKonwersjaNadmiar;
}

uint8_t cmp(const uint8_t* a, const uint8_t* b, uint8_t* diff, int n) {
    int borrow = 0;
    for (int i = 0; i < n; ++i) {
        const int rest = a[i] - b[i] - borrow;
        diff[i] = static_cast<uint8_t>(rest);
        borrow = rest < 0 ? 1 : 0;
    }
    return static_cast<uint8_t>(borrow);
}

void inc(uint8_t* p, int n) {
    for (int i = 0; i < n; ++i) {
        if (++p[i] != 0) return;
    }
}

int get_msb(const uint8_t* p, int n) {
    for (int bit = 8 * n - 1; bit >= 0; --bit) {
        if ((p[bit / 8] >> (bit % 8)) & 1) return bit;
    }
    return -1;
}

void mul10(uint8_t* p, uint8_t digit) {
    mul2(p, kSzerokosc);
    if (f_konwersja == kKonwersjaNadmiar) return;
    // The copy goes to the work number also when p is the work number itself: see atob.
    mem_cpy(LiczbaRobocza, p, kSzerokosc);
    for (int times = 0; times < 2; ++times) {
        mul2(p, kSzerokosc);
        if (f_konwersja == kKonwersjaNadmiar) return;
    }
    add(p, LiczbaRobocza, digit, kSzerokosc);
}

void div10(uint8_t* p) {
    // Long division, a byte at a time from the top.
    int rest = 0;
    for (int i = kSzerokosc - 1; i >= 0; --i) {
        const int part = rest * 256 + p[i];
        p[i] = static_cast<uint8_t>(part / 10);
        rest = part % 10;
    }
    j_mod10 = static_cast<uint8_t>(rest);
}

void ZerowanieLiczbyOsmiobajtowej(uint8_t* p) {
    mem_cls(p, 0, 8);
}

void ZerowanieLiczbySzesciobajtowej(uint8_t* p) {
    mem_cls(p, 0, 6);
}

// Oddity: atob reads "12" as 18. mul10 saves its copy in the very number that it multiplies here, so
// that each step gives p x 16 + digit. Nothing that is sent to a device is read this way.
uint8_t* atob(const char* text) {
    ZerowanieLiczbyOsmiobajtowej(LiczbaRobocza);
    f_konwersja = 0;
    for (; *text != '\0' && f_konwersja == 0; ++text) {
        if (*text == ' ') continue;
        if (*text < '0' || *text > '9') {
            f_konwersja = kKonwersjaZlyZnak;
        } else {
            mul10(LiczbaRobocza, static_cast<uint8_t>(*text - '0'));
        }
    }
    return LiczbaRobocza;
}

const char* btoa(const uint8_t* number8) {
    std::memset(WynikDziesietny, '0', kPozycji);
    mem_cpy(LiczbaRobocza, number8, kSzerokosc);
    int first = kPozycji;
    // Nineteen positions: the digits above them are outside the range of these numbers.
    while (czy_zero(LiczbaRobocza, kSzerokosc) != 0 && first > 0) {
        div10(LiczbaRobocza);
        WynikDziesietny[--first] = static_cast<char>('0' + j_mod10);
    }
    return &WynikDziesietny[first == kPozycji ? kPozycji - 1 : first];
}

void KonwersjaLiczbyOsmiobajtowejNaString(const uint8_t* number8, char* out) {
    std::strcpy(out, btoa(number8));
}

void KonwersjaLiczbySzesciobajtowejNaString(const uint8_t* number6, char* out) {
    uint8_t wide[kSzerokosc] = {};
    mem_cpy(wide, number6, 6);
    std::strcpy(out, btoa(wide));
}
