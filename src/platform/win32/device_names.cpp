#include <cstdio>

#include "platform/serial.h"

namespace platform {

// Every number gives a name here; the open tells whether a port has it.
bool BuildDeviceName(DeviceKind kind, uint32_t number, DeviceName& name) {
    const char* format = kind == DeviceKind::kCom ? R"(\\.\COM%u)" : R"(\\.\LPT%u)";
    std::snprintf(name, sizeof name, format, static_cast<unsigned>(number));
    return true;
}

}  // namespace platform
