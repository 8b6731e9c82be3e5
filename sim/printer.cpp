#include "sim/printer.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "sim/code_page.h"

namespace sim {
namespace {

constexpr std::size_t kColumns = kPaperColumns;

// What waits for the unit is bounded, whatever the host sends. A receipt of a thousand items fits
// several times; what comes after it is missing from the paper, which then says so.
constexpr std::size_t kMostWaiting = 20'000;

constexpr std::size_t RoomFor(Letters letters) {
    return letters == Letters::Wide ? kWideColumns : kPaperColumns;
}

constexpr int WidthOf(Letters letters) {
    return letters == Letters::Wide ? 2 : 1;
}

std::string Scaled(std::int64_t number, int decimals) {
    const char* sign = number < 0 ? "-" : "";
    // Digits of the magnitude, at least one before the point.
    std::string digits = fmt::format(
        "{:0{}}",
        number < 0 ? 0 - static_cast<std::uint64_t>(number) : static_cast<std::uint64_t>(number),
        decimals + 1);
    if (decimals > 0) digits.insert(digits.size() - static_cast<std::size_t>(decimals), 1, ',');
    return sign + digits;
}

}  // namespace

void Printer::Put(LineKind kind, decltype(PaperElement::content) content) {
    PaperElement element{kind, std::move(content)};
    if (!halted() && CanPrint())
        paper_.push_back(std::move(element));
    else if (waiting_.size() < kMostWaiting)
        waiting_.push_back(std::move(element));
    else
        ++lost_;
}

bool Printer::CanPrint() const {
    return !faults_.no_paper && !faults_.printer_failure && !faults_.no_printer_controller;
}

void Printer::Text(LineKind kind, std::string_view text) {
    for (std::string& line : Wrap(text, kColumns)) Put(kind, TextLine{std::move(line)});
}

void Printer::Verbatim(LineKind kind, std::string_view text) {
    Put(kind, TextLine{std::string(TrimEnd(Cut(text, kColumns)))});
}

void Printer::Centred(LineKind kind, std::string_view text, Letters letters) {
    const std::size_t room = RoomFor(letters);
    for (const std::string& line : Wrap(text, room))
        Put(kind, TextLine{std::string((room - Width(line)) / 2, ' ') + line, WidthOf(letters)});
}

void Printer::Columns(LineKind kind, std::string_view left, std::string_view right,
                      Letters letters) {
    if (Width(left) + 1 + Width(right) > kWideColumns) letters = Letters::Normal;
    const std::size_t columns = RoomFor(letters);
    right = Cut(right, columns);
    const std::size_t room = columns - Width(right);
    left = Cut(left, room > 0 ? room - 1 : 0);
    const std::string gap(room - Width(left), ' ');
    const std::string text = std::string(left) + gap + std::string(right);
    Put(kind, TextLine{std::string(TrimEnd(text)), WidthOf(letters)});
}

void Printer::Rule(LineKind kind) {
    Put(kind, RuleLine{});
}

void Printer::Bars(LineKind kind, std::string_view code) {
    Put(kind, BarCode{std::string(code)});
}

void Printer::Picture(LineKind kind, Dots dots) {
    Put(kind, std::move(dots));
}

void Printer::Feed(LineKind kind, int lines) {
    if (lines > 0) Put(kind, FeedLines{lines});
}

void Printer::EndDocument(LineKind kind) {
    Feed(kind);
    Put(kind, PaperCut{});
}

bool Printer::Resume() {
    if (!CanPrint()) return !halted();
    std::ranges::move(waiting_, std::back_inserter(paper_));
    waiting_.clear();
    if (const std::size_t lost = std::exchange(lost_, 0); lost > 0)
        Text(LineKind::Notice, fmt::format("BRAK MIEJSCA W BUFORZE: {} WIERSZY", lost));
    return true;
}

std::string Money(std::int64_t hundredths) {
    return Scaled(hundredths, 2);
}

std::string Quantity(std::int64_t number, int decimals) {
    while (decimals > 0 && number % 10 == 0) {
        number /= 10;
        --decimals;
    }
    return Scaled(number, decimals);
}

}  // namespace sim
