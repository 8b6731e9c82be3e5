// The maker's communication component, a unit between the port and the device. There is none behind
// these functions: presence is false and the rest fail, so that a real one can take their place.
#pragma once

#include <cstdint>

bool TavloJestObecny();
bool ZresetowanoTavloa(int32_t baud, uint8_t flag);
bool PoslanoKodKoncaDanych(uint8_t code);
bool WyslanoPotwierdzenieDoTavloa();
void OczekiwanieNaOproznienieNadajnikaPortuSzeregowego();
