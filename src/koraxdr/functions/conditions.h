// Why a receipt cannot be opened.
#pragma once

#include <cstdint>

// 0 when one can be, else the first reason found: 100 to 109, 112, 113, 224, or the engine's error.
// Wants a session.
int32_t ZnajdzPowodOdmowy();
