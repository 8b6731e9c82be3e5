// Where the data of a sequence end, for the device and for whoever listens.
#pragma once

#include <span>

#include "sim/command.h"

namespace sim {

/// More data than this no sequence has.
inline constexpr std::size_t kLongestData = 255;

/// What ends the data of a command and is no part of them.
Bytes EndOf(DataEnd end);

/// Whether these are all the data of the command, what ends them included.
bool DataComplete(const Command& command, std::span<const std::uint8_t> data);

}  // namespace sim
