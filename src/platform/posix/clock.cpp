#include "platform/clock.h"

#include <cerrno>
#include <ctime>

namespace platform {

void SleepMs(uint32_t ms) {
    timespec left{};
    left.tv_sec = ms / 1'000;
    left.tv_nsec = static_cast<long>(ms % 1'000) * 1'000'000;
    while (clock_nanosleep(CLOCK_MONOTONIC, 0, &left, &left) == EINTR) {
    }
}

void PauseMs(uint32_t ms) {
    SleepMs(ms);
}

uint64_t MonotonicUs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<uint64_t>(now.tv_sec) * 1'000'000 +
           static_cast<uint64_t>(now.tv_nsec) / 1'000;
}

int64_t SecondsSince1970() {
    return time(nullptr);
}

}  // namespace platform
