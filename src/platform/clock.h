// Time as the driver needs it: delays, and a monotonic clock for deadlines.
#pragma once

#include <cstdint>

namespace platform {

void SleepMs(uint32_t ms);  // a plain, non-alertable sleep
void PauseMs(uint32_t ms);  // a wait on the own process, used where the port settles
uint64_t MonotonicMs();

}  // namespace platform
