// Who is on the line: model, program version, code page.
#pragma once

#include <cstdint>

inline constexpr int32_t kInneUrzadzenie = 13;  // another device, not identified

// Asks the device for its type and program version; on an error the cells are unchanged.
int32_t RozpoznajTyp(int32_t& type, int32_t& version);
// The same into Urzadzenie and Prog, the type in force.
int32_t RozpoznajUrzadzenie();

// The name of a type; that of the unknown one for what is no type.
const char* NazwaUrzadzenia(int32_t type);

// Asks for the type anew, then for its code page: 0 = 852, 1 = 1250, 2 = Mazovia.
int32_t OdczytajStroneKodowa(int32_t& page);
