#include "platform/win32/pace.h"

#include <windows.h>

#include <algorithm>

namespace platform {
namespace {

int64_t byte_time = 0;      // all times in units of the performance counter
int64_t longest_wait = 0;   // no longer than a write may take
int64_t carried_until = 0;  // when the bytes written so far have left

int64_t Frequency() {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    return frequency.QuadPart;
}

int64_t Now() {
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return now.QuadPart;
}

}  // namespace

void SetPace(const LineSettings& settings) {
    constexpr int64_t kBits = 11;  // start, eight of data, parity, stop
    byte_time = settings.baud == 0 ? 0 : Frequency() * kBits / settings.baud;
    longest_wait = Frequency() * settings.write_timeout_s;
}

void BeginPacedWrite(uint32_t count) {
    carried_until = std::max(carried_until, Now()) + byte_time * count;
}

void AbandonPacedWrites() {
    carried_until = 0;
}

void AwaitPacedWrites() {
    const int64_t rest = std::min(carried_until - Now(), longest_wait);
    if (rest > 0) SleepEx(static_cast<DWORD>(rest * 1000 / Frequency() + 1), FALSE);
    carried_until = 0;
}

}  // namespace platform
