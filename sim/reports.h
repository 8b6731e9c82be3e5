// The reports: of the day, which closes it, from the fiscal memory, and of the device's state.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "sim/core.h"

namespace sim {

/// What became of a report from the fiscal memory, under the bytes that tell the host.
enum class ReportResult : std::uint8_t {
    Printed = 0,
    WrongDates = 1,
    NoReports = 2,
    WrongNumbers = 3,
    UnfinishedMonth = 4,
    WrongKind = 5,
};

/// Whether a day with sales has passed without its daily report. Dates are compared: to set the clock
/// back to the day of the sales takes the demand away.
bool DailyReportDue(const Core& core);

/// Keeps the daily report in the fiscal memory, begins a new day and prints it. False where there is
/// no room for it.
bool MakeDailyReport(Core& core);

/// Reports of the days from `first` to `last`, both included; nothing stands for a date that does
/// not exist. A report that is not fiscal has the sums only.
ReportResult ReportPeriod(Core& core, bool fiscal, std::optional<std::chrono::sys_days> first,
                          std::optional<std::chrono::sys_days> last);
/// `year` is a full one; the month has to be over.
ReportResult ReportMonth(Core& core, bool fiscal, int year, int month);
ReportResult ReportNumbers(Core& core, bool fiscal, int first, int last);

void ReportLockedArticles(Core& core);
void ReportState(Core& core);

}  // namespace sim
