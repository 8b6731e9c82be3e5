// SetPortDevice: an application names the device behind a port number.
#include "koraxdr/frame.h"
#include "platform/device_names.h"

int32_t KORAX_CALL SetPortDevice(int32_t Port, const char* DevicePath) {
    return Funkcja([&]() -> int32_t {
        if (DevicePath == nullptr) return KORAX_E_NULL;
        const bool named =
            Port >= 1 && platform::NameComDevice(static_cast<uint32_t>(Port), DevicePath);
        return named ? KORAX_E_OK : KORAX_E_OUT_OF_RANGE;
    });
}
