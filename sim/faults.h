// What can be wrong, by name: with the device, and with the line between it and its host.
#pragma once

#include <chrono>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sim/device.h"

namespace sim {

enum class Direction { ToDevice, FromDevice };
/// "to-device", "from-device".
std::string_view NameOf(Direction direction);

/// What happens to one byte: lost, its lowest bit turned, a byte put before it, or it and all after
/// it lost with a hang-up.
enum class ByteFault { Drop, Flip, Garbage, Cut };
/// "drop", "flip", "garbage", "cut".
std::string_view NameOf(ByteFault fault);

/// A fault that waits for its byte.
struct AwaitedFault {
    ByteFault fault = ByteFault::Drop;
    int left = 0;  // bytes until then; 1 is the next
    Direction direction = Direction::ToDevice;
};

/// The faults of a line. The counts run down to 0 as they take effect.
struct LineFaults {
    bool silence = false;  // the device works, its answers are lost
    std::chrono::milliseconds answer_delay{};
    std::chrono::milliseconds answer_pieces{};  // from each byte of answers to the next
    // Answers that lose their last byte, whose last byte has a bit turned, that begin with a byte
    // too many.
    int drop = 0;
    int flip = 0;
    int garbage = 0;
    std::vector<AwaitedFault> bytes;
};

/// A fault of the device that is switched on and off by name.
struct DeviceFault {
    std::string_view name;
    bool FaultPanel::*on;
};
/// All but the paper, which has an order of its own.
std::span<const DeviceFault> DeviceFaults();
/// Null when there is none of this name.
const DeviceFault* FindDeviceFault(std::string_view name);

class Line;

/// What is wrong, each named as its order without "on"; counted ones with what is left.
std::vector<std::string> FaultsInForce(Device& device, const Line& line);

}  // namespace sim
