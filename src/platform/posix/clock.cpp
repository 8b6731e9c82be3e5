#include "platform/clock.h"

#include <cerrno>

#include "platform/posix/deadline.h"

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

uint64_t MonotonicMs() {
    return MonotonicUs() / 1'000;
}

}  // namespace platform
