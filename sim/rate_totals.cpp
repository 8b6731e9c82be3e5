#include "sim/rate_totals.h"

#include <fmt/format.h>

#include <numeric>

#include "sim/vat_table.h"

namespace sim {

std::int64_t Sum(const RateAmounts& amounts) {
    return std::accumulate(amounts.begin(), amounts.end(), std::int64_t{0});
}

std::int64_t DivideRounded(std::int64_t number, std::int64_t divisor) {
    return (2 * number + divisor) / (2 * divisor);
}

std::int64_t TaxIn(std::int64_t gross, int rate_value) {
    const bool taxed = rate_value != kRateExempt && rate_value != kRateUnused;
    return taxed ? DivideRounded(gross * rate_value, 10000 + rate_value) : 0;
}

RateAmounts TaxesIn(const RateAmounts& gross, const VatRates& rates) {
    RateAmounts taxes{};
    for (std::size_t i = 0; i < taxes.size(); ++i) taxes[i] = TaxIn(gross[i], rates[i]);
    return taxes;
}

void PrintRateTotals(Printer& printer, LineKind kind, const RateAmounts& totals,
                     const VatRates& rates) {
    const RateAmounts taxes = TaxesIn(totals, rates);
    for (int rate = 0; rate < kRates; ++rate) {
        const std::int64_t gross = totals[Index(rate)];
        const int rate_value = rates[Index(rate)];
        if (gross == 0) continue;
        const bool exempt = rate_value == kRateExempt;
        printer.Columns(
            kind,
            fmt::format("Sprzedaż {} {}", exempt ? "zwolniona" : "opodatkowana", RateLetter(rate)),
            Money(gross));
        if (exempt) continue;
        printer.Columns(kind, fmt::format("PTU {} {}", RateLetter(rate), RateText(rate_value)),
                        Money(taxes[Index(rate)]));
    }
    printer.Columns(kind, "SUMA PTU", Money(Sum(taxes)));
}

}  // namespace sim
