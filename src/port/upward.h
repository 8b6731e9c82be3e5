// The port's only calls upward: selecting a multiplexer channel is itself a control sequence, and
// the communication component is the engine's. Nothing else of the engine is known down here.
#pragma once

#include <cstdint>

void PoslanieSekwencjiSterujacej(uint8_t command, uint8_t ack_length, uint8_t data_length,
                                 int32_t answer_length);
void OczekiwanieNaOproznienieNadajnikaPortuSzeregowego();
bool TavloJestObecny();
bool ZresetowanoTavloa(int32_t baud, uint8_t flag);
