#include "sim/render/svg.h"

#include <fmt/format.h>

#include <set>
#include <string_view>

#include "sim/code_page.h"
#include "sim/render/font.h"
#include "sim/render/layout.h"

namespace sim {
namespace {

std::string Rectangle(int x, int y, int width, int height) {
    return fmt::format("M{} {}h{}v{}h-{}z", x, y, width, height, width);
}

// Signs are named by their code; those that are used are defined once, at the head.
std::string NameOf(char16_t sign) {
    return fmt::format("u{:04x}", static_cast<unsigned>(sign));
}

std::string Definition(char16_t sign) {
    const Glyph& glyph = GlyphOf(sign);
    std::string path;
    ForEachRectangle(
        kSignWidth, kSignHeight, [&](int x, int y) { return glyph.Black(x, y); },
        [&](int x, int y, int width, int height) { path += Rectangle(x, y, width, height); });
    return fmt::format("<path id=\"{}\" d=\"{}\"/>\n", NameOf(sign), path);
}

class SvgCanvas final : public Canvas {
  public:
    void Sign(int x, int y, char16_t sign, int width) override {
        signs_.insert(sign);
        if (width == 1)
            uses_ +=
                fmt::format("<use xlink:href=\"#{}\" x=\"{}\" y=\"{}\"/>\n", NameOf(sign), x, y);
        else
            uses_ += fmt::format(
                "<use xlink:href=\"#{}\" transform=\"translate({} {}) scale({} 1)\"/>\n",
                NameOf(sign), x, y, width);
    }
    void Black(int x, int y, int width, int height) override {
        path_ += Rectangle(x, y, width, height);
    }

    // What has been drawn since the last call, as a group with a label.
    std::string TakeGroup(std::string_view label) {
        std::string group;
        if (!path_.empty()) group += fmt::format("<path d=\"{}\"/>\n", path_);
        group += uses_;
        path_.clear();
        uses_.clear();
        if (group.empty() || label.empty()) return group;
        return fmt::format("<g aria-label=\"{}\">\n{}</g>\n", label, group);
    }
    const std::set<char16_t>& signs() const { return signs_; }

  private:
    std::set<char16_t> signs_;
    std::string path_;
    std::string uses_;
};

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char character : text) {
        switch (character) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            default:
                escaped += character;
        }
    }
    return escaped;
}

std::string LabelOf(const PaperElement& element) {
    if (const auto* line = std::get_if<TextLine>(&element.content))
        return Escaped(Trim(line->text));
    if (const auto* code = std::get_if<BarCode>(&element.content)) return Escaped(code->text);
    return "";
}

}  // namespace

std::string RenderSvg(std::span<const PaperElement> paper) {
    SvgCanvas canvas;
    std::string groups;
    int height = kMargin;
    for (const PaperElement& element : paper) {
        Draw(element, height, canvas);
        groups += canvas.TakeGroup(LabelOf(element));
        height += HeightOf(element);
    }
    height += kMargin;
    std::string signs;
    for (const char16_t sign : canvas.signs()) signs += Definition(sign);
    const auto millimetres = [](int dots) {
        return fmt::format("{:.3f}mm", static_cast<double>(dots) / kDotsPerMillimetre);
    };
    return fmt::format(
        "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
        "width=\"{}\" height=\"{}\" viewBox=\"0 0 {} {}\" shape-rendering=\"crispEdges\">\n"
        "<defs>\n{}</defs>\n"
        "<rect width=\"{}\" height=\"{}\" fill=\"#fff\"/>\n{}</svg>\n",
        millimetres(kPaperWidth), millimetres(height), kPaperWidth, height, signs, kPaperWidth,
        height, groups);
}

}  // namespace sim
