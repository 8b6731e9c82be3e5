// The printing unit: is it ready?
#pragma once

#include <cstdint>

// Waits until it is, or tells why it is not: 102, 103, 109, 112, or the engine's error.
//   before_printing  1 before a printout, 0 after one; with other values a stopped printout is
//                    waited out
int32_t SprawdzGotowoscDrukowania(int32_t before_printing);
