// Texts: from the device's single-byte code pages to UTF-8, and their width on paper.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sim/device.h"

namespace sim {

/// UTF-8 of a text in `page`. Control characters and undefined codes become U+FFFD, so that nothing
/// the host sends can steer the terminal that shows it.
std::string ToUtf8(std::span<const std::uint8_t> text, CodePage page);

/// Adds a character to a UTF-8 text.
void AppendUtf8(std::string& text, char16_t character);

/// Number of characters of a UTF-8 text.
std::size_t Width(std::string_view text);

/// The first `width` characters of a UTF-8 text.
std::string_view Cut(std::string_view text, std::size_t width);

/// The text without blanks at its end, or at both ends.
std::string_view TrimEnd(std::string_view text);
std::string_view Trim(std::string_view text);

/// The text in capitals, Polish letters included.
std::string Upper(std::string_view text);

/// The text in lines of at most `width` characters, broken at blanks where there are any.
std::vector<std::string> Wrap(std::string_view text, std::size_t width);

/// Number of characters that count as significant in an article's name: letters, Polish letters,
/// digits and , . % / \.
std::size_t SignificantCharacters(std::string_view text);

}  // namespace sim
