#include "port/exchange_cells.h"

uint8_t BajtyDoPoslania[kRozmiarBuforaWymiany];
uint8_t BajtyOdebrane[kRozmiarBuforaWymiany];
uint8_t NumerBledu = 0;

namespace {

// Runs of internal numbers that are shown as runs of driver numbers.
// Oddity: No exchange gives 106. The numbers follow the device's status bytes, and status 6
// is none: it is the byte of the acknowledgement.
struct NumberRun {
    uint8_t first, last;
    uint8_t shown;
};

constexpr NumberRun kNumery[] = {
    {0, 62, 0},    {66, 70, 101}, {71, 82, 107},  {83, 95, 200},
    {96, 96, 215}, {97, 97, 217}, {98, 110, 220},
};

constexpr uint8_t kNieznanyNumer = 99;

}  // namespace

uint8_t WartoscNumeruBledu(int32_t internal) {
    for (const NumberRun& run : kNumery) {
        if (internal >= run.first && internal <= run.last) {
            return static_cast<uint8_t>(run.shown + (internal - run.first));
        }
    }
    return kNieznanyNumer;
}

void UstawNumerBledu(int32_t internal) {
    NumerBledu = WartoscNumeruBledu(internal);
}

bool WymianaUdana() {
    return NumerBledu == WartoscNumeruBledu(0);
}
