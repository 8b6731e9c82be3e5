// What speaks with the modem controller itself: control codes, the correction of an exchange that
// went wrong, and commands for the controller and its modem.
#pragma once

#include <cstdint>

#include "links/modster.h"

extern uint8_t MaksymalnaLiczbaRetransmisji;          // limit of both counters; default 3
extern uint8_t Autoryzacja[kRozmiarAutoryzacji];      // access code for the controller
extern uint8_t NowaAutoryzacja[kRozmiarAutoryzacji];  // the code that is to replace it
extern uint8_t IloscDzwonkowWKontrolerzeModemu;       // rings before the controller answers

// Repeats asked of the controller, and made to it, in this exchange.
extern uint8_t LicznikRetransmisjiZKontroleraModemu;
extern uint8_t LicznikRetransmisjiDoKontroleraModemu;

// Begins an exchange: no repeats made, no demand met, nothing of an older answer held.
void ZerujLicznikiRetransmisji();

// Asks for repeats, presents the access code or the time-outs, fetches the next part; leaves
// NumerBledu at 0 when the exchange can go on. Whether an answer is held then is another matter: it
// may be that the frame has to be sent again, see OdebranoDaneOdpowiedzi.
void KorygowanieBledowTransmisjiModemowej();

// Sends a control code (1 to 8) with its data and receives the controller's reply.
void PoslanieKoduSterujacegoDoModemu(uint8_t code);
// The same with the correction, until the controller has answered the code or an error stands.
void ObslugaDodatkowychRozkazowKM(uint8_t code);

const char* NumerWersjiProgramuKontroleraModemu();  // 12 characters; empty on an error
void WpisanieHaslaDlaAutoryzacjiDoKontroleraModemu(const char* password);  // 8 characters are used
void WpisanieIlosciDzwonkowDoKontroleraModemu(uint8_t count);

// A command string for the modem itself, unframed; a carriage return is added unless it is empty or
// "+++". Error 32 when the write fails.
void PoslanieNapisuDoModemu(const char* text);
