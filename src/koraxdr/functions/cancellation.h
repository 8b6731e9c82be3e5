// Cancelling an open receipt.
#pragma once

#include <cstdint>

// Cancels it, with the device's consent; 210 when the device has cancelled it already. Wants a
// session and an open receipt.
int32_t AnulujParagon();
