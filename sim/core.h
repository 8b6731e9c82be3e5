// The inside of the device: what it is, what it remembers, and the steps that all its commands
// share.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sim/cancellation.h"
#include "sim/device.h"
#include "sim/display.h"
#include "sim/model.h"
#include "sim/printer.h"
#include "sim/receipt.h"

namespace sim {

/// The non-fiscal document being printed: one of free lines, or the control of articles' rates.
enum class PrintoutKind { None, Lines, Control };
struct Printout {
    PrintoutKind kind = PrintoutKind::None;
    bool open() const { return kind != PrintoutKind::None; }
};

/// A line of the footer as the host wrote it. It may change once between two daily reports that
/// have receipts.
struct FooterLine {
    Bytes text;
    bool changed = false;
};

/// The logo in force, and the one that is arriving row by row.
struct LogoMemory {
    std::optional<Logo> complete;
    Logo coming;
    std::size_t next = 0;  // row that has to come next
    bool changed = false;
};

class Core {
  public:
    /// Throws std::invalid_argument for options that no device has.
    explicit Core(const DeviceOptions& options);

    bool Is(const ModelSet& models) const { return models.Has(options.type, version); }

    /// A text of the host in the device's code page, and one that is always in code page 852 where
    /// the device's own page can be another.
    std::string Text(std::span<const std::uint8_t> text) const;
    std::string AdditionalText(std::span<const std::uint8_t> text) const;

    std::chrono::sys_seconds clock() const;
    /// Of the last daily report, 0 before the first.
    int report_number() const { return daily_reports.empty() ? 0 : daily_reports.back().number; }

    /// A line of the footer, without blanks at its end.
    std::string FooterText(std::size_t line) const;

    /// Puts new rates in force, as far as the device's table can hold them. Articles are remembered
    /// by their rates, so they are forgotten.
    void SetRates(const VatRates& new_rates);

    /// Counts a document and prints what every document begins with.
    void BeginDocument();
    /// Cancels the open receipt, if there is one.
    void Cancel(Reason reason);
    /// Adds a remark to the exchange being watched.
    void Note(std::string_view remark);

    const DeviceOptions options;
    const Model& model;
    const int version;
    const CodePage code_page;

    FaultPanel faults;
    Printer printer{faults};
    std::chrono::milliseconds now{};  // since the device was switched on

    VatRates rates;
    std::map<std::string, Article> articles;

    Receipt receipt;
    std::chrono::milliseconds receipt_opened{};
    Reason cancellation = Reason::None;  // of the last receipt
    int document_number = 0;
    std::uint16_t receipt_counter = 0;
    int cancelled_receipts = 0;
    RateAmounts day_totals{};
    std::vector<DailyReport> daily_reports;  // the fiscal memory

    std::chrono::minutes clock_shift{};                  // by the host
    std::optional<std::chrono::sys_days> clock_moved{};  // the day of the last move

    Printout printout;
    std::array<FooterLine, kFooterLines> footer;
    LogoMemory logo;
    Bytes last_setup;  // the last line of footer or logo, as it was sent
    Display display;
    std::array<int, kDrawers> drawers_opened{};
    std::map<int, UserLine> user_lines;
    CashierCodes cashier_codes;
    std::array<ConfigurationGroup, 256> configuration{};

    std::string note;
};

}  // namespace sim
