// Non-fiscal documents: a beginning and an end that tell them from receipts, and lines between.
#pragma once

#include <string_view>

#include "sim/core.h"

namespace sim {

void BeginPrintout(Core& core, PrintoutKind kind, std::string_view title);
/// Closes the open printout, if there is one.
void EndPrintout(Core& core);

}  // namespace sim
