// The names of all exchanges, for scripts and for those who read recordings.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sim {

struct ExchangeName {
    std::string name;   // "begin-receipt"; several layouts of one thing share it
    std::string bytes;  // what it begins with, as lower-case hex; empty for lines without a command
    std::string title;  // in words
};

/// Sorted by name, then by bytes.
const std::vector<ExchangeName>& ExchangeNames();
bool IsExchangeName(std::string_view name);

/// One a line: name, bytes, title.
std::string CommandsText();

}  // namespace sim
