// What stands open between the device and its host. Being switched off ends it, and nothing of it
// is kept.
#pragma once

#include <chrono>
#include <cstddef>

#include "sim/device.h"

namespace sim {

/// The non-fiscal document being printed: one of free lines, or the control of articles' rates.
enum class PrintoutKind { None, Lines, Control };
struct Printout {
    PrintoutKind kind = PrintoutKind::None;
    bool open() const { return kind != PrintoutKind::None; }
};

/// The logo that is arriving row by row.
struct ComingLogo {
    Logo logo;
    std::size_t next = 0;  // row that has to come next
};

struct LineSession {
    std::chrono::milliseconds receipt_opened{};
    Printout printout;
    ComingLogo logo;
    Bytes last_setup;  // the line of footer or logo accepted last, as it was sent
};

}  // namespace sim
