// What tells the device types apart.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <optional>

#include "sim/device.h"

namespace sim {

/// Generations of the table of VAT rates, by the rates that they hold. Those with fewer than seven
/// have rate G as well, always exempt.
enum class RateTable { Four = 4, Six = 6, Seven = 7 };

struct Model {
    int type = 0;
    std::uint8_t identity = 0;            // answered to the identification
    std::optional<std::uint8_t> variant;  // answered to the extended one, which some do not know
    int program_version = 0;              // the current one
    RateTable rate_table = RateTable::Seven;
    std::int64_t largest_quantity = 0;  // whatever the quantity's decimals
    bool choice_of_code_page = false;
    DisplayKind display = DisplayKind::None;  // the usual one
};

/// The model of a device type from kFirstType to kLastType.
const Model& ModelOf(int type);

/// The options themselves. Throws std::invalid_argument for those that no device has.
const DeviceOptions& CheckedOptions(const DeviceOptions& options);

/// Device types, some perhaps only from a program version on.
class ModelSet {
  public:
    constexpr ModelSet(std::initializer_list<int> types) {
        for (const int type : types) least_version_[static_cast<std::size_t>(type)] = 0;
    }
    constexpr ModelSet Since(int type, int version) const {
        ModelSet set = *this;
        set.least_version_[static_cast<std::size_t>(type)] = version;
        return set;
    }
    constexpr bool Has(int type, int version) const {
        return version >= least_version_[static_cast<std::size_t>(type)];
    }

  private:
    static constexpr int kNever = 256;
    std::array<int, kLastType + 1> least_version_ = [] {
        std::array<int, kLastType + 1> versions{};
        versions.fill(kNever);
        return versions;
    }();
};

inline constexpr ModelSet kAllModels{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13};

}  // namespace sim
