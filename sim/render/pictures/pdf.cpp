#include "sim/render/pictures/pdf.h"

#include <cairo-pdf.h>
#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <vector>

#include "sim/render/font.h"
#include "sim/render/layout.h"

namespace sim {
namespace {

constexpr int kLongestPage = 1000 * kDotsPerMillimetre;
constexpr double kPointsPerDot = 72 / 25.4 / kDotsPerMillimetre;

using Page = std::span<const PaperElement>;

std::vector<Page> PagesOf(std::span<const PaperElement> paper) {
    std::vector<Page> pages;
    std::size_t begin = 0;
    int height = 0;
    for (std::size_t i = 0; i < paper.size(); ++i) {
        const int next = HeightOf(paper[i]);
        if (i > begin && height + next > kLongestPage) {
            pages.push_back(paper.subspan(begin, i - begin));
            begin = i;
            height = 0;
        }
        height += next;
        if (!std::holds_alternative<PaperCut>(paper[i].content)) continue;
        pages.push_back(paper.subspan(begin, i + 1 - begin));
        begin = i + 1;
        height = 0;
    }
    if (begin < paper.size() || pages.empty()) pages.push_back(paper.subspan(begin));
    return pages;
}

int HeightOf(Page page) {
    int height = 2 * kMargin;
    for (const PaperElement& element : page) height += sim::HeightOf(element);
    return height;
}

class PdfCanvas final : public Canvas {
  public:
    explicit PdfCanvas(cairo_t* context) : context_(context) {}

    void Sign(int x, int y, char16_t sign, int width) override {
        const Glyph& glyph = GlyphOf(sign);
        ForEachRectangle(
            kSignWidth, kSignHeight, [&](int column, int row) { return glyph.Black(column, row); },
            [&](int column, int row, int columns, int rows) {
                Black(x + column * width, y + row, columns * width, rows);
            });
        cairo_fill(context_);
    }
    void Black(int x, int y, int width, int height) override {
        cairo_rectangle(context_, x, y, width, height);
    }

  private:
    cairo_t* context_;
};

cairo_status_t Append(void* file, const unsigned char* bytes, unsigned count) {
    static_cast<std::string*>(file)->append(reinterpret_cast<const char*>(bytes), count);
    return CAIRO_STATUS_SUCCESS;
}

template <auto free>
struct Freed {
    template <typename T>
    void operator()(T* thing) const {
        free(thing);
    }
};
using Surface = std::unique_ptr<cairo_surface_t, Freed<cairo_surface_destroy>>;
using Context = std::unique_ptr<cairo_t, Freed<cairo_destroy>>;

void DrawPage(cairo_surface_t* surface, Page page) {
    cairo_pdf_surface_set_size(surface, kPaperWidth * kPointsPerDot,
                               HeightOf(page) * kPointsPerDot);
    const Context context(cairo_create(surface));
    cairo_scale(context.get(), kPointsPerDot, kPointsPerDot);
    PdfCanvas canvas(context.get());
    DrawSheet(page, canvas);
    cairo_fill(context.get());
    cairo_show_page(context.get());
}

}  // namespace

std::string RenderPdf(std::span<const PaperElement> paper, std::chrono::sys_seconds made) {
    std::string file;
    const Surface surface(cairo_pdf_surface_create_for_stream(Append, &file, 1, 1));
    const std::string date = fmt::format("{:%Y-%m-%dT%H:%M:%S}", made);
    cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATE_DATE, date.c_str());
    for (const Page page : PagesOf(paper)) DrawPage(surface.get(), page);
    cairo_surface_finish(surface.get());
    if (const cairo_status_t status = cairo_surface_status(surface.get());
        status != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error(cairo_status_to_string(status));
    return file;
}

}  // namespace sim
