// Words of orders and scripts.
#pragma once

#include <charconv>
#include <chrono>
#include <optional>
#include <string_view>
#include <vector>

namespace sim {

/// The parts between separators, empty ones among them.
std::vector<std::string_view> Split(std::string_view text, char separator);
/// The words between blanks.
std::vector<std::string_view> Words(std::string_view text);

/// A number of digits alone that an int holds.
std::optional<int> NumberOf(std::string_view word);
/// "+3h", "-90m": days d, hours h, minutes m, seconds s.
std::optional<std::chrono::seconds> ClockShiftOf(std::string_view word);

}  // namespace sim
