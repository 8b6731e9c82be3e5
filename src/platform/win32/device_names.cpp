#include "platform/device_names.h"

#include <cstdio>

namespace platform {

// The ports' own numbers are all the names that devices need here.
bool CanNameDevice(const char*) {
    return false;
}

// Every number gives a name here; the open tells whether a port has it.
bool BuildDefaultName(DeviceKind kind, uint32_t number, DeviceName& name) {
    const char* format = kind == DeviceKind::kCom ? R"(\\.\COM%u)" : R"(\\.\LPT%u)";
    std::snprintf(name, sizeof name, format, static_cast<unsigned>(number));
    return true;
}

}  // namespace platform
