#include "sim/render/layout.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <string_view>

#include "sim/code_page.h"
#include "sim/render/bar_code.h"
#include "sim/render/font.h"

namespace sim {
namespace {

constexpr int kRuleThickness = 2;

// Above and below a picture.
constexpr int kPictureGap = kSignHeight / 4;

constexpr int kBarsHeight = 80;
constexpr int kBarsGap = kSignHeight / 2;
constexpr int kWidestNarrowBar = 3;

// The paper is cut in the middle of this.
constexpr int kCutHeight = 2 * kSignHeight;
constexpr int kDash = 8;

struct Height {
    int operator()(const TextLine&) const { return kSignHeight; }
    int operator()(const RuleLine&) const { return kSignHeight; }
    int operator()(const BarCode&) const { return kBarsHeight + kSignHeight + 2 * kBarsGap; }
    int operator()(const Dots& dots) const { return dots.height * dots.scale + 2 * kPictureGap; }
    int operator()(const FeedLines& feed) const { return feed.lines * kSignHeight; }
    int operator()(const PaperCut&) const { return kCutHeight; }
};

void DrawText(std::string_view text, int x, int y, int width, Canvas& canvas) {
    for (const char16_t sign : SignsOf(text)) {
        if (sign != u' ') canvas.Sign(x, y, sign, width);
        x += width * kSignWidth;
    }
}

struct Drawing {
    int top;
    Canvas& canvas;

    void operator()(const TextLine& line) const {
        DrawText(line.text, kMargin, top, line.width, canvas);
    }
    void operator()(const RuleLine&) const {
        canvas.Black(kMargin, top + (kSignHeight - kRuleThickness) / 2, kPaperWidth - 2 * kMargin,
                     kRuleThickness);
    }
    // As wide as they fit with their quiet zones, their text below them.
    void operator()(const BarCode& code) const {
        const std::vector<int> bars = BarsOf(code.text);
        const int modules = std::accumulate(bars.begin(), bars.end(), 0);
        const int module =
            std::clamp(kPaperWidth / (modules + 2 * kQuietZone), 1, kWidestNarrowBar);
        int x = (kPaperWidth - modules * module) / 2;
        bool black = true;
        for (const int bar : bars) {
            if (black) canvas.Black(x, top + kBarsGap, bar * module, kBarsHeight);
            x += bar * module;
            black = !black;
        }
        const int text_width = static_cast<int>(code.text.size()) * kSignWidth;
        DrawText(code.text, (kPaperWidth - text_width) / 2, top + kBarsGap + kBarsHeight, 1,
                 canvas);
    }
    void operator()(const Dots& dots) const {
        const int left = (kPaperWidth - dots.width * dots.scale) / 2;
        ForEachRectangle(
            dots.width, dots.height, [&](int x, int y) { return dots.Black(x, y); },
            [&](int x, int y, int width, int height) {
                canvas.Black(left + x * dots.scale, top + kPictureGap + y * dots.scale,
                             width * dots.scale, height * dots.scale);
            });
    }
    void operator()(const FeedLines&) const {}
    void operator()(const PaperCut&) const {
        for (int x = 0; x < kPaperWidth; x += 2 * kDash)
            canvas.Black(x, top + kCutHeight / 2, kDash, 1);
    }
};

}  // namespace

int HeightOf(const PaperElement& element) {
    return std::visit(Height{}, element.content);
}

void Draw(const PaperElement& element, int y, Canvas& canvas) {
    std::visit(Drawing{y, canvas}, element.content);
}

int DrawSheet(std::span<const PaperElement> paper, Canvas& canvas) {
    int y = kMargin;
    for (const PaperElement& element : paper) {
        Draw(element, y, canvas);
        y += HeightOf(element);
    }
    return y + kMargin;
}

std::u16string SignsOf(std::string_view text) {
    std::u16string signs;
    for (; !text.empty(); text.remove_prefix(Cut(text, 1).size())) {
        const std::string_view character = Cut(text, 1);
        // The first byte of a longer character has as many of the value's bits fewer.
        static constexpr unsigned kFirstBits[] = {0, 0x7F, 0x1F, 0x0F};
        unsigned sign = static_cast<unsigned char>(character[0]) & kFirstBits[character.size()];
        for (const char byte : character.substr(1))
            sign = sign << 6 | (static_cast<unsigned char>(byte) & 0x3F);
        signs.push_back(static_cast<char16_t>(sign));
    }
    return signs;
}

}  // namespace sim
