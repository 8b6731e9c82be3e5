// The tax rates as the three generations of devices keep them. All of it wants a session and no
// open receipt.
#pragma once

#include <cstdint>

#include "koraxdr/command.h"
#include "koraxdr/device_types.h"
#include "koraxdr/state.h"

// The rates A to G (index 0 to 6) in hundredths of a percent (KORAX_RATE_EXEMPT,
// KORAX_RATE_NOT_USED among them), and how many of them the device has.
struct VatRates {
    int32_t count = 0;
    int32_t rates[kStawek] = {};
};

// How one generation of devices keeps its rates.
struct RateGeneration {
    int32_t count;
    int width;  // bytes of a rate, the high byte first
    DeviceTypes types;
    ControlSequence read, write;
    int32_t (*decode)(int32_t);
    int32_t (*encode)(int32_t);
};

// That of a device type; null where a type has none.
const RateGeneration* GeneracjaTypu(int32_t type);

// Reads them; where the device gave none they stay as they were.
int32_t OdczytajStawki(VatRates& rates);

// Sends the first of these, as many as the generation has.
int32_t WyslijStawki(const RateGeneration& generation, const int32_t (&rates)[kStawek]);

// Tells whether any rate is defined, an exempt one included: 0, 113 when none is, or the readout's
// error.
int32_t Stawki(uint8_t* defined);
