// What the fiscal module keeps. Nothing erases it: neither a power cut nor the loss of the working
// memory, and the service adds to it as a host does.
#pragma once

#include <string>
#include <vector>

#include "sim/device.h"

namespace sim {

struct FiscalMemory {
    std::string unique_number;
    VatRates rates{};
    std::vector<DailyReport> daily_reports;  // ascending

    /// Of the last daily report, 0 before the first.
    int report_number() const { return daily_reports.empty() ? 0 : daily_reports.back().number; }
};

}  // namespace sim
