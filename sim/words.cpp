#include "sim/words.h"

#include <algorithm>
#include <array>

namespace sim {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    while (true) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

std::vector<std::string_view> Words(std::string_view text) {
    static constexpr std::string_view kBlanks = " \t\r";
    std::vector<std::string_view> words;
    while (true) {
        const std::size_t begin = text.find_first_not_of(kBlanks);
        if (begin == std::string_view::npos) return words;
        text.remove_prefix(begin);
        const std::size_t end = std::min(text.find_first_of(kBlanks), text.size());
        words.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
}

std::optional<int> NumberOf(std::string_view word) {
    if (word.empty() || !std::ranges::all_of(word, IsDigit)) return std::nullopt;
    int number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc{}) return std::nullopt;
    return number;
}

std::optional<std::chrono::seconds> ClockShiftOf(std::string_view word) {
    using namespace std::chrono_literals;
    static constexpr std::pair<char, std::chrono::seconds> kUnits[] = {
        {'d', 24h}, {'h', 1h}, {'m', 1min}, {'s', 1s}};
    static constexpr std::chrono::hours kMost = 24h * 36525;
    if (word.size() < 3 || (word[0] != '+' && word[0] != '-')) return std::nullopt;
    const std::optional<int> number = NumberOf(word.substr(1, word.size() - 2));
    for (const auto& [letter, unit] : kUnits) {
        if (!number || word.back() != letter) continue;
        const std::chrono::seconds shift = *number * unit;
        if (shift > kMost) return std::nullopt;
        return word[0] == '+' ? shift : -shift;
    }
    return std::nullopt;
}

}  // namespace sim
