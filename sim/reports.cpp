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
    core.printer.Centred(LineKind::Report, title);
}

void PrintEnd(Core& core) {
    core.printer.Rule(LineKind::Report);
    core.printer.Columns(LineKind::Report, core.options.unique_number,
                         fmt::format("{:%Y-%m-%d %H:%M}", core.clock()));
    core.printer.Text(LineKind::Report, "");
}

void PrintNumber(Core& core, const char* label, std::int64_t number) {
    core.printer.Columns(LineKind::Report, label, std::to_string(number));
}

void PrintRates(Core& core, const VatRates& rates) {
    for (int rate = 0; rate < kRates; ++rate)
        core.printer.Columns(LineKind::Report, fmt::format("PTU {}", RateLetter(rate)),
                             RateText(rates[Index(rate)]));
}

// What the host has changed of the footer and the logo since receipts were printed last. From now
// on it may be changed again.
void PrintChanges(Core& core) {
    for (std::size_t i = 0; i < core.footer.size(); ++i) {
        if (!core.footer[i].changed) continue;
        core.printer.Text(LineKind::Report,
                          fmt::format("Zmiana stopki {}: {}", i + 1, core.FooterText(i)));
        core.footer[i].changed = false;
    }
    if (core.logo.changed) core.printer.Text(LineKind::Report, "Zmiana logo");
    core.logo.changed = false;
}

DailyReport Today(const Core& core) {
    return {.number = core.report_number() + 1,
            .made = core.clock(),
            .receipts = core.receipt_counter,
            .cancelled_receipts = core.cancelled_receipts,
            .totals = core.day_totals,
            .rates = core.rates};
}

void BeginDay(Core& core) {
    core.receipt_counter = 0;
    core.cancelled_receipts = 0;
    core.day_totals = {};
    core.faults.pending_daily_report = false;
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
    std::ranges::copy_if(core.daily_reports, std::back_inserter(reports), wanted);
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

}  // namespace

void MakeDailyReport(Core& core) {
    const DailyReport report = Today(core);
    Printer& printer = core.printer;
    PrintTitle(core, "RAPORT FISKALNY DOBOWY");
    printer.Centred(LineKind::Report, fmt::format("nr {:04}", report.number));
    printer.Rule(LineKind::Report);
    PrintRates(core, report.rates);
    printer.Rule(LineKind::Report);
    PrintRateTotals(printer, LineKind::Report, report.totals, report.rates);
    printer.Columns(LineKind::Report, "SPRZEDAŻ RAZEM", Money(Sum(report.totals)));
    PrintNumber(core, "Paragony", report.receipts);
    PrintNumber(core, "Paragony anulowane", report.cancelled_receipts);
    PrintChanges(core);
    PrintEnd(core);
    core.daily_reports.push_back(report);
    BeginDay(core);
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
    if (core.daily_reports.empty()) return ReportResult::NoReports;
    if (first < 1 || first > last || last > core.report_number()) return ReportResult::WrongNumbers;
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
    for (const auto& [name, article] : core.articles) {
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
    PrintRates(core, core.rates);
    PrintNumber(core, "Raporty dobowe", static_cast<std::int64_t>(core.daily_reports.size()));
    PrintNumber(core, "Paragony od raportu dobowego", core.receipt_counter);
    PrintNumber(core, "Towary w bazie", static_cast<std::int64_t>(core.articles.size()));
    PrintEnd(core);
}

}  // namespace sim
