// Multi-byte numbers: arrays of bytes, least significant first, and their decimal text.
// Results returned by pointer live in static storage until the next call.
#pragma once

#include <cstdint>

extern int32_t f_konwersja;  // 0 no fault, 1 a character that is no digit, 2 overflow; sticky
extern uint8_t j_mod10;      // remainder of the last division by ten

inline constexpr int32_t kKonwersjaZlyZnak = 1;
inline constexpr int32_t kKonwersjaNadmiar = 2;

// Packs a value into dst[1]..dst[4], lowest byte first; dst[0] is the field before it.
void bajty(uint8_t* dst, uint32_t value);
// Byte number n of a value, counted from 1 at the lowest; 0 for n outside 1 to 4.
uint8_t BajtZLiczby(uint8_t n, uint32_t value);

void mem_cls(uint8_t* p, uint8_t c, int n);
void mem_cpy(uint8_t* dst, const uint8_t* src, int n);
uint8_t czy_zero(const uint8_t* p, int n);
void mul2(uint8_t* p, int n);
void div2(uint8_t* p, int n);
void add(uint8_t* p, const uint8_t* q, uint8_t carry, int n);
uint8_t cmp(const uint8_t* a, const uint8_t* b, uint8_t* diff, int n);
void inc(uint8_t* p, int n);
int get_msb(const uint8_t* p, int n);
void mul10(uint8_t* p, uint8_t digit);
void div10(uint8_t* p);
void ZerowanieLiczbyOsmiobajtowej(uint8_t* p);
void ZerowanieLiczbySzesciobajtowej(uint8_t* p);

uint8_t* atob(const char* text);
const char* btoa(const uint8_t* number8);
void KonwersjaLiczbyOsmiobajtowejNaString(const uint8_t* number8, char* out);
void KonwersjaLiczbySzesciobajtowejNaString(const uint8_t* number6, char* out);
