// The device in a line of JSON.
#pragma once

#include <string>

#include "sim/station.h"

namespace sim {

/// `paper_lines`: on the current sheet.
std::string StateText(Station& station, int paper_lines);

}  // namespace sim
