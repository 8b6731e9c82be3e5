// The paper as text.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "sim/paper.h"

namespace sim {

/// The lines of an element: letters of double width spaced, pictures of Braille characters, which
/// are cells of two by four dots.
std::vector<std::string> TextLines(const PaperElement& element);

/// Elements as UTF-8 text, each line ended by a line feed. The texts of parts of a paper, one after
/// the other, are the text of the whole.
std::string RenderText(std::span<const PaperElement> paper);

}  // namespace sim
