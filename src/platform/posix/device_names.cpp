#include "platform/posix/device_names.h"

#include <cstdio>
#include <cstring>

#include "platform/serial.h"

namespace platform {
namespace {

constinit DeviceName named_devices[kLastPort]{};  // of COM port index + 1; empty: the default

bool IsPort(uint32_t number) {
    return number >= 1 && number <= kLastPort;
}

}  // namespace

bool NameComDevice(uint32_t port, const char* path) {
    const std::size_t length = strnlen(path, kDeviceNameSize);
    if (!IsPort(port) || length == kDeviceNameSize) return false;
    std::memcpy(named_devices[port - 1], path, length + 1);
    return true;
}

bool BuildDeviceName(DeviceKind kind, uint32_t number, DeviceName& name) {
    if (!IsPort(number)) return false;
    const uint32_t index = number - 1;
    if (kind == DeviceKind::kLpt) {
        std::snprintf(name, sizeof name, "/dev/lp%u", index);
    } else if (named_devices[index][0] != '\0') {
        std::memcpy(name, named_devices[index], sizeof name);
    } else {
        std::snprintf(name, sizeof name, "/dev/ttyS%u", index);
    }
    return true;
}

}  // namespace platform
