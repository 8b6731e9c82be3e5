// One document of each kind, as the device prints it.
#pragma once

#include <string>
#include <vector>

#include "sim/paper.h"

namespace sim_test {

struct Document {
    std::string name;  // of its files
    std::vector<sim::PaperElement> paper;
};

/// A receipt, an invoice, a daily report and a printout.
std::vector<Document> Documents();

}  // namespace sim_test
