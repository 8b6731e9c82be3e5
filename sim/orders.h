// Orders to the simulator, in one grammar wherever they come from.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "sim/station.h"

namespace sim {

/// What orders ask of the program around the device. What fails is thrown as OrderError.
class Program {
  public:
    virtual ~Program() = default;
    virtual void WritePaper(const std::string& file) = 0;
    virtual void CutPaper() = 0;
    /// Lines on the current sheet.
    virtual int PaperLines() = 0;
    virtual void Quit() = 0;
};

/// What is wrong with an order, and what would have been right.
struct OrderError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Where an order is carried out.
struct OrderPlace {
    Station& station;
    Program& program;
};

struct OrderRow;

/// An order that can be carried out.
class Order {
  public:
    /// Throws OrderError.
    explicit Order(std::string_view text);

    /// Carries it out and returns "ok", what was asked for, or "error: " and what is wrong.
    std::string Obey(const OrderPlace& place) const;

  private:
    const OrderRow* row_ = nullptr;
    std::vector<std::string> values_;  // of the words that are not fixed
};

/// Reads an order and carries it out: "ok", what was asked for, or "error: " and what is wrong.
std::string Obey(std::string_view text, const OrderPlace& place);

/// All orders with what they do, one a line.
std::string OrdersHelp();

}  // namespace sim
