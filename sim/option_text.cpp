#include "sim/option_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>
#include <vector>

#include "sim/model.h"
#include "sim/rate_totals.h"
#include "sim/vat_table.h"

namespace sim {
namespace {

template <typename... Arguments>
[[noreturn]] void Complain(fmt::format_string<Arguments...> text, Arguments&&... arguments) {
    throw std::invalid_argument(fmt::format(text, std::forward<Arguments>(arguments)...));
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::vector<std::string_view> SplitAtCommas(std::string_view text) {
    std::vector<std::string_view> parts;
    for (std::size_t comma = text.find(','); comma != text.npos; comma = text.find(',')) {
        parts.push_back(text.substr(0, comma));
        text.remove_prefix(comma + 1);
    }
    parts.push_back(text);
    return parts;
}

// Hundredths of a percentage below 1000.
std::optional<int> HundredthsOf(std::string_view text) {
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::string_view whole = text.substr(0, point);
    const std::string_view fraction = text.substr(std::min(point + 1, text.size()));
    const bool fraction_missing = point < text.size() && fraction.empty();
    if (whole.empty() || whole.size() > 3 || fraction.size() > 2 || fraction_missing ||
        !std::ranges::all_of(whole, IsDigit) || !std::ranges::all_of(fraction, IsDigit))
        return std::nullopt;
    const std::string digits = std::string(whole) + std::string(fraction);
    return std::stoi(digits + std::string(2 - fraction.size(), '0'));
}

int PercentFromText(int type, char letter, std::string_view text) {
    const std::optional<int> rate = HundredthsOf(text);
    if (!rate)
        Complain(
            "rate {} is \"{}\"; it has to be a percentage with at most two decimals, "
            "\"exempt\" or \"-\"",
            letter, text);
    if (*rate > kRateExempt) Complain("rate {} is {} %, above 100 %", letter, text);
    if (ModelOf(type).rate_table == RateTable::Four && *rate % 100 != 0)
        Complain("rate {} is {} %, but device type {} holds whole percents only", letter, text,
                 type);
    return *rate;
}

int RateFromText(int type, int rate, std::string_view text) {
    const char letter = RateLetter(rate);
    const int held = static_cast<int>(ModelOf(type).rate_table);
    const bool fixed = rate >= held;  // the table does not hold it
    const bool last = rate == kRates - 1;
    if (text == "-") return kRateUnused;
    if (text == "exempt" && (held == kRates || last)) return kRateExempt;
    if (fixed && last)
        Complain(R"(rate G is "{}"; on device type {} it is "exempt" or "-")", text, type);
    if (fixed)
        Complain(R"(rate {} is "{}"; device type {} does not have it: "-")", letter, text, type);
    if (text == "exempt")
        Complain("rate {} cannot be exempt on device type {}, only G", letter, type);
    return PercentFromText(type, letter, text);
}

// A number of so many digits at a place of a text.
int NumberAt(std::string_view text, std::size_t place, std::size_t digits) {
    int number = 0;
    for (const char digit : text.substr(place, digits)) number = number * 10 + (digit - '0');
    return number;
}

bool LooksLike(std::string_view pattern, std::string_view text) {
    return std::ranges::equal(pattern, text, [](char expected, char c) {
        return expected == '0' ? IsDigit(c) : expected == c;
    });
}

}  // namespace

VatRates RatesFromText(int type, std::string_view text) {
    const std::vector<std::string_view> parts = SplitAtCommas(text);
    if (parts.size() != kRates)
        Complain("\"{}\" has {} rates; seven are needed, A to G", text, parts.size());
    VatRates rates{};
    for (int rate = 0; rate < kRates; ++rate)
        rates[Index(rate)] = RateFromText(type, rate, parts[Index(rate)]);
    return rates;
}

std::optional<std::chrono::sys_seconds> TimeFromText(std::string_view text) {
    using namespace std::chrono;
    if (!LooksLike("0000-00-00T00:00:00", text)) return std::nullopt;
    const year_month_day date{year{NumberAt(text, 0, 4)},
                              month{static_cast<unsigned>(NumberAt(text, 5, 2))},
                              day{static_cast<unsigned>(NumberAt(text, 8, 2))}};
    const hours hour{NumberAt(text, 11, 2)};
    const minutes minute{NumberAt(text, 14, 2)};
    const seconds second{NumberAt(text, 17, 2)};
    const bool told = date.year() >= year{2000} && date.year() <= year{2099};
    if (!date.ok() || !told || hour.count() > 23 || minute.count() > 59 || second.count() > 59)
        return std::nullopt;
    return sys_days{date} + hour + minute + second;
}

}  // namespace sim
