// Time as the driver needs it: delays, a monotonic clock for deadlines, and the date.
#pragma once

#include <cstdint>

namespace platform {

void SleepMs(uint32_t ms);  // a plain, non-alertable sleep
void PauseMs(uint32_t ms);  // a wait on the own process, used where the port settles
uint64_t MonotonicUs();
int64_t SecondsSince1970();  // by the calendar, UTC

}  // namespace platform
