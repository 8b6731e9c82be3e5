// The logo on the paper.
#pragma once

#include <string>
#include <vector>

#include "sim/device.h"

namespace sim {

/// The logo as lines of text, each character a cell of two by four dots.
std::vector<std::string> AsLines(const Logo& logo);

}  // namespace sim
