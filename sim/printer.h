// The printing unit: lines of 40 characters, and what becomes of them without paper.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "sim/device.h"

namespace sim {

/// Normal letters, or letters of double width where they fit. Wide is what has to catch the eye on
/// such a device's paper: what a document is (a receipt, an invoice, not fiscal at all, which report)
/// and the sum to pay.
enum class Letters { Normal, Wide };

class Printer {
  public:
    explicit Printer(const FaultPanel& faults) : faults_(faults) {}

    /// A text, wrapped where it is too long for a line.
    void Text(LineKind kind, std::string_view text);
    /// A text as it is, blanks included; what does not fit on the line is cut.
    void Verbatim(LineKind kind, std::string_view text);
    /// A text in the middle of the line, wrapped where it is too long.
    void Centred(LineKind kind, std::string_view text, Letters letters = Letters::Normal);
    /// One text at the left end and one at the right end; the left one is cut if they do not fit.
    /// Wide ones that do not fit are printed in normal letters.
    void Columns(LineKind kind, std::string_view left, std::string_view right,
                 Letters letters = Letters::Normal);
    /// A line across the paper.
    void Rule(LineKind kind);
    void Bars(LineKind kind, std::string_view code);
    void Picture(LineKind kind, Dots dots);
    /// Empty lines.
    void Feed(LineKind kind, int lines = 1);
    /// Ends a document: moves it out of the device and cuts the paper.
    void EndDocument(LineKind kind);

    /// Something is waiting: the unit could not print while it was to be printed.
    bool halted() const { return !waiting_.empty(); }
    /// Prints what waits, if the unit can; returns whether nothing waits any longer.
    bool Resume();

    const std::vector<PaperElement>& paper() const { return paper_; }
    void TearOff() { paper_.clear(); }

  private:
    bool CanPrint() const;
    void Put(LineKind kind, decltype(PaperElement::content) content);

    const FaultPanel& faults_;
    std::vector<PaperElement> paper_;
    std::vector<PaperElement> waiting_;
    std::size_t lost_ = 0;  // elements for which there was no room among the waiting ones
};

/// Hundredths as "1234,56".
std::string Money(std::int64_t hundredths);
/// A number scaled by 10 to the power `decimals`, without zeros at its end: "1,5".
std::string Quantity(std::int64_t number, int decimals);

}  // namespace sim
