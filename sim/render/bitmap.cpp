#include "sim/render/bitmap.h"

#include <utility>

#include "sim/render/font.h"

namespace sim {
namespace {

class BitmapCanvas final : public Canvas {
  public:
    void Sign(int x, int y, char16_t sign, int width) override {
        const Glyph& glyph = GlyphOf(sign);
        for (int row = 0; row < kSignHeight; ++row)
            for (int column = 0; column < kSignWidth; ++column)
                if (glyph.Black(column, row)) Black(x + column * width, y + row, width, 1);
    }

    void Black(int x, int y, int width, int height) override {
        const auto end = static_cast<std::size_t>(y + height) * Bitmap::kRowBytes;
        if (rows_.size() < end) rows_.resize(end);
        for (int row = y; row < y + height; ++row)
            for (int column = x; column < x + width; ++column) {
                const auto byte = static_cast<std::size_t>(row) * Bitmap::kRowBytes +
                                  static_cast<std::size_t>(column / 8);
                rows_[byte] |= static_cast<std::uint8_t>(0x80 >> column % 8);
            }
    }

    Bitmap Finish(int height) {
        rows_.resize(static_cast<std::size_t>(height) * Bitmap::kRowBytes);
        return {height, std::move(rows_)};
    }

  private:
    std::vector<std::uint8_t> rows_;
};

}  // namespace

Bitmap RenderBitmap(std::span<const PaperElement> paper) {
    BitmapCanvas canvas;
    const int height = DrawSheet(paper, canvas);
    return canvas.Finish(height);
}

}  // namespace sim
