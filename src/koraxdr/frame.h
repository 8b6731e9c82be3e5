// The frame of an exported function, written once:
//
//   return Funkcja([&]() -> int32_t {
//       PokazArgumenty("Sent to function Name: ", {{"1.Label: ", value}});    in debug mode
//       if (Text == nullptr) return KORAX_E_NULL;                             argument checks
//       if (const int32_t error = RozpocznijSesje()) return error;            session
//       if (ParagonRozpoczety) return KORAX_E_RECEIPT_OPEN;                   open-receipt check
//       return Wyslij(kRozkaz);                                               exchanges
//   });
//
// Funkcja clears the last error before the body and stores the body's result after it.
#pragma once

#include <cstdint>
#include <initializer_list>

#include "koraxdr.h"
#include "koraxdr/state.h"

inline int32_t ZapamietajBlad(int32_t error) {
    ErrorLastError = static_cast<uint32_t>(error);
    return error;
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
void PokazArgumenty(const char* head, std::initializer_list<DebugArgument> arguments);
// The same text on standard output instead.
void WypiszArgumenty(const char* head, std::initializer_list<DebugArgument> arguments);
