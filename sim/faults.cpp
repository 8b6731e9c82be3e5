#include "sim/faults.h"

#include <fmt/format.h>

#include <algorithm>

#include "sim/line.h"

namespace sim {
namespace {

constexpr DeviceFault kDeviceFaults[] = {
    {"printer-failure", &FaultPanel::printer_failure},
    {"no-printer-controller", &FaultPanel::no_printer_controller},
    {"cmos-erased", &FaultPanel::cmos_erased},
    {"read-only", &FaultPanel::read_only},
    {"service-jumper", &FaultPanel::service_jumper},
    {"no-user-data", &FaultPanel::no_user_data},
    {"no-producer-data", &FaultPanel::no_producer_data},
    {"no-customer-display", &FaultPanel::no_customer_display},
    {"pending-daily-report", &FaultPanel::pending_daily_report},
};

}  // namespace

std::string_view NameOf(Direction direction) {
    return direction == Direction::ToDevice ? "to-device" : "from-device";
}

std::string_view NameOf(ByteFault fault) {
    switch (fault) {
        case ByteFault::Drop:
            return "drop";
        case ByteFault::Flip:
            return "flip";
        case ByteFault::Garbage:
            return "garbage";
        case ByteFault::Cut:
            return "cut";
    }
    return "";
}

std::span<const DeviceFault> DeviceFaults() {
    return kDeviceFaults;
}

const DeviceFault* FindDeviceFault(std::string_view name) {
    const auto* found = std::ranges::find(kDeviceFaults, name, &DeviceFault::name);
    return found == std::end(kDeviceFaults) ? nullptr : found;
}

std::vector<std::string> FaultsInForce(Device& device, const Line& line) {
    std::vector<std::string> names;
    const auto add = [&](bool in_force, std::string name) {
        if (in_force) names.push_back(std::move(name));
    };
    const auto count = [&](const char* name, std::int64_t left) {
        add(left > 0, fmt::format("answer {} {}", name, left));
    };
    const LineFaults& faults = line.faults;
    add(device.faults().no_paper, "paper out");
    for (const DeviceFault& fault : kDeviceFaults)
        add(device.faults().*fault.on, fmt::format("fault {}", fault.name));
    add(!device.powered(), "power off");
    add(!line.connected(), "cable out");
    add(faults.silence, "silence");
    count("delay", faults.answer_delay.count());
    count("pieces", faults.answer_pieces.count());
    count("nak", device.refusals_left());
    count("drop", faults.drop);
    count("flip", faults.flip);
    count("garbage", faults.garbage);
    for (const AwaitedFault& awaited : faults.bytes)
        add(true, fmt::format("byte {} {} {}", NameOf(awaited.fault), awaited.left,
                              NameOf(awaited.direction)));
    return names;
}

}  // namespace sim
