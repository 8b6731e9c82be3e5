#include "sim/display.h"

#include <fmt/format.h>

#include "sim/code_page.h"

namespace sim {
namespace {

constexpr std::size_t kNumbers = 10;
constexpr std::size_t kShortText = 9;
constexpr std::size_t kLongText = 20;

std::size_t Places(DisplayKind kind) {
    switch (kind) {
        case DisplayKind::None:
            return 0;
        case DisplayKind::OneLine:
            return 1;
        case DisplayKind::Numbered:
            return kNumbers;
        case DisplayKind::TwoLines:
            return 2;
    }
    return 0;
}

}  // namespace

Display::Display(DisplayKind kind) : kind_(kind), texts_(Places(kind)) {}

std::string Display::OneLineText() const {
    std::string line;
    for (std::size_t i = 0; i < texts_.size(); ++i) {
        if (kind_ == DisplayKind::Numbered && texts_[i].empty()) continue;
        if (i > 0 && !line.empty()) line += " | ";
        if (kind_ == DisplayKind::Numbered) line += fmt::format("{}: ", i);
        line += texts_[i];
    }
    return std::string(TrimEnd(line));
}

bool Display::Show(int place, std::string_view text) {
    if (place < 0 || static_cast<std::size_t>(place) >= texts_.size()) return false;
    const std::size_t width = kind_ == DisplayKind::TwoLines ? kLongText : kShortText;
    texts_[static_cast<std::size_t>(place)] = TrimEnd(Cut(text, width));
    return true;
}

void Display::Clear() {
    for (std::string& text : texts_) text.clear();
}

}  // namespace sim
