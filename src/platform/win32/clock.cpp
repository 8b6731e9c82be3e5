#include "platform/clock.h"

#include <windows.h>

namespace platform {

void SleepMs(uint32_t ms) {
    SleepEx(ms, FALSE);
}

// The own process does not end while it waits: a plain delay.
void PauseMs(uint32_t ms) {
    WaitForSingleObject(GetCurrentProcess(), ms);
}

uint64_t MonotonicMs() {
    return GetTickCount64();
}

}  // namespace platform
