#include "sim/printer.h"

#include <fmt/format.h>

#include <utility>

#include "sim/code_page.h"

namespace sim {
namespace {

constexpr std::size_t kColumns = kPaperColumns;

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

void Printer::Put(LineKind kind, std::string_view text) {
    PaperLine line{kind, std::string(TrimEnd(text))};
    (faults_.no_paper || halted() ? waiting_ : paper_).push_back(std::move(line));
}

void Printer::Text(LineKind kind, std::string_view text) {
    for (const std::string& line : Wrap(text, kColumns)) Put(kind, line);
}

void Printer::Centred(LineKind kind, std::string_view text) {
    for (const std::string& line : Wrap(text, kColumns))
        Put(kind, std::string((kColumns - Width(line)) / 2, ' ') + line);
}

void Printer::Columns(LineKind kind, std::string_view left, std::string_view right) {
    right = Cut(right, kColumns);
    const std::size_t room = kColumns - Width(right);
    left = Cut(left, room > 0 ? room - 1 : 0);
    const std::size_t gap = room - Width(left);
    Put(kind, std::string(left) + std::string(gap, ' ') + std::string(right));
}

void Printer::Rule(LineKind kind) {
    Put(kind, std::string(kColumns, '-'));
}

bool Printer::Resume() {
    if (faults_.no_paper) return !halted();
    for (PaperLine& line : waiting_) paper_.push_back(std::move(line));
    waiting_.clear();
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
