#include "platform/device_names.h"

#include <cstdio>

namespace platform {

bool CanNameDevice(const char*) {
    return true;
}

// COM port n is /dev/ttyS(n-1).
bool BuildDefaultName(DeviceKind kind, uint32_t number, DeviceName& name) {
    if (number < 1 || number > kLastPort) return false;
    const char* format = kind == DeviceKind::kCom ? "/dev/ttyS%u" : "/dev/lp%u";
    std::snprintf(name, sizeof name, format, number - 1);
    return true;
}

}  // namespace platform
