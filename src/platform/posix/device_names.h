// Names of the serial devices. COM port n is /dev/ttyS(n-1) unless another device was named for it.
#pragma once

#include <cstdint>

namespace platform {

inline constexpr uint32_t kLastPort = 255;

// Names the device of COM port `port` (1 to 255); an empty path restores the default. False, and
// nothing changed, when the port has no name or the path does not fit into a DeviceName.
bool NameComDevice(uint32_t port, const char* path);

}  // namespace platform
