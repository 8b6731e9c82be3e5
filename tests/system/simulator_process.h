// What the system tests need of the machine: running programs, a koraxsim behind a port. posix/ has
// it at first hand; wine/ runs inside Wine and asks the development system's shell for it.
#pragma once

#include <chrono>
#include <csignal>
#include <cstdint>
#include <regex>
#include <string>
#include <thread>
#include <vector>

#include "gtest/gtest.h"
#include "support/contents.h"

namespace system_tests {

using Arguments = std::vector<std::string>;

/// A folder of this run alone, by the name that the simulator knows it by; gone when the run ends.
const std::string& ScratchFolder();

/// A program of the development system, its output in a file. Killed when this goes first.
class Process {
  public:
    Process(const Arguments& arguments, const std::string& output);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    int Wait();  // its exit status, or -1
    int Stop(int signal);

  private:
    int64_t id_ = 0;  // 0: ended
};

/// The name under which a device appears as this port, and what makes the library look there.
std::string DeviceOf(int32_t port);
void NamePort(int32_t port);

/// Runs one of the example programs, on this port, to its end: its exit status.
int RunExample(const std::string& name, int32_t port, const std::string& output);

/// Whether a program's output, which comes a moment after what it does, shows something like this.
inline bool Shows(const std::string& output, const std::string& pattern) {
    for (int tries = 0; tries < 3000; ++tries) {
        if (std::regex_search(Contents(output), std::regex(pattern))) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

inline constexpr int32_t kPort = 23;

/// A running koraxsim behind a port.
class Simulator {
  public:
    explicit Simulator(int type, const Arguments& more = {}, int32_t port = kPort)
        : paper_(ScratchFolder() + "/paper" + std::to_string(port)),
          process_(Command(type, more, port), paper_) {
        NamePort(port);
        EXPECT_TRUE(Prints("\n")) << "koraxsim does not start";
    }
    ~Simulator() { Stop(); }

    bool Prints(const std::string& pattern) const { return Shows(paper_, pattern); }
    int Stop(int signal = SIGTERM) { return process_.Stop(signal); }

  private:
    static Arguments Command(int type, const Arguments& more, int32_t port) {
        Arguments command = {KORAXSIM_PROGRAM, "--type", std::to_string(type), "--link",
                             DeviceOf(port)};
        command.insert(command.end(), more.begin(), more.end());
        return command;
    }

    std::string paper_;
    Process process_;
};

}  // namespace system_tests
