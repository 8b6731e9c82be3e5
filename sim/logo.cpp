#include "sim/logo.h"

#include <string_view>

namespace sim {
namespace {

constexpr int kWidth = 192;
constexpr int kHeight = 64;
// The logo fills four fifths of the paper's width.
constexpr int kScale = 2;

constexpr int kFiscalScale = 3;
// Strokes begin at even places, so that the small picture in a text keeps them.
constexpr std::string_view kFiscalRows[] = {
    "####################################", "####################################",
    "##                                ##", "##                                ##",
    "##      ########      ##          ##", "##      ########      ##          ##",
    "##      ##      ##    ##          ##", "##      ##      ##    ##          ##",
    "##      ##      ##    ##          ##", "##      ##      ##    ##          ##",
    "##      ########      ##          ##", "##      ########      ##          ##",
    "##      ##            ##          ##", "##      ##            ##          ##",
    "##      ##            ##          ##", "##      ##            ##          ##",
    "##      ##            ##          ##", "##      ##            ##          ##",
    "##      ##            ########    ##", "##      ##            ########    ##",
    "##                                ##", "##                                ##",
    "####################################", "####################################",
};

Dots DrawFiscalLogo() {
    Dots dots{.width = static_cast<int>(kFiscalRows[0].size()),
              .height = static_cast<int>(std::size(kFiscalRows)),
              .scale = kFiscalScale};
    const std::size_t row_bytes = (kFiscalRows[0].size() + 7) / 8;
    for (const std::string_view row : kFiscalRows) {
        const std::size_t start = dots.rows.size();
        dots.rows.resize(start + row_bytes);
        for (std::size_t x = 0; x < row.size(); ++x)
            if (row[x] == '#') dots.rows[start + x / 8] |= static_cast<std::uint8_t>(0x80 >> x % 8);
    }
    return dots;
}

}  // namespace

Dots AsDots(const Logo& logo) {
    Dots dots{.width = kWidth, .height = kHeight, .scale = kScale};
    for (const auto& row : logo.rows) dots.rows.insert(dots.rows.end(), row.begin(), row.end());
    return dots;
}

const Dots& FiscalLogo() {
    static const Dots kLogo = DrawFiscalLogo();
    return kLogo;
}

std::string AsPbm(const Logo& logo) {
    std::string file = "P4\n192 64\n";
    for (const auto& row : logo.rows) file.append(row.begin(), row.end());
    return file;
}

}  // namespace sim
