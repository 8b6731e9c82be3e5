// The printing unit's letters, as dots.
#pragma once

#include <array>
#include <cstdint>

#include "sim/render/layout.h"

namespace sim {

/// A sign of kSignWidth by kSignHeight dots; the highest of a row's kSignWidth bits is its leftmost
/// dot.
struct Glyph {
    std::array<std::uint16_t, kSignHeight> rows{};
    bool Black(int x, int y) const {
        return (rows[static_cast<std::size_t>(y)] >> (kSignWidth - 1 - x) & 1) != 0;
    }
};

/// Whether the font has a sign of its own for a character.
bool HasGlyph(char16_t character);
/// The sign of a character; an empty box for what the font does not have.
const Glyph& GlyphOf(char16_t character);

/// Calls `black(x, y, width, height)` for rectangles that together are the black dots of a picture.
/// Equal runs of dots in rows below each other make one rectangle.
template <typename IsBlack, typename Black>
void ForEachRectangle(int width, int height, IsBlack is_black, Black black) {
    const auto begins = [&](int x, int y) {
        return is_black(x, y) && (x == 0 || !is_black(x - 1, y));
    };
    const auto run = [&](int x, int y) {
        int end = x;
        while (end < width && is_black(end, y)) ++end;
        return end - x;
    };
    const auto same = [&](int x, int y, int length) { return begins(x, y) && run(x, y) == length; };
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            if (!begins(x, y)) continue;
            const int length = run(x, y);
            if (y > 0 && same(x, y - 1, length)) continue;
            int bottom = y + 1;
            while (bottom < height && same(x, bottom, length)) ++bottom;
            black(x, y, length, bottom - y);
        }
}

}  // namespace sim
