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

uint64_t MonotonicUs() {
    LARGE_INTEGER ticks, a_second;
    QueryPerformanceCounter(&ticks);
    QueryPerformanceFrequency(&a_second);
    const auto whole = static_cast<uint64_t>(ticks.QuadPart / a_second.QuadPart);
    const auto rest = static_cast<uint64_t>(ticks.QuadPart % a_second.QuadPart);
    return whole * 1'000'000 + rest * 1'000'000 / static_cast<uint64_t>(a_second.QuadPart);
}

int64_t SecondsSince1970() {
    constexpr int64_t kSecondsFrom1601To1970 = 11'644'473'600;
    FILETIME now;
    GetSystemTimeAsFileTime(&now);  // in 100 ns since 1601
    const int64_t ticks = static_cast<int64_t>(now.dwHighDateTime) << 32 | now.dwLowDateTime;
    return ticks / 10'000'000 - kSecondsFrom1601To1970;
}

}  // namespace platform
