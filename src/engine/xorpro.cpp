#include "engine/xorpro.h"

#include "port/exchange_cells.h"

uint8_t SumaXORBajtow(const uint8_t* bufor, uint8_t poczatek, uint8_t od, uint8_t ile) {
    uint8_t suma = poczatek;
    for (int i = od; i < od + ile && i < kRozmiarBuforaWymiany; ++i) suma ^= bufor[i];
    return suma;
}

uint8_t SumaXORBajtowDoPoslania(uint8_t poczatek, uint8_t od, uint8_t ile) {
    return SumaXORBajtow(BajtyDoPoslania, poczatek, od, ile);
}

uint8_t SumaXORBajtowOdebranych(uint8_t poczatek, uint8_t od, uint8_t ile) {
    return SumaXORBajtow(BajtyOdebrane, poczatek, od, ile);
}

void SprawdzSumeXORBajtowOdebranych(uint8_t poczatek, uint8_t od, uint8_t ile) {
    const int ostatni = od + ile - 1;
    if (ile == 0 || ostatni >= kRozmiarBuforaWymiany) return UstawNumerBledu(kBladSumaXor);
    const uint8_t suma = SumaXORBajtowOdebranych(poczatek, od, static_cast<uint8_t>(ile - 1));
    if (suma != BajtyOdebrane[ostatni]) UstawNumerBledu(kBladSumaXor);
}
