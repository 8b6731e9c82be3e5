// Options of a device as people write them.
#pragma once

#include <chrono>
#include <optional>
#include <string_view>

#include "sim/device.h"

namespace sim {

/// The rates A to G of a device type: seven values between commas, each a percentage with at most
/// two decimals, "exempt", or "-" for a rate that is not in use. Throws std::invalid_argument, whose
/// text tells what the type cannot hold.
VatRates RatesFromText(int type, std::string_view text);

/// "2026-01-31T12:00:00"; nothing for a time that does not exist or that no device can tell, which
/// has two digits for the years 2000 to 2099.
std::optional<std::chrono::sys_seconds> TimeFromText(std::string_view text);

}  // namespace sim
