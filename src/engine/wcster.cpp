#include "engine/wcster.h"

#include "port/upward.h"

bool TavloJestObecny() {
    return false;
}
bool ZresetowanoTavloa(int32_t, uint8_t) {
    return false;
}
bool PoslanoKodKoncaDanych(uint8_t) {
    return false;
}
bool WyslanoPotwierdzenieDoTavloa() {
    return false;
}
void OczekiwanieNaOproznienieNadajnikaPortuSzeregowego() {}
