// Reports.
#include "sim/reports.h"

#include <fmt/format.h>

#include "sim/command.h"
#include "sim/commands/status.h"

namespace sim {
namespace {

// The others refuse a daily report of a day without receipts.
constexpr ModelSet kReportsEmptyDays = {3, 4, 8, 9, 10, 11, 12, 13};
constexpr ModelSet kReportsMonths = {4, 7, 8, 9, 10, 11, 12, 13};
constexpr int kLastReportNumber = 65535;  // it is told in two bytes

constexpr Field kPeriod[] = {
    {"first day", FieldKind::Digits, 6},  // year, month, day
    {"last day", FieldKind::Digits, 6},
};
constexpr Field kFromMemory[] = {
    {"kind", FieldKind::Byte, 1},
    {"range", FieldKind::Digits, 4},  // year and month, or two numbers
};

std::optional<Bytes> DailyReportOrRefusal(Core& core) {
    const bool empty_refused = core.working().counters.receipts == 0 && !core.Is(kReportsEmptyDays);
    if (empty_refused || !DailyReportAllowed(core) ||
        core.fiscal().report_number() == kLastReportNumber)
        return std::nullopt;
    if (!MakeDailyReport(core)) return std::nullopt;
    return Bytes{};
}

template <void (*Print)(Core&)>
std::optional<Bytes> Printed(Core& core) {
    if (!PrintoutAllowed(core)) return std::nullopt;
    Print(core);
    return Bytes{};
}

std::optional<Bytes> AllowPrintout(Core& core) {
    if (!PrintoutAllowed(core)) return std::nullopt;
    return Bytes{};
}

std::optional<Bytes> ReportNumber(Core& core) {
    const int number = core.fiscal().report_number();
    core.Note(fmt::format("report {}", number));
    return Bytes{static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(number >> 8)};
}

// Negative for bytes that are no digits.
int TwoDigits(std::span<const std::uint8_t> digits) {
    return digits[0] > 9 || digits[1] > 9 ? -1 : digits[0] * 10 + digits[1];
}

std::optional<std::chrono::sys_days> Day(std::span<const std::uint8_t> digits) {
    const int year = TwoDigits(digits);
    const int month = TwoDigits(digits.subspan(2));
    const int day = TwoDigits(digits.subspan(4));
    if (year < 0 || month < 0 || day < 0) return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year{2000 + year},
                                           std::chrono::month{static_cast<unsigned>(month)},
                                           std::chrono::day{static_cast<unsigned>(day)}};
    if (!date.ok()) return std::nullopt;
    return date;
}

const char* Complaint(ReportResult result) {
    switch (result) {
        case ReportResult::Printed:
            return "";
        case ReportResult::WrongDates:
            return "Błędne daty raportu";
        case ReportResult::NoReports:
            return "Brak raportów w podanym okresie";
        case ReportResult::WrongNumbers:
            return "Błędne numery raportów";
        case ReportResult::UnfinishedMonth:
            return "Niezakończony miesiąc";
        case ReportResult::WrongKind:
            return "Nieznany rodzaj raportu";
    }
    return "";
}

// Nothing can be answered to the dates, so what is wrong with them is printed.
template <bool fiscal>
Bytes PrintPeriod(Core& core, const Record& record) {
    const ReportResult result =
        ReportPeriod(core, fiscal, Day(record.Raw("first day")), Day(record.Raw("last day")));
    if (result == ReportResult::Printed) return {};
    core.Note(Complaint(result));
    core.printer.Centred(LineKind::Notice, Complaint(result));
    core.printer.EndDocument(LineKind::Notice);
    return {};
}

ReportResult PrintFromMemory(Core& core, int kind, std::span<const std::uint8_t> range) {
    enum { kFiscalNumbers = 1, kFiscalMonth = 2, kNumbers = 4, kMonth = 5 };
    const bool fiscal = kind == kFiscalNumbers || kind == kFiscalMonth;
    switch (kind) {
        case kFiscalNumbers:
        case kNumbers: {
            const int first = range[0] | range[1] << 8;
            const int last = range[2] | range[3] << 8;
            core.Note(fmt::format("numbers {} to {}", first, last));
            return ReportNumbers(core, fiscal, first, last);
        }
        case kFiscalMonth:
        case kMonth: {
            const int year = TwoDigits(range);
            const int month = TwoDigits(range.subspan(2));
            if (year < 0 || month < 0) return ReportResult::WrongDates;
            return ReportMonth(core, fiscal, 2000 + year, month);
        }
        default:
            return ReportResult::WrongKind;
    }
}

Bytes ReportFromMemory(Core& core, const Record& record) {
    const ReportResult result = PrintFromMemory(core, record.Byte("kind"), record.Raw("range"));
    if (result != ReportResult::Printed) core.Note(Complaint(result));
    return {static_cast<std::uint8_t>(result)};
}

constexpr Command kCommands[] = {
    {.code = 0x25,
     .name = "daily report",
     .id = "daily-report",
     .early = 1,
     .moment = Moment::NoDocument,
     .accept = DailyReportOrRefusal},
    {.code = 0x22,
     .name = "report of locked articles",
     .id = "locked-articles-report",
     .early = 1,
     .moment = Moment::NoDocument,
     .accept = Printed<ReportLockedArticles>},
    {.code = 0x26,
     .name = "report of the printer's state",
     .id = "state-report",
     .early = 1,
     .moment = Moment::NoDocument,
     .accept = Printed<ReportState>},
    {.code = 0x28,
     .name = "fiscal report of a period",
     .id = "fiscal-period-report",
     .early = 1,
     .layout = kPeriod,
     .moment = Moment::NoDocument,
     .accept = AllowPrintout,
     .execute = PrintPeriod<true>},
    {.code = 0x29,
     .name = "non-fiscal report of a period",
     .id = "period-report",
     .early = 1,
     .layout = kPeriod,
     .moment = Moment::NoDocument,
     .accept = AllowPrintout,
     .execute = PrintPeriod<false>},
    {.code = 0x31,
     .name = "report of a month or of numbers",
     .id = "memory-report",
     .early = 1,
     .late = 1,
     .layout = kFromMemory,
     .models = kReportsMonths,
     .moment = Moment::NoDocument,
     .accept = AllowPrintout,
     .execute = ReportFromMemory},
    {.code = 0xD9,
     .name = "number of the last daily report",
     .id = "report-number",
     .early = 3,
     .moment = Moment::NoReceipt,
     .accept = ReportNumber},
};

}  // namespace

std::span<const Command> ReportCommands() {
    return kCommands;
}

}  // namespace sim
