// The paper: what the printing unit puts on it, piece by piece, before anybody draws it.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace sim {

/// Characters on a line of paper, of normal width and of double width.
inline constexpr int kPaperColumns = 40;
inline constexpr int kWideColumns = kPaperColumns / 2;

/// What a printed line is, for whoever shows or checks the paper.
enum class LineKind {
    Logo,
    Header,
    Title,
    Item,
    Discount,
    Tax,
    Total,
    Payment,
    Additional,
    Package,
    Closing,
    Footer,
    Notice,
    Report,
    Printout
};

/// A line of characters: UTF-8 without blanks at its end, `width` 1 for at most kPaperColumns of
/// them or 2 for at most kWideColumns.
struct TextLine {
    std::string text{};
    int width = 1;
    bool operator==(const TextLine&) const = default;
};

/// A line across the paper.
struct RuleLine {
    bool operator==(const RuleLine&) const = default;
};

/// A bar code of 1 to 40 printable ASCII characters, in the middle of the paper.
struct BarCode {
    std::string text{};
    bool operator==(const BarCode&) const = default;
};

/// A picture in the middle of the paper. Rows from the top, each of (width + 7) / 8 bytes; the
/// leftmost dot of a byte is its highest bit and 1 is black. Each of its dots is a square of
/// `scale` dots of the printing unit.
struct Dots {
    int width = 0;
    int height = 0;
    int scale = 1;
    std::vector<std::uint8_t> rows{};

    bool Black(int x, int y) const {
        const int byte = y * ((width + 7) / 8) + x / 8;
        return (rows[static_cast<std::size_t>(byte)] >> (7 - x % 8) & 1) != 0;
    }
    bool operator==(const Dots&) const = default;
};

/// Empty lines.
struct FeedLines {
    int lines = 1;
    bool operator==(const FeedLines&) const = default;
};

/// The end of a document, where the paper is cut.
struct PaperCut {
    bool operator==(const PaperCut&) const = default;
};

struct PaperElement {
    LineKind kind = LineKind::Item;
    std::variant<TextLine, RuleLine, BarCode, Dots, FeedLines, PaperCut> content;
    bool operator==(const PaperElement&) const = default;
};

/// A line of the paper as text: UTF-8, at most 40 characters, without blanks at its end.
struct PaperLine {
    LineKind kind = LineKind::Item;
    std::string text;
};

}  // namespace sim
