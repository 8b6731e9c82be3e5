// Channels: several devices on one line behind a multiplexer, or behind a device server.
#pragma once

#include <cstdint>

extern uint8_t NrMultipleksera;  // 0 none, 3 selection by sequence, 4 by raw bytes, other by lines
extern int32_t NrKanalu;         // channel to select, 1 to 4 for line selection; default 1

void PrzelaczNaKanal();  // selects NrKanalu; a failure sets error 52

// By the multiplexer's lines and the port's speed, or on the device server when it is selected.
bool UstawionoKanal(int32_t channel);
bool UstawionoSzybkosc(int32_t baud);
bool UstawKanalPleko(int32_t channel);
bool ChangeSpeedPleko(int32_t baud);
bool UstawSzybkoscTransmisji();
