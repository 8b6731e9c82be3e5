// The modem link: a whole control sequence in one frame through a modem controller or over TCP, and
// the answer in a frame that the engine reads from BajtyOdebrane as if it came from the line.
#pragma once

#include <cstdint>

inline constexpr int kRozmiarAutoryzacji = 8;  // bytes of an access code

extern uint8_t BudowacRamkeModemowa;  // single bytes are held back, a frame carries them; default 1
extern uint8_t NrKanaluWKontrolerzeModemu;                // the device's channel, from 1; default 1
extern int32_t SzybkoscTransmisjiMiedzyKasaIKontrolerem;  // baud; default 9600

extern uint8_t OdebranoCoNajmniejJedenBajtZModemu;  // at least one byte of a reply arrived
extern uint8_t OdebranoPierwszaCzescDanych;         // a first part is held, the next is appended
extern uint8_t OdebranoDaneOdpowiedzi;  // the last reply was an answer, whole or the end of one

// Reading the decoded answer: position of the last byte read and of the last byte held.
extern uint8_t WskaznikOdczytuZBuforaModemu;
extern uint8_t MaksymalnyWskaznikOdczytuZBuforaModemu;

// What the driver says to the controller itself.
enum ControlCode : uint8_t {
    kCodeVersion = 1,
    kCodeNewAccessCode = 2,
    kCodeAccessCode = 3,
    kCodeWriteTimeout = 4,
    kCodeReadTimeout = 5,
    kCodeRepeat = 6,
    kCodeRings = 7,
    kCodeNextPart = 8,
};

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

// Nothing of an older answer is held any more.
void ZapomnijOdpowiedz();

// What the link still holds is discarded first, except before a continuation. Errors 30 no carrier,
// 32 the write failed or the data do not fit a frame, 36 unknown control code.
void PoslanieRamkiDoModemu(const FrameOrder& order);
// Errors 30, 33 a byte did not come, 34 check sum, and what the controller's flags say: 20, 21, 35
// to 43, 53 (first part of a long answer).
void OdebranieRamkiZModemu();

bool AktywnaLiniaCD();
int IloscBajtowWRamcePoZabezpieczeniu(int bytes);  // line bytes for that many body bytes
