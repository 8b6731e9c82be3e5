// What the device keeps on its battery. A power cut leaves it, but for the receipt that was open;
// when the battery fails (the fault "cmos-erased") all of it is lost at once.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "sim/cancellation.h"
#include "sim/device.h"
#include "sim/receipt.h"

namespace sim {

/// Figures, most of them since the last daily report.
struct Counters {
    std::uint16_t receipts = 0;
    int cancelled_receipts = 0;
    RateAmounts totals{};
    std::optional<std::chrono::sys_days> sales_since{};  // the earliest day with a receipt
    int documents = 0;                                   // of any kind, never reset
    bool receipt_open = false;  // all that a power cut leaves of an open receipt: it is void
    Reason cancellation = Reason::None;  // of the last receipt
    bool operator==(const Counters&) const = default;
};

/// How the host has moved the clock.
struct ClockSetting {
    std::chrono::minutes shift{};
    std::optional<std::chrono::sys_days> moved{};  // the day of the last move
    bool operator==(const ClockSetting&) const = default;
};

/// A line of the footer as the host wrote it; a line that was never written is not printed. It may
/// change once between two daily reports that have receipts.
struct FooterLine {
    std::optional<Bytes> text{};
    bool changed = false;
    bool operator==(const FooterLine&) const = default;
};

/// The logo in force; it may change as often as a line of the footer.
struct LogoMemory {
    std::optional<Logo> complete{};
    bool changed = false;
    bool operator==(const LogoMemory&) const = default;
};

using Articles = std::map<std::string, Article>;

struct WorkingMemory {
    Counters counters;
    ClockSetting clock;
    Articles articles;
    std::array<FooterLine, kFooterLines> footer;
    LogoMemory logo;
    std::map<int, UserLine> user_lines;
    CashierCodes cashier_codes;
    std::array<ConfigurationGroup, 256> configuration{};

    /// The open receipt, else the last one, and the articles as the open one leaves them when it
    /// ends. Cancelling it drops them.
    Receipt receipt;
    Articles sold;
};

}  // namespace sim
