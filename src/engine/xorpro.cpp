#include "engine/xorpro.h"

#include "port/exchange_cells.h"

uint8_t SumaXORBajtow(const uint8_t* buffer, uint8_t start, uint8_t first, uint8_t count) {
    uint8_t sum = start;
    for (int i = first; i < first + count && i < kRozmiarBuforaWymiany; ++i) sum ^= buffer[i];
    return sum;
}

uint8_t SumaXORBajtowDoPoslania(uint8_t start, uint8_t first, uint8_t count) {
    return SumaXORBajtow(BajtyDoPoslania, start, first, count);
}

uint8_t SumaXORBajtowOdebranych(uint8_t start, uint8_t first, uint8_t count) {
    return SumaXORBajtow(BajtyOdebrane, start, first, count);
}

void SprawdzSumeXORBajtowOdebranych(uint8_t start, uint8_t first, uint8_t count) {
    const int last = first + count - 1;
    if (count == 0 || last >= kRozmiarBuforaWymiany) return UstawNumerBledu(kBladSumaXor);
    const uint8_t sum = SumaXORBajtowOdebranych(start, first, static_cast<uint8_t>(count - 1));
    if (sum != BajtyOdebrane[last]) UstawNumerBledu(kBladSumaXor);
}
