#include "sim/reports.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <span>
#include <string>
#include <vector>

#include "sim/rate_totals.h"
#include "sim/vat_table.h"

namespace sim {
namespace {

void PrintTitle(Core& core, const std::string& title) {
    core.BeginDocument();
    core.printer.Centred(LineKind::Report, title, Letters::Wide);
}

void PrintEnd(Core& core) {
    core.printer.Rule(LineKind::Report);
    core.printer.Columns(LineKind::Report, core.fiscal().unique_number,
                         fmt::format("{:%Y-%m-%d %H:%M}", core.clock()));
    core.printer.EndDocument(LineKind::Report);
}

void PrintNumber(Core& core, const char* label, std::int64_t number) {
    core.printer.Columns(LineKind::Report, label, std::to_string(number));
}

void PrintRates(Core& core, const VatRates& rates) {
    for (int rate = 0; rate < kRates; ++rate)
        core.printer.Columns(LineKind::Report, fmt::format("PTU {}", RateLetter(rate)),
                             RateText(rates[Index(rate)]));
}

// What the host has changed of the footer and the logo since receipts were printed last.
std::vector<std::string> ChangesToPrint(const Core& core) {
    const WorkingMemory& working = core.working();
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < working.footer.size(); ++i)
        if (working.footer[i].changed)
            lines.push_back(fmt::format("Zmiana stopki {}: {}", i + 1, core.FooterText(i)));
    if (working.logo.changed) lines.emplace_back("Zmiana logo");
    return lines;
}

// After the report they may change again.
void AllowChanges(const WorkingMemory& working, Change& change) {
    for (std::size_t i = 0; i < working.footer.size(); ++i)
        if (working.footer[i].changed) change.footer[i] = {.text = working.footer[i].text};
    if (working.logo.changed) change.logo = LogoMemory{.complete = working.logo.complete};
}

DailyReport Today(const Core& core) {
    return {.number = core.fiscal().report_number() + 1,
            .made = core.clock(),
            .receipts = core.working().counters.receipts,
            .cancelled_receipts = core.working().counters.cancelled_receipts,
            .totals = core.working().counters.totals,
            .rates = core.fiscal().rates};
}

// The counters of the new day.
Counters CleanCounters(const Counters& counters) {
    return {.documents = counters.documents, .cancellation = counters.cancellation};
}

// Sums of several reports. The tax is added up, as the rates may have changed in between.
struct Sums {
    RateAmounts totals{};
    std::int64_t tax = 0;
    std::int64_t receipts = 0;
    std::int64_t cancelled_receipts = 0;

    void Add(const DailyReport& report) {
        for (std::size_t i = 0; i < totals.size(); ++i) totals[i] += report.totals[i];
        tax += Sum(TaxesIn(report.totals, report.rates));
        receipts += report.receipts;
        cancelled_receipts += report.cancelled_receipts;
    }
};

void PrintSums(Core& core, const Sums& sums) {
    Printer& printer = core.printer;
    for (int rate = 0; rate < kRates; ++rate)
        if (const std::int64_t total = sums.totals[Index(rate)]; total != 0)
            printer.Columns(LineKind::Report, fmt::format("Sprzedaż {}", RateLetter(rate)),
                            Money(total));
    printer.Columns(LineKind::Report, "SUMA PTU", Money(sums.tax));
    printer.Columns(LineKind::Report, "SPRZEDAŻ RAZEM", Money(Sum(sums.totals)));
    PrintNumber(core, "Paragony", sums.receipts);
    PrintNumber(core, "Paragony anulowane", sums.cancelled_receipts);
}

void PrintFromMemory(Core& core, bool fiscal, const std::string& range,
                     std::span<const DailyReport> reports) {
    PrintTitle(core, fiscal ? "RAPORT FISKALNY OKRESOWY" : "NIEFISKALNY RAPORT OKRESOWY");
    core.printer.Centred(LineKind::Report, range);
    core.printer.Rule(LineKind::Report);
    Sums sums;
    for (const DailyReport& report : reports) {
        sums.Add(report);
        if (fiscal)
            core.printer.Columns(LineKind::Report,
                                 fmt::format("{:04} {:%Y-%m-%d}", report.number, report.made),
                                 Money(Sum(report.totals)));
    }
    if (fiscal) core.printer.Rule(LineKind::Report);
    PrintSums(core, sums);
    PrintEnd(core);
}

template <typename Wanted>
std::vector<DailyReport> FromMemory(const Core& core, Wanted wanted) {
    std::vector<DailyReport> reports;
    std::ranges::copy_if(core.fiscal().daily_reports, std::back_inserter(reports), wanted);
    return reports;
}

ReportResult ReportDays(Core& core, bool fiscal, std::chrono::sys_days first,
                        std::chrono::sys_days last) {
    const auto reports = FromMemory(core, [&](const DailyReport& report) {
        const auto day = std::chrono::floor<std::chrono::days>(report.made);
        return day >= first && day <= last;
    });
    if (reports.empty()) return ReportResult::NoReports;
    PrintFromMemory(core, fiscal, fmt::format("{:%Y-%m-%d} - {:%Y-%m-%d}", first, last), reports);
    return ReportResult::Printed;
}

void PrintDailyReport(Core& core, const DailyReport& report,
                      const std::vector<std::string>& changes) {
    Printer& printer = core.printer;
    core.PrintHead();
    printer.Centred(LineKind::Report, "RAPORT FISKALNY DOBOWY", Letters::Wide);
    printer.Centred(LineKind::Report, fmt::format("nr {:04}", report.number));
    printer.Rule(LineKind::Report);
    PrintRates(core, report.rates);
    printer.Rule(LineKind::Report);
    PrintRateTotals(printer, LineKind::Report, report.totals, report.rates);
    printer.Columns(LineKind::Report, "SPRZEDAŻ RAZEM", Money(Sum(report.totals)));
    PrintNumber(core, "Paragony", report.receipts);
    PrintNumber(core, "Paragony anulowane", report.cancelled_receipts);
    for (const std::string& change : changes) printer.Text(LineKind::Report, change);
    PrintEnd(core);
}

}  // namespace

bool DailyReportDue(const Core& core) {
    const auto sales_since = core.working().counters.sales_since;
    return sales_since && *sales_since < core.today();
}

bool MakeDailyReport(Core& core) {
    const DailyReport report = Today(core);
    const std::vector<std::string> changes = ChangesToPrint(core);
    Change change{.counters = CleanCounters(core.working().counters), .report = report};
    ++change.counters->documents;
    AllowChanges(core.working(), change);
    if (!core.Commit(Point::DailyReport, change)) return false;
    core.faults.pending_daily_report = false;
    PrintDailyReport(core, report, changes);
    return true;
}

ReportResult ReportPeriod(Core& core, bool fiscal, std::optional<std::chrono::sys_days> first,
                          std::optional<std::chrono::sys_days> last) {
    if (!first || !last || *first > *last) return ReportResult::WrongDates;
    return ReportDays(core, fiscal, *first, *last);
}

ReportResult ReportMonth(Core& core, bool fiscal, int year, int month) {
    using namespace std::chrono;
    const year_month wanted{std::chrono::year{year},
                            std::chrono::month{static_cast<unsigned>(month)}};
    if (!wanted.ok()) return ReportResult::WrongDates;
    const year_month_day today{floor<days>(core.clock())};
    if (wanted >= today.year() / today.month()) return ReportResult::UnfinishedMonth;
    return ReportDays(core, fiscal, sys_days{wanted / 1}, sys_days{wanted / std::chrono::last});
}

ReportResult ReportNumbers(Core& core, bool fiscal, int first, int last) {
    if (core.fiscal().daily_reports.empty()) return ReportResult::NoReports;
    if (first < 1 || first > last || last > core.fiscal().report_number())
        return ReportResult::WrongNumbers;
    const auto reports = FromMemory(core, [&](const DailyReport& report) {
        return report.number >= first && report.number <= last;
    });
    if (reports.empty()) return ReportResult::NoReports;
    PrintFromMemory(core, fiscal, fmt::format("nr {:04} - {:04}", first, last), reports);
    return ReportResult::Printed;
}

void ReportLockedArticles(Core& core) {
    PrintTitle(core, "RAPORT TOWARÓW ZABLOKOWANYCH");
    core.printer.Rule(LineKind::Report);
    std::int64_t locked = 0;
    for (const auto& [name, article] : core.working().articles) {
        if (!article.rate_lowered) continue;
        ++locked;
        core.printer.Columns(LineKind::Report, name, std::string(1, RateLetter(article.rate)));
    }
    PrintNumber(core, "Towary zablokowane", locked);
    PrintEnd(core);
}

void ReportState(Core& core) {
    PrintTitle(core, "STAN DRUKARKI");
    core.printer.Rule(LineKind::Report);
    PrintNumber(core, "Wersja programu", core.version);
    PrintRates(core, core.fiscal().rates);
    PrintNumber(core, "Raporty dobowe",
                static_cast<std::int64_t>(core.fiscal().daily_reports.size()));
    PrintNumber(core, "Paragony od raportu dobowego", core.working().counters.receipts);
    PrintNumber(core, "Towary w bazie", static_cast<std::int64_t>(core.working().articles.size()));
    PrintEnd(core);
}

}  // namespace sim
