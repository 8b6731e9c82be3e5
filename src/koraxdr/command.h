// A control sequence as the exported functions use it: sent, answered, its answer read. What
// answers outside the exchange is taken straight from the line.
#pragma once

#include <cstdint>

#include "engine/commands.h"
#include "koraxdr.h"

// Sends it with the data in BajtyDoPoslania; 0, or the engine's error number.
int32_t Wyslij(const ControlSequence& sequence);
// The same with a data length that the call decides.
int32_t Wyslij(const ControlSequence& sequence, int data_length);

// Reads a status byte by its command (kStatusA to kStatusD).
int32_t OdczytajStatus(const ControlSequence& sequence, uint8_t& status);

inline constexpr uint8_t kBitBrakuPapieru = 0x02;  // status B
inline constexpr uint8_t kBitAwarii = 0x04;        // status B

// Answer byte as the device gave it, counted from 1; a number from two of them, low byte first.
uint8_t BajtOdpowiedzi(int position);
int32_t SlowoOdpowiedzi(int position);
// A signed number from four bytes, the lowest first.
int32_t LiczbaOdpowiedzi(int position);
// Copies answer bytes to a buffer of count + 1 bytes and ends them with a zero byte.
void KopiujOdpowiedz(char* target, int position, int count);

// Takes one byte straight from the line: the error number that then stands, 21 when none came.
int32_t OdbierzBajt(uint8_t& byte);

// Takes the device's acknowledgement straight from the line, outside a control sequence: 0 for ACK,
// 21 for NAK, 23 for any other byte; 21 when none came.
int32_t OdbierzPotwierdzenieBezposrednio();
