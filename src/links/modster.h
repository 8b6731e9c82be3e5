// The modem link: a whole control sequence in one frame through a modem controller or over TCP, and
// the answer in a frame that the engine reads from BajtyOdebrane as if it came from the line.
#pragma once

#include <cstdint>

inline constexpr int kRozmiarAutoryzacji = 8;

extern uint8_t BudowacRamkeModemowa;  // single bytes are held back, a frame carries them; default 1
extern uint8_t NrKanaluWKontrolerzeModemu;                // the device's channel, from 1; default 1
extern int32_t SzybkoscTransmisjiMiedzyKasaIKontrolerem;  // baud; default 9600
extern uint8_t MaksymalnaLiczbaRetransmisji;              // limit of both counters; default 3
extern uint8_t Autoryzacja[kRozmiarAutoryzacji];          // access code for the controller
extern uint8_t NowaAutoryzacja[kRozmiarAutoryzacji];      // the code that is to replace it
extern uint8_t IloscDzwonkowWKontrolerzeModemu;           // rings before the controller answers

// Repeats asked of the controller, and made to it, in this exchange.
extern uint8_t LicznikRetransmisjiZKontroleraModemu;
extern uint8_t LicznikRetransmisjiDoKontroleraModemu;

extern uint8_t OdebranoCoNajmniejJedenBajtZModemu;  // at least one byte of a reply arrived
extern uint8_t OdebranoPierwszaCzescDanych;         // a first part is held, the next is appended

// Reading the decoded answer: position of the last byte read and of the last byte held.
extern uint8_t WskaznikOdczytuZBuforaModemu;
extern uint8_t MaksymalnyWskaznikOdczytuZBuforaModemu;

// What one frame says about its control sequence.
struct FrameOrder {
    bool control;           // addressed to the controller itself, not to the device
    bool with_command;      // Esc and the command are part of it (not in a continuation)
    bool ack_and_data;      // the sequence has both an acknowledgement and data
    bool record_mode;       // the answer is a list of records
    bool short_answer;      // the first answer byte alone decides
    uint8_t command;        // or the control code
    uint8_t ack_length;     // bytes answered after the command
    uint8_t data_length;    // bytes of BajtyDoPoslania
    uint8_t answer_length;  // bytes answered after the data
    uint8_t record_length;  // bytes of one record in record mode
};

// Begins an exchange: no repeats made, nothing of an older answer held.
void ZerujLicznikiRetransmisji();

// Errors 30 no carrier, 32 the write failed or the data do not fit a frame, 36 unknown control
// code.
void PoslanieRamkiDoModemu(const FrameOrder& order);
// Errors 30, 33 a byte did not come, 34 check sum, and what the controller's flags say: 20, 21, 35
// to 43, 53 (first part of a long answer).
void OdebranieRamkiZModemu();
// Asks for repeats, presents the access code or the time-outs, fetches the next part; leaves
// NumerBledu at 0 when the exchange can go on.
void KorygowanieBledowTransmisjiModemowej();

// Sends a control code (1 to 8) with its data and receives the controller's reply.
void PoslanieKoduSterujacegoDoModemu(uint8_t kod);
void ObslugaDodatkowychRozkazowKM(uint8_t kod);

const char* NumerWersjiProgramuKontroleraModemu();  // 12 characters; empty on an error
void WpisanieHaslaDlaAutoryzacjiDoKontroleraModemu(const char* haslo);  // 8 characters are used
void WpisanieIlosciDzwonkowDoKontroleraModemu(uint8_t ilosc);

// A command string for the modem itself, unframed; a carriage return is added unless it is empty or
// "+++". Error 32 when the write fails.
void PoslanieNapisuDoModemu(const char* napis);

bool AktywnaLiniaCD();
int IloscBajtowWRamcePoZabezpieczeniu(int bajtow);  // line bytes for that many body bytes
