#include "sim/logo.h"

#include <algorithm>

#include "sim/code_page.h"

namespace sim {
namespace {

constexpr int kWidth = 192;
constexpr int kHeight = 64;

// The width of the paper in dots, and as many rows of them as keep the logo's proportions.
constexpr int kPaperWidth = 2 * kPaperColumns;
constexpr int kPaperHeight = (kHeight * kPaperWidth + kWidth - 1) / kWidth;
constexpr int kPaperLines = (kPaperHeight + 3) / 4;

bool Black(const Logo& logo, int x, int y) {
    const auto& row = logo.rows[static_cast<std::size_t>(y)];
    return (row[static_cast<std::size_t>(x / 8)] >> (7 - x % 8) & 1) != 0;
}

// A dot on the paper stands for several of the logo; it is black when a third of them are, so that
// thin lines stay.
bool BlackOnPaper(const Logo& logo, int x, int y) {
    const int left = x * kWidth / kPaperWidth, right = (x + 1) * kWidth / kPaperWidth;
    const int top = y * kWidth / kPaperWidth;
    const int bottom = std::min((y + 1) * kWidth / kPaperWidth, kHeight);
    int black = 0;
    for (int row = top; row < bottom; ++row)
        for (int column = left; column < right; ++column) black += Black(logo, column, row);
    return black > 0 && 3 * black >= (right - left) * (bottom - top);
}

// Braille characters have a bit for each of their dots.
constexpr int kBrailleBits[4][2] = {{0x01, 0x08}, {0x02, 0x10}, {0x04, 0x20}, {0x40, 0x80}};
constexpr int kBrailleBase = 0x2800;

char16_t Cell(const Logo& logo, int column, int line) {
    int bits = 0;
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 2; ++x)
            if (BlackOnPaper(logo, 2 * column + x, 4 * line + y)) bits |= kBrailleBits[y][x];
    return bits == 0 ? u' ' : static_cast<char16_t>(kBrailleBase + bits);
}

}  // namespace

std::vector<std::string> AsLines(const Logo& logo) {
    std::vector<std::string> lines;
    for (int line = 0; line < kPaperLines; ++line) {
        std::string text;
        for (int column = 0; column < kPaperColumns; ++column)
            AppendUtf8(text, Cell(logo, column, line));
        lines.push_back(std::move(text));
    }
    return lines;
}

std::string AsPbm(const Logo& logo) {
    std::string file = "P4\n192 64\n";
    for (const auto& row : logo.rows) file.append(row.begin(), row.end());
    return file;
}

}  // namespace sim
