// The command line.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "sim/device.h"
#include "sim/orders.h"
#include "sim/script.h"

namespace koraxsim {

/// What the program does: `koraxsim` alone is a device, `koraxsim commands` lists names.
enum class Task { Device, Commands, Decode };

struct Settings {
    Task task = Task::Device;
    sim::DeviceOptions device;
    std::vector<std::string> faults;  // by the names of --fault
    std::vector<std::string> orders;
    sim::Script script;
    int answer_delay_ms = 0;
    std::string link;
    bool trace = false;
    bool display = false;
    std::string logo;
    std::string record;
    std::string paper = "-";  // or a file
    int baud = 0;             // 0: as fast as it goes

    std::string decoded;  // the recording to decode
    bool json = false;
};

/// Fills the settings; an exit status when there is nothing left to do. Throws std::exception for a
/// script or an order that is wrong.
std::optional<int> ParseCommandLine(int argc, char** argv, Settings& settings);

/// The wall clock, as the device on the counter shows it.
std::chrono::sys_seconds LocalTime();

}  // namespace koraxsim
