// The printing unit: lines of 40 characters, and what becomes of them without paper.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sim/device.h"

namespace sim {

class Printer {
  public:
    explicit Printer(const FaultPanel& faults) : faults_(faults) {}

    /// A text, wrapped where it is too long for a line.
    void Text(LineKind kind, std::string_view text);
    /// A text in the middle of the line.
    void Centred(LineKind kind, std::string_view text);
    /// One text at the left end and one at the right end; the left one is cut if they do not fit.
    void Columns(LineKind kind, std::string_view left, std::string_view right);
    /// A line of dashes.
    void Rule(LineKind kind);

    /// Lines are waiting: the paper ran out while they were to be printed.
    bool halted() const { return !waiting_.empty(); }
    /// Prints what waits, if there is paper; returns whether nothing waits any longer.
    bool Resume();

    const std::vector<PaperLine>& paper() const { return paper_; }
    void TearOff() { paper_.clear(); }

  private:
    void Put(LineKind kind, std::string_view text);

    const FaultPanel& faults_;
    std::vector<PaperLine> paper_;
    std::vector<PaperLine> waiting_;
};

/// Hundredths as "1234,56".
std::string Money(std::int64_t hundredths);
/// A number scaled by 10 to the power `decimals`, without zeros at its end: "1,5".
std::string Quantity(std::int64_t number, int decimals);

}  // namespace sim
