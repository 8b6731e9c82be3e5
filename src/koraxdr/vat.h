// The tax rates as other families of functions use them.
#pragma once

#include <cstdint>

inline constexpr int32_t kStawkaZwolniona = 10000;
inline constexpr int32_t kStawkaNieuzywana = 25500;

// The rates A to G (index 0 to 6) in hundredths of a percent, and how many of them the device has.
struct VatRates {
    int32_t count = 0;
    int32_t rates[7] = {};
};

// ReadVAT into such a record. Where the readout leaves its cells untouched they stay 0.
int32_t OdczytajStawki(VatRates& stawki);

// Tells whether any rate is defined: 0, 113 when none is, or the readout's error.
int32_t Stawki(uint8_t* defined);
