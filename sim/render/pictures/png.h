// The paper as a picture of dots (PNG).
#pragma once

#include <span>
#include <string>

#include "sim/paper.h"

namespace sim {

/// One sheet of any length, one bit for a dot.
std::string RenderPng(std::span<const PaperElement> paper);

}  // namespace sim
