// Devices that an application has named for COM ports.
#pragma once

#include <cstdint>

#include "platform/serial.h"

namespace platform {

inline constexpr uint32_t kLastPort = 255;

// Names the device of COM port `port` (1 to 255): a connection ("tcp://HOST:PORT") or, where the
// system has paths of devices, one of these; an empty name restores the default. False, and nothing
// changed, when the port has no name or this is none that fits.
bool NameComDevice(uint32_t port, const char* name);

// Each system's own: the name of a port without one given (false when there is none), and whether a
// text that names no connection can name a device.
bool BuildDefaultName(DeviceKind kind, uint32_t number, DeviceName& name);
bool CanNameDevice(const char* name);

}  // namespace platform
