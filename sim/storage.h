// How the memory changes: at named points, by a value that holds what is new and nothing else, so
// that keeping it costs as much as the change and not as much as the memory.
#pragma once

#include <cstddef>
#include <map>
#include <optional>

#include "sim/fiscal_memory.h"
#include "sim/working_memory.h"

namespace sim {

/// All that outlives being switched off. A device can be made from it.
struct Memory {
    FiscalMemory fiscal;
    WorkingMemory working;
};

/// The memory of a new device. Throws std::invalid_argument for options that no device has.
Memory NewMemory(const DeviceOptions& options);

enum class Point {
    ReceiptBegun,
    Item,
    Discount,
    Total,
    Payment,
    AdditionalLine,
    Package,
    Buyer,
    ReceiptEnded,
    ReceiptCancelled,
    Document,
    DailyReport,
    Rates,
    FooterLine,
    Logo,
    UserLine,
    Codes,
    Configuration,
    Clock,
    Erased,
};

/// What is new at a point. What a receipt holds is no part of it: when the device goes off inside a
/// receipt, the receipt is void whatever it held, and the counters tell that one was open.
struct Change {
    bool erased = false;              // the whole working memory, before all that follows
    bool articles_forgotten = false;  // before `articles`
    std::optional<Counters> counters{};
    std::optional<ClockSetting> clock{};
    Articles articles{};                         // new and changed ones
    std::map<std::size_t, FooterLine> footer{};  // by line
    std::optional<LogoMemory> logo{};
    std::map<int, UserLine> user_lines{};  // by line
    std::optional<CashierCodes> cashier_codes{};
    std::map<std::size_t, ConfigurationGroup> configuration{};  // by group
    std::optional<VatRates> rates{};
    std::optional<DailyReport> report{};
};

/// Makes the change in a memory.
void Apply(const Change& change, Memory& memory);

/// Where changes are kept. This one keeps none: the memory lives as long as the device.
class Storage {
  public:
    virtual ~Storage() = default;
    /// Keeps a change before the device answers for it; returns false, having kept nothing of it,
    /// when there is no room.
    virtual bool Save(Point, const Change&) { return true; }
    /// Whether the next change is likely to find room. A command whose data have no answer is
    /// refused by this before they come.
    virtual bool HasRoom() const { return true; }
};

}  // namespace sim
