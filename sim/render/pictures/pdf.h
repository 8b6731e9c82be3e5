// The paper as pages (PDF).
#pragma once

#include <chrono>
#include <span>
#include <string>

#include "sim/paper.h"

namespace sim {

/// Pages as wide as the paper, each as long as its document; one that is longer than a metre goes on
/// on another page. `made` is the date of the file. Throws std::runtime_error.
std::string RenderPdf(std::span<const PaperElement> paper, std::chrono::sys_seconds made);

}  // namespace sim
