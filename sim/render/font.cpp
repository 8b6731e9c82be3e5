#include "sim/render/font.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <vector>

#include "sim/render/font_table.h"

namespace sim {
namespace {

using font::kCellHeight;
using font::kCellWidth;

// A sign as it is drawn in the table.
struct Shape {
    std::array<std::array<bool, kCellWidth>, kCellHeight> dots{};

    bool At(int x, int y) const {
        return x >= 0 && x < kCellWidth && y >= 0 && y < kCellHeight &&
               dots[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
    }
    void Blacken(std::size_t x, std::size_t y) { dots[y][x] = true; }
};

std::vector<std::u16string_view> LinesOf(std::u16string_view text) {
    std::vector<std::u16string_view> lines;
    while (!text.empty()) {
        const std::size_t end = text.find(u'\n');
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    return lines;
}

std::map<char16_t, Shape> ReadSheet() {
    std::map<char16_t, Shape> shapes;
    shapes[u' '] = {};
    const auto lines = LinesOf(font::kSheet.substr(1));
    for (std::size_t head = 0; head < lines.size(); head += kCellHeight)
        for (std::size_t left = 0; left < lines[head].size(); left += kCellWidth) {
            Shape& shape = shapes[lines[head][left]];
            for (std::size_t y = 0; y + 1 < kCellHeight; ++y) {
                const std::u16string_view line = lines[head + 1 + y];
                for (std::size_t x = 0; x < kCellWidth && left + x < line.size(); ++x)
                    if (line[left + x] == u'#') shape.Blacken(x, y);
            }
        }
    return shapes;
}

void Put(Shape& shape, const font::Mark& mark, std::size_t top) {
    for (const std::string_view line : {mark.upper, mark.lower}) {
        for (std::size_t x = 0; x < line.size(); ++x)
            if (line[x] == '#') shape.Blacken(x, top);
        ++top;
    }
}

// Where the mark of a letter begins: below it, or above its own height.
std::size_t TopOf(const font::Mark& mark, char16_t letter) {
    static constexpr std::size_t kBelow = 9, kAboveSmall = 2, kAboveCapital = 0;
    static constexpr std::u16string_view kSmallLetters = u"aceınorsuyz";
    if (font::kHangingMarks.find(mark.sign) != font::kHangingMarks.npos) return kBelow;
    return kSmallLetters.find(letter) != kSmallLetters.npos ? kAboveSmall : kAboveCapital;
}

void AddMarkedLetters(std::map<char16_t, Shape>& shapes) {
    std::map<char16_t, const font::Mark*> marks;
    for (const font::Mark& mark : font::kMarks) {
        marks[mark.sign] = &mark;
        if (!shapes.contains(mark.sign)) Put(shapes[mark.sign], mark, TopOf(mark, u'a'));
    }
    for (std::u16string_view letters = font::kMarkedLetters; letters.size() >= 3;) {
        Shape shape = shapes.at(letters[1]);
        const font::Mark& mark = *marks.at(letters[2]);
        Put(shape, mark, TopOf(mark, letters[1]));
        shapes[letters[0]] = shape;
        letters.remove_prefix(std::min<std::size_t>(letters.size(), 4));
    }
}

// A dot of the shape becomes two by two dots. A corner of it takes the colour of its two neighbours
// where these are alike and the ones opposite are not: that makes slanted strokes smooth.
Glyph Doubled(const Shape& shape) {
    Glyph glyph;
    const auto set = [&glyph](int x, int y, bool black) {
        if (black)
            glyph.rows[static_cast<std::size_t>(y)] |=
                static_cast<std::uint16_t>(1 << (kSignWidth - 1 - x));
    };
    for (int y = 0; y < kCellHeight; ++y)
        for (int x = 0; x < kCellWidth; ++x) {
            const bool own = shape.At(x, y);
            const bool up = shape.At(x, y - 1), down = shape.At(x, y + 1);
            const bool left = shape.At(x - 1, y), right = shape.At(x + 1, y);
            const bool slanted = up != down && left != right;
            set(2 * x, 2 * y, slanted && left == up ? up : own);
            set(2 * x + 1, 2 * y, slanted && right == up ? up : own);
            set(2 * x, 2 * y + 1, slanted && left == down ? down : own);
            set(2 * x + 1, 2 * y + 1, slanted && right == down ? down : own);
        }
    return glyph;
}

const std::map<char16_t, Glyph>& Glyphs() {
    static const std::map<char16_t, Glyph> kGlyphs = [] {
        std::map<char16_t, Shape> shapes = ReadSheet();
        AddMarkedLetters(shapes);
        std::map<char16_t, Glyph> glyphs;
        for (const auto& [sign, shape] : shapes) glyphs[sign] = Doubled(shape);
        return glyphs;
    }();
    return kGlyphs;
}

}  // namespace

bool HasGlyph(char16_t character) {
    return Glyphs().contains(character);
}

const Glyph& GlyphOf(char16_t character) {
    const auto found = Glyphs().find(character);
    return found != Glyphs().end() ? found->second : Glyphs().at(u'\uFFFD');
}

}  // namespace sim
