// Texts inside the data of commands.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>

#include "sim/code_page.h"
#include "sim/core.h"

namespace sim {

/// Whether a text is free of control characters.
inline bool IsPrintable(std::span<const std::uint8_t> text) {
    return std::ranges::all_of(text, [](std::uint8_t byte) { return byte >= ' '; });
}

/// A text without the blanks that fill up its field.
inline std::string TextOf(const Core& core, std::span<const std::uint8_t> text) {
    return std::string(TrimEnd(core.Text(text)));
}

}  // namespace sim
