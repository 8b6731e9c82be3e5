#include "sim/storage.h"

#include "sim/model.h"
#include "sim/vat_table.h"

namespace sim {
namespace {

constexpr VatRates kDefaultRates = {2300, 800, 500, 0, kRateUnused, kRateUnused, kRateExempt};

}  // namespace

Memory NewMemory(const DeviceOptions& options) {
    const RateTable table = ModelOf(CheckedOptions(options).type).rate_table;
    Memory memory;
    memory.fiscal.unique_number = options.unique_number;
    memory.fiscal.rates = HeldRates(table, options.vat_rates.value_or(kDefaultRates));
    memory.fiscal.daily_reports = options.daily_reports;
    return memory;
}

void Apply(const Change& change, Memory& memory) {
    WorkingMemory& working = memory.working;
    if (change.erased) working = {};
    if (change.articles_forgotten) working.articles.clear();
    if (change.counters) working.counters = *change.counters;
    if (change.clock) working.clock = *change.clock;
    for (const auto& [name, article] : change.articles) working.articles[name] = article;
    for (const auto& [line, text] : change.footer) working.footer.at(line) = text;
    if (change.logo) working.logo = *change.logo;
    for (const auto& [line, text] : change.user_lines) working.user_lines[line] = text;
    if (change.cashier_codes) working.cashier_codes = *change.cashier_codes;
    for (const auto& [number, group] : change.configuration)
        working.configuration.at(number) = group;
    if (change.rates) memory.fiscal.rates = *change.rates;
    if (change.report) memory.fiscal.daily_reports.push_back(*change.report);
}

}  // namespace sim
