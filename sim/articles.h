// The articles that the device knows by their names, and the lock that a lowered rate puts on them.
#pragma once

#include <string_view>

#include "sim/core.h"

namespace sim {

bool NameIsLongEnough(std::string_view name);

/// Whether the article may be sold at this rate: an article whose rate has been lowered is locked
/// against a higher one. Throws Violation.
void CheckArticle(const Core& core, const Sale& sale);
/// Notes the article of a sale in the open receipt. It is remembered when the receipt ends.
void NoteArticle(Core& core, const Sale& sale);

/// The article whose name begins with the characters of a query; null for an unknown one.
const Article* FindArticle(const Core& core, std::string_view name);

}  // namespace sim
