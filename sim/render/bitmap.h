// The paper as black and white dots.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "sim/render/layout.h"

namespace sim {

/// A sheet kPaperWidth dots wide. Rows of kRowBytes from the top; the leftmost dot of a byte is
/// its highest bit and 1 is black.
struct Bitmap {
    static constexpr std::size_t kRowBytes = (kPaperWidth + 7) / 8;

    int height = 0;
    std::vector<std::uint8_t> rows{};

    bool Black(int x, int y) const {
        const auto byte = static_cast<std::size_t>(y) * kRowBytes + static_cast<std::size_t>(x / 8);
        return (rows[byte] >> (7 - x % 8) & 1) != 0;
    }
};

Bitmap RenderBitmap(std::span<const PaperElement> paper);

}  // namespace sim
