// Full open, purge and close of the line, whether a port or a TCP connection carries it.
#pragma once

#include <cstdint>

extern uint8_t ZainicjowanoPortSzeregowy;        // the line is open
extern uint8_t PozostawiacOtwartyPortSzeregowy;  // keep it open between sessions; default 0

void InicjujKompletniePortSzeregowy();  // full open; the outcome is ZainicjowanoPortSzeregowy
void InicjujKompletniePortSzeregowyDlaNivy();
void OdinicjujPortSzeregowy();  // close, unless the line is to be kept open
void UstawieniePozostawiacOtwartyPortSzeregowy(uint8_t flag);

// Discards what the line still holds: late answers must not be taken for the next one's.
void CzyscPortSzeregowy();
