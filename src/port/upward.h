// The port's only calls upward: selecting a multiplexer channel is itself a control sequence, and
// the communication component is the engine's. Nothing else of the engine is known down here.
#pragma once

#include <cstdint>

void PoslanieSekwencjiSterujacej(uint8_t rozkaz, uint8_t dlugoscPotwierdzenia,
                                 uint8_t dlugoscDanych, int32_t dlugoscOdpowiedzi);
void OczekiwanieNaOproznienieNadajnikaPortuSzeregowego();
bool TavloJestObecny();
bool ZresetowanoTavloa(int32_t szybkosc, uint8_t flaga);
