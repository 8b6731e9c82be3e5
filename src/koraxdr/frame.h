// The frame of an exported function, written once:
//
//   return Funkcja([&] {
//       PokazArgumenty("Sent to function Name: ", {{"1.Label: ", value}});   in debug mode
//       if (Text == nullptr) return blad::kPustyBufor;                       argument checks
//       if (int32_t numer = RozpocznijSesje()) return numer;                 session
//       if (ParagonRozpoczety) return blad::kParagonRozpoczety;              open-receipt check
//       return Wyslij(kRozkaz);                                              exchanges
//   });
//
// Funkcja clears the last error before the body and stores the body's result after it.
#pragma once

#include <cstdint>
#include <initializer_list>

#include "koraxdr.h"
#include "koraxdr/errors.h"
#include "koraxdr/state.h"

inline int32_t ZapamietajBlad(int32_t numer) {
    ErrorLastError = static_cast<uint32_t>(numer);
    return numer;
}

template <class Body>
int32_t Funkcja(Body body) {
    ErrorLastError = 0;
    return ZapamietajBlad(body());
}

// One line of the debug box: the label as the function spells it, and a number or a text.
struct DebugArgument {
    const char* label;
    bool is_text;
    int32_t number = 0;
    const char* text = nullptr;

    DebugArgument(const char* name, int32_t value) : label(name), is_text(false), number(value) {}
    DebugArgument(const char* name, const char* value) : label(name), is_text(true), text(value) {}
};

// Shows the debug box when DebugMode is set.
void PokazArgumenty(const char* naglowek, std::initializer_list<DebugArgument> argumenty);
// The same text on standard output instead.
void WypiszArgumenty(const char* naglowek, std::initializer_list<DebugArgument> argumenty);

// Starts a session when none is established; 0, or the session start's error.
int32_t RozpocznijSesje();
// The same, and 200 when a receipt is open.
int32_t RozpocznijSesjePozaParagonem();

// A control sequence by its command byte and lengths: bytes answered after the command (the
// acknowledgement included), data bytes, bytes answered after the data (the status included).
struct ControlSequence {
    uint8_t command;
    uint8_t ack_length = 1;
    uint8_t data_length = 0;
    uint8_t answer_length = 0;
};

// Sends it with the data in BajtyDoPoslania; 0, or the engine's error number.
int32_t Wyslij(const ControlSequence& sekwencja);
// The same with a data length that the call decides.
int32_t Wyslij(const ControlSequence& sekwencja, int dlugoscDanych);

// Reads a status byte.
int32_t OdczytajStatus(const ControlSequence& sekwencja, uint8_t& status);

inline constexpr ControlSequence kStatusA = {148};
inline constexpr ControlSequence kStatusB = {149};
inline constexpr ControlSequence kStatusC = {155};
inline constexpr ControlSequence kStatusD = {150};

// Answer byte as the device gave it, counted from 1; a number from two of them, low byte first.
uint8_t BajtOdpowiedzi(int pozycja);
int32_t SlowoOdpowiedzi(int pozycja);
// A signed number from four bytes, the lowest first.
int32_t LiczbaOdpowiedzi(int pozycja);
// Copies answer bytes to a buffer of ile + 1 bytes and ends them with a zero byte.
void KopiujOdpowiedz(char* cel, int pozycja, int ile);

inline constexpr uint8_t kAck = 0x06;
inline constexpr uint8_t kNak = 0x15;

// Takes one byte straight from the line: the error number that then stands, 21 when none came.
int32_t OdbierzBajt(uint8_t& bajt);

// Takes the device's acknowledgement straight from the line, outside a control sequence: 0 for ACK,
// 21 for NAK, 23 for any other byte; 21 when none came. A NAK byte's own value is stored as the
// error number on purpose, so that here it reads as a receive time-out.
int32_t OdbierzPotwierdzenieBezposrednio();

// Whether the device is ready to print: PrintControl without its frame and session step.
int32_t SprawdzGotowoscDrukowania(int32_t beforePrinting);

// Waits until the printing unit is ready at the end of an operation.
inline int32_t ZakonczDrukowanie() {
    return PrintControl(0);
}

// The frame's common ends of a receipt that the device has cancelled.
int32_t UniewaznijParagon();

// Copies a text with its terminator; at most `size` - 1 characters of it.
void KopiujTekst(char* cel, const char* tekst, int size);
