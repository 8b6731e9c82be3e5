#include "sim/vat_table.h"

#include <algorithm>

#include "sim/printer.h"

namespace sim {
namespace {

// Codes of two-byte rates, high byte first. The table of six has no code for an exempt rate, and
// takes everything above 0xFEFF for unused.
constexpr int kSevenUnused = 0x8000;
constexpr int kSevenExempt = 0x4000;
constexpr int kSixUnused = 0xFF00;
constexpr int kFourUnused = 255;

int Code(RateTable table, int rate) {
    switch (table) {
        case RateTable::Four:
            return rate == kRateUnused ? kFourUnused : rate / 100;
        case RateTable::Six:
            return rate == kRateUnused ? kSixUnused : rate;
        case RateTable::Seven:
            break;
    }
    if (rate == kRateUnused) return kSevenUnused;
    return rate == kRateExempt ? kSevenExempt : rate;
}

int RateOfCode(RateTable table, int code) {
    switch (table) {
        case RateTable::Four:
            return code == kFourUnused ? kRateUnused : code * 100;
        case RateTable::Six:
            return code >= kSixUnused ? kRateUnused : code;
        case RateTable::Seven:
            break;
    }
    if (code == kSevenUnused) return kRateUnused;
    return code == kSevenExempt ? kRateExempt : code;
}

int CodeAt(RateTable table, std::span<const std::uint8_t> bytes, std::size_t rate) {
    return table == RateTable::Four ? bytes[rate] : bytes[2 * rate] << 8 | bytes[2 * rate + 1];
}

// 100 % itself is how the rates' users write the exempt rate where the table has no code for it.
bool IsCode(RateTable table, int code) {
    switch (table) {
        case RateTable::Four:
            return code <= 100 || code == kFourUnused;
        case RateTable::Six:
            return code <= kRateExempt || code >= kSixUnused;
        case RateTable::Seven:
            break;
    }
    return code <= kRateExempt || code == kSevenExempt || code == kSevenUnused;
}

// Commands number the rates from 1; the exempt one, G, comes before E and F.
constexpr int kRateByNumber[] = {0, 1, 2, 3, 6, 4, 5};

}  // namespace

Bytes EncodeRates(RateTable table, const VatRates& rates) {
    Bytes bytes;
    for (std::size_t i = 0; i < static_cast<std::size_t>(table); ++i) {
        const int code = Code(table, rates[i]);
        if (table != RateTable::Four) bytes.push_back(static_cast<std::uint8_t>(code >> 8));
        bytes.push_back(static_cast<std::uint8_t>(code));
    }
    return bytes;
}

bool AreRates(RateTable table, std::span<const std::uint8_t> bytes) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(table); ++i)
        if (!IsCode(table, CodeAt(table, bytes, i))) return false;
    return true;
}

VatRates DecodeRates(RateTable table, std::span<const std::uint8_t> bytes) {
    VatRates rates;
    rates.fill(kRateUnused);
    rates.back() = kRateExempt;
    for (std::size_t i = 0; i < static_cast<std::size_t>(table); ++i)
        rates[i] = RateOfCode(table, CodeAt(table, bytes, i));
    return rates;
}

VatRates HeldRates(RateTable table, const VatRates& rates) {
    VatRates held = DecodeRates(table, EncodeRates(table, rates));
    if (table != RateTable::Seven && rates.back() == kRateUnused) held.back() = kRateUnused;
    return held;
}

bool AnyRateInUse(RateTable table, const VatRates& rates) {
    return std::any_of(rates.begin(), rates.begin() + static_cast<int>(table),
                       [](int rate) { return rate != kRateUnused; });
}

std::optional<int> RateOfNumber(std::uint8_t number) {
    if (number < 1 || number > kRates) return std::nullopt;
    return kRateByNumber[number - 1];
}

std::uint8_t NumberOfRate(int rate) {
    return static_cast<std::uint8_t>(std::ranges::find(kRateByNumber, rate) - kRateByNumber + 1);
}

std::string RateText(int rate_value) {
    if (rate_value == kRateUnused) return "-";
    return rate_value == kRateExempt ? "zw." : Money(rate_value) + " %";
}

}  // namespace sim
