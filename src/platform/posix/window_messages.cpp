// This system has no window messages: the server link stays inactive here.
#include "platform/window_messages.h"

#include <unistd.h>

namespace platform {

uint32_t ProcessId() {
    return static_cast<uint32_t>(getpid());
}

bool PostToAllWindows(const WindowMessage&) {
    return false;
}

bool TakeWindowMessage(uint32_t, uint32_t, WindowMessage&) {
    return false;
}

void DispatchOneWindowMessage(uint32_t, uint32_t) {}

bool WaitForWindowMessage() {
    return false;
}

}  // namespace platform
