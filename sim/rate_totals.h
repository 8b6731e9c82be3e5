// Amounts per rate: their sums, the tax in them, and how they are printed.
#pragma once

#include <cstddef>
#include <cstdint>

#include "sim/printer.h"

namespace sim {

constexpr std::size_t Index(int rate) {
    return static_cast<std::size_t>(rate);
}

std::int64_t Sum(const RateAmounts& amounts);

/// Quotient of numbers that are not negative, rounded half up.
std::int64_t DivideRounded(std::int64_t number, std::int64_t divisor);

/// The tax in gross amounts.
std::int64_t TaxIn(std::int64_t gross, int rate_value);
RateAmounts TaxesIn(const RateAmounts& gross, const VatRates& rates);

/// A line or two for every rate with sales, then the sum of the tax.
void PrintRateTotals(Printer& printer, LineKind kind, const RateAmounts& totals,
                     const VatRates& rates);

}  // namespace sim
