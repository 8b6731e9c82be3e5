// A point on the monotonic clock that a wait must not pass.
#pragma once

#include <climits>
#include <cstdint>

#include "platform/clock.h"

namespace platform {

class Deadline {
  public:
    explicit Deadline(uint64_t at_us) : at_us_(at_us) {}

    bool HasPassed() const { return MonotonicUs() >= at_us_; }

    // What is left, for poll: rounded up, so that a wait does not end before the deadline.
    int RemainingMs() const {
        const uint64_t now = MonotonicUs();
        if (now >= at_us_) return 0;
        const uint64_t ms = (at_us_ - now + 999) / 1'000;
        return ms > INT_MAX ? INT_MAX : static_cast<int>(ms);
    }

  private:
    uint64_t at_us_;
};

}  // namespace platform
