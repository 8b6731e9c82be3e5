#include "sim/render/text.h"

#include <algorithm>

#include "sim/code_page.h"
#include "sim/render/layout.h"

namespace sim {
namespace {

constexpr std::size_t kColumns = kPaperColumns;

std::string Centred(std::string_view text) {
    text = Cut(text, kColumns);
    return std::string((kColumns - Width(text)) / 2, ' ') + std::string(text);
}

std::string Spaced(std::string_view text) {
    std::string spaced;
    for (; !text.empty(); text.remove_prefix(Cut(text, 1).size())) {
        spaced += Cut(text, 1);
        spaced += ' ';
    }
    return spaced;
}

// Braille characters have a bit for each of their dots.
constexpr int kBrailleRows = 4, kBrailleColumns = 2;
constexpr int kBrailleBits[kBrailleRows][kBrailleColumns] = {
    {0x01, 0x08}, {0x02, 0x10}, {0x04, 0x20}, {0x40, 0x80}};
constexpr int kBrailleBase = 0x2800;

// Dots of the printing unit along the side of a Braille character's dot.
constexpr int kBrailleDot = kSignWidth / kBrailleColumns;

int RoundedUp(int number, int divisor) {
    return (number + divisor - 1) / divisor;
}

// A picture at the size that it has on the paper. One of its dots as text stands for `side` by
// `side` of its own; it is black when a third of them are, so that thin lines stay.
class SmallPicture {
  public:
    explicit SmallPicture(const Dots& dots)
        : dots_(dots), side_(std::max(1, kBrailleDot / dots.scale)) {}

    int columns() const { return RoundedUp(dots_.width, side_ * kBrailleColumns); }
    int lines() const { return RoundedUp(dots_.height, side_ * kBrailleRows); }

    char16_t Cell(int column, int line) const {
        int bits = 0;
        for (int y = 0; y < kBrailleRows; ++y)
            for (int x = 0; x < kBrailleColumns; ++x)
                if (Black(kBrailleColumns * column + x, kBrailleRows * line + y))
                    bits |= kBrailleBits[y][x];
        return bits == 0 ? u' ' : static_cast<char16_t>(kBrailleBase + bits);
    }

  private:
    bool Black(int x, int y) const {
        const int right = std::min((x + 1) * side_, dots_.width);
        const int bottom = std::min((y + 1) * side_, dots_.height);
        int black = 0;
        for (int row = y * side_; row < bottom; ++row)
            for (int column = x * side_; column < right; ++column)
                black += dots_.Black(column, row);
        return black > 0 && 3 * black >= side_ * side_;
    }

    const Dots& dots_;
    int side_;
};

struct Lines {
    std::vector<std::string> operator()(const TextLine& line) const {
        return {line.width == 1 ? line.text : Spaced(line.text)};
    }
    std::vector<std::string> operator()(const RuleLine&) const {
        return {std::string(kColumns, '-')};
    }
    // No reader can do with bars as thick as characters: this says that there is a code, and which.
    std::vector<std::string> operator()(const BarCode& code) const {
        std::vector<std::string> lines{Centred("║▌│█║▌│║█▌║│║█│▌║")};
        lines.push_back(Centred(code.text));
        return lines;
    }
    std::vector<std::string> operator()(const Dots& dots) const {
        const SmallPicture picture(dots);
        std::vector<std::string> lines;
        for (int line = 0; line < picture.lines(); ++line) {
            std::string text;
            for (int column = 0; column < picture.columns(); ++column)
                AppendUtf8(text, picture.Cell(column, line));
            lines.push_back(Centred(text));
        }
        return lines;
    }
    std::vector<std::string> operator()(const FeedLines& feed) const {
        return std::vector<std::string>(static_cast<std::size_t>(feed.lines));
    }
    std::vector<std::string> operator()(const PaperCut&) const {
        std::string line;
        for (int i = 0; i < kPaperColumns / 2; ++i) line += "- ";
        return {line};
    }
};

}  // namespace

std::vector<std::string> TextLines(const PaperElement& element) {
    std::vector<std::string> lines = std::visit(Lines{}, element.content);
    for (std::string& line : lines) line.resize(TrimEnd(line).size());
    return lines;
}

std::string RenderText(std::span<const PaperElement> paper) {
    std::string text;
    for (const PaperElement& element : paper)
        for (const std::string& line : TextLines(element)) text += line + "\n";
    return text;
}

}  // namespace sim
