#include "platform/device_names.h"

#include <cstring>

#include "platform/connection.h"

namespace platform {
namespace {

constinit DeviceName named_devices[kLastPort]{};  // of COM port index + 1; empty: the default

bool IsPort(uint32_t number) {
    return number >= 1 && number <= kLastPort;
}

bool IsPossible(const char* name) {
    if (*name == '\0') return true;
    return MeansConnection(name) ? NamesConnection(name) : CanNameDevice(name);
}

}  // namespace

bool NameComDevice(uint32_t port, const char* name) {
    const std::size_t length = strnlen(name, kDeviceNameSize);
    if (!IsPort(port) || length == kDeviceNameSize || !IsPossible(name)) return false;
    std::memcpy(named_devices[port - 1], name, length + 1);
    return true;
}

bool BuildDeviceName(DeviceKind kind, uint32_t number, DeviceName& name) {
    const bool named =
        kind == DeviceKind::kCom && IsPort(number) && named_devices[number - 1][0] != '\0';
    if (!named) return BuildDefaultName(kind, number, name);
    std::memcpy(name, named_devices[number - 1], sizeof name);
    return true;
}

}  // namespace platform
