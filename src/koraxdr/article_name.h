// Names of articles as the devices keep them.
#pragma once

#include <cstdint>

inline constexpr int kNazwaKrotka = 28;  // characters
inline constexpr int kNazwaDluga = 40;
inline constexpr int kBuforNazwy = 256;  // bytes

// How many of the first 28 characters are significant to a device.
int32_t LiczbaZnakowZnaczacych(const char* name);

// Copies a name, cut at 255 characters and padded with blanks to at least 40: the target holds 256
// bytes. 202 when none of the characters is significant.
int32_t NormalizujNazwe(char* target, const char* name);
