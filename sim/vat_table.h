// The rates on the line: how each generation of the table codes them, and the numbers of rates.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "sim/device.h"
#include "sim/model.h"

namespace sim {

/// Length of a coded table: two bytes a rate, or one in the table of four.
constexpr int CodedLength(RateTable table) {
    return static_cast<int>(table) * (table == RateTable::Four ? 1 : 2);
}

Bytes EncodeRates(RateTable table, const VatRates& rates);
/// Whether all the codes stand for rates: none is above 100 %.
bool AreRates(RateTable table, std::span<const std::uint8_t> bytes);
/// The rates that the table does not hold are unused, except rate G, which is exempt.
VatRates DecodeRates(RateTable table, std::span<const std::uint8_t> bytes);

/// What a device with this table can hold of the rates given. Where the table has no rate G, it is
/// exempt or unused.
VatRates HeldRates(RateTable table, const VatRates& rates);

/// Whether any of the rates that the table holds is in use.
bool AnyRateInUse(RateTable table, const VatRates& rates);

/// Index of the rate (0 is A) that a number in a sequence stands for. 1 to 4 are A to D; 5 is G and
/// 6 and 7 are E and F, because the oldest devices have G as their fifth rate.
std::optional<int> RateOfNumber(std::uint8_t number);
/// The number of a rate.
std::uint8_t NumberOfRate(int rate);

constexpr char RateLetter(int rate) {
    return static_cast<char>('A' + rate);
}

/// "23,00 %", "zw." or "-".
std::string RateText(int rate_value);

}  // namespace sim
