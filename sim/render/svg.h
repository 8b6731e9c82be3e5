// The paper as a picture of shapes (SVG).
#pragma once

#include <span>
#include <string>

#include "sim/paper.h"

namespace sim {

/// One sheet. The letters are shapes of the document itself, so it needs no fonts and looks alike
/// everywhere; every line of text is labelled with what it says.
std::string RenderSvg(std::span<const PaperElement> paper);

}  // namespace sim
