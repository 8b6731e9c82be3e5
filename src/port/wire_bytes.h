// The bytes that have a meaning of their own on the line.
#pragma once

#include <cstdint>

inline constexpr uint8_t kAck = 0x06;
inline constexpr uint8_t kLf = 0x0A;
inline constexpr uint8_t kCr = 0x0D;
inline constexpr uint8_t kNak = 0x15;
inline constexpr uint8_t kEsc = 0x1B;

// Behind Esc: the end of a text item or frame.
inline constexpr uint8_t kKoniecRamki = 0xB3;
