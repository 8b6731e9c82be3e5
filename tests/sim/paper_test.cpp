// The paper: as text, as pictures, and what of it a reader makes out.
#include <png.h>
#include <zbar.h>

#include <algorithm>
#include <filesystem>
#include <memory>

#include "sim/code_page.h"
#include "sim/documents.h"
#include "sim/host.h"
#include "sim/render/bitmap.h"
#include "sim/render/font.h"
#include "sim/render/pictures/pdf.h"
#include "sim/render/pictures/png.h"
#include "sim/render/svg.h"
#include "sim/render/text.h"
#include "support/contents.h"

namespace sim_test {
namespace {

using sim::PaperElement;

// A picture as a grey value for each of its dots.
struct Grey {
    unsigned width = 0, height = 0;
    std::vector<std::uint8_t> dots{};
    bool operator==(const Grey&) const = default;
};

Grey Decoded(const std::string& png) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_memory(&image, png.data(), png.size())) return {};
    image.format = PNG_FORMAT_GRAY;
    Grey grey{image.width, image.height, std::vector<std::uint8_t>(PNG_IMAGE_SIZE(image))};
    if (!png_image_finish_read(&image, nullptr, grey.dots.data(), 0, nullptr)) return {};
    return grey;
}

Grey Dots(const std::vector<PaperElement>& paper) {
    const sim::Bitmap bitmap = sim::RenderBitmap(paper);
    Grey grey{sim::kPaperWidth, static_cast<unsigned>(bitmap.height)};
    for (int y = 0; y < bitmap.height; ++y)
        for (int x = 0; x < sim::kPaperWidth; ++x)
            grey.dots.push_back(bitmap.Black(x, y) ? 0 : 255);
    return grey;
}

TEST(Paper, DocumentsLookAsTheyDid) {
    for (const auto& [name, paper] : Documents()) {
        SCOPED_TRACE(name);
        const std::string expected = TESTS_DIR "/sim/paper/" + name;
        EXPECT_EQ(sim::RenderText(paper), Contents(expected + ".txt"));
        EXPECT_TRUE(sim::RenderSvg(paper) == Contents(expected + ".svg"))
            << "script/pictures shows what differs";
    }
}

TEST(Paper, ThePicturesOfTheDocumentationAreFresh) {
    for (const auto& [name, paper] : Documents()) {
        SCOPED_TRACE(name);
        const std::string picture = TESTS_DIR "/../docs/pictures/" + name + ".png";
        EXPECT_TRUE(Decoded(Contents(picture)) == Dots(paper)) << "script/pictures";
        EXPECT_TRUE(Decoded(sim::RenderPng(paper)) == Dots(paper));
    }
}

TEST(Paper, ASheetMayBeLongAndAPdfHasPages) {
    std::vector<PaperElement> paper;
    static constexpr int kLines = 1500;
    for (int i = 0; i < kLines; ++i) paper.push_back({.content = sim::TextLine{"a line"}});
    const Grey sheet = Decoded(sim::RenderPng(paper));
    EXPECT_EQ(sheet.height, static_cast<unsigned>(kLines * sim::kSignHeight + 2 * sim::kMargin));
    paper.insert(paper.begin() + 3, PaperElement{.content = sim::PaperCut{}});
    const auto made = std::chrono::sys_days{std::chrono::year{2013} / 12 / 10} + 9h + 30min;
    const std::string pages = sim::RenderPdf(paper, made);
    EXPECT_EQ(pages, sim::RenderPdf(paper, made)) << "the same paper, the same file";
    EXPECT_NE(pages.find("20131210093000"), std::string::npos);
    // The document before the cut, then a metre of lines on each page.
    EXPECT_NE(pages.find("/Count 6"), std::string::npos);
}

// A reader's camera sees more than a dot where the printing unit has one.
Grey Enlarged(const Grey& grey, unsigned scale) {
    Grey large{grey.width * scale, grey.height * scale};
    for (unsigned y = 0; y < large.height; ++y)
        for (unsigned x = 0; x < large.width; ++x)
            large.dots.push_back(grey.dots[y / scale * grey.width + x / scale]);
    return large;
}

// What a reader makes out in a picture.
std::string Read(const Grey& grey) {
    zbar::ImageScanner scanner;
    scanner.set_config(zbar::ZBAR_I25, zbar::ZBAR_CFG_MIN_LEN, 2);
    zbar::Image image(grey.width, grey.height, "Y800", grey.dots.data(), grey.dots.size());
    scanner.scan(image);
    std::string read;
    for (auto symbol = image.symbol_begin(); symbol != image.symbol_end(); ++symbol)
        read += symbol->get_type_name() + " " + symbol->get_data();
    return read;
}

TEST(Paper, AReaderReadsBarCodes) {
    const struct {
        const char* type;
        std::string text;
    } codes[] = {{"I2/5", "590123412345"},
                 {"I2/5", "6789012345"},
                 {"I2/5", "0123456789012345678901234567890123456789"},
                 {"CODE-128", "1234567"},
                 {"CODE-128", " !\"#$%&'()*+,-./0123456789:;<=>?"},
                 {"CODE-128", "@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_"},
                 {"CODE-128", "`abcdefghijklmnopqrstuvwxyz{|}~"},
                 {"CODE-128", "a"},
                 {"CODE-128", "A line of forty characters, no less, ok."}};
    for (const auto& [type, text] : codes) {
        SCOPED_TRACE(text);
        const Grey grey = Dots({PaperElement{.content = sim::BarCode{text}}});
        EXPECT_EQ(Read(Enlarged(grey, 3)), std::string(type) + " " + text);
        // The quiet zone of the narrowest bars.
        const auto row = grey.dots.begin() + (sim::kMargin + sim::kSignHeight) * sim::kPaperWidth;
        EXPECT_GE(std::find(row, row + sim::kPaperWidth, 0) - row, 10);
    }
}

TEST(Paper, EveryLetterOfTheCodePagesHasAShape) {
    for (const sim::CodePage page :
         {sim::CodePage::Cp852, sim::CodePage::Cp1250, sim::CodePage::Mazovia}) {
        std::string missing;
        for (int code = ' '; code <= 0xFF; ++code) {
            const std::uint8_t byte[] = {static_cast<std::uint8_t>(code)};
            const std::string text = sim::ToUtf8(byte, page);
            const char16_t sign = sim::SignsOf(text).front();
            // Letters are Latin; what lies beyond draws frames and formulas.
            if (sign < 0x180 && !sim::HasGlyph(sign)) missing += text;
        }
        EXPECT_EQ(missing, "") << "code page " << static_cast<int>(page);
    }
    // No two letters look alike.
    const std::u16string letters = sim::SignsOf("AĄCĆEĘLŁNŃOÓSŚZŹŻaącćeęlłnńoósśzźżI1|0");
    for (std::size_t i = 0; i < letters.size(); ++i)
        for (std::size_t other = 0; other < i; ++other)
            EXPECT_NE(sim::GlyphOf(letters[i]).rows, sim::GlyphOf(letters[other]).rows)
                << i << " and " << other;
}

TEST(Paper, WhatWaitsIsBoundedAndTheLossIsPrinted) {
    Device device;
    Send(device, Esc(0x73, Text("01")));
    device.TearOffPaper();
    device.faults().no_paper = true;
    for (int i = 0; i < 30'000; ++i) Send(device, Esc(0x63, Text("line\n")));
    EXPECT_TRUE(device.paper().empty());
    device.faults().no_paper = false;
    Talk(device, {{"resume", Esc(0x2A), {kAck}}});
    EXPECT_EQ(device.paper().size(), 20'001u);
    EXPECT_EQ(device.paper().back().text, "BRAK MIEJSCA W BUFORZE: 10000 WIERSZY");
}

TEST(Paper, AUnitThatCannotPrintPrintsNothingUntilItIsResumed) {
    for (const auto fault : {&sim::FaultPanel::no_paper, &sim::FaultPanel::printer_failure,
                             &sim::FaultPanel::no_printer_controller}) {
        Device device;
        Send(device, kBegin + kBread);
        const std::string before = Paper(device);
        device.faults().*fault = true;
        Send(device, Total(700) + kEnd);
        EXPECT_EQ(Paper(device), before);
        Send(device, Esc(0x2A));
        EXPECT_EQ(Paper(device), before) << "still broken";
        device.faults().*fault = false;
        Send(device, Esc(0x2A));
        EXPECT_NE(Paper(device).find("S U M A   P L N"), std::string::npos);
    }
}

}  // namespace
}  // namespace sim_test
