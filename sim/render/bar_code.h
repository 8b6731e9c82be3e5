// Bar codes: which bars a text makes.
#pragma once

#include <string_view>
#include <vector>

namespace sim {

/// White on either side of the bars that a reader needs, in widths of the narrowest bar.
inline constexpr int kQuietZone = 10;

/// The widths of bars and of the spaces between them, beginning with a bar, in widths of the
/// narrowest one. An even number of digits is Interleaved 2 of 5, any other text Code 128 (set B);
/// the text is 1 to 40 characters of printable ASCII.
std::vector<int> BarsOf(std::string_view text);

}  // namespace sim
