// A line opened on a pseudo-terminal: the test plays the device on the master side.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>
#include <utility>

#include "platform/serial.h"

class PseudoTerminal {
  public:
    PseudoTerminal() {
        EXPECT_EQ(grantpt(master), 0);
        EXPECT_EQ(unlockpt(master), 0);
        EXPECT_EQ(ptsname_r(master, name, sizeof name), 0);
        slave = open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    }
    ~PseudoTerminal() {
        HangUp();
        close(slave);
    }
    PseudoTerminal(const PseudoTerminal&) = delete;
    void HangUp() { close(std::exchange(master, -1)); }

    // Sends, and returns when the bytes lie ready on the other side.
    void Send(const std::string& bytes) const {
        EXPECT_EQ(write(master, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
        AwaitReady([&](int ready) { return ready >= static_cast<int>(bytes.size()); });
    }
    // Waits until as many of the sent bytes as `enough` says are there, and have not been taken.
    template <class Condition>
    void AwaitReady(Condition enough) const {
        for (int ready = 0; ioctl(slave, FIONREAD, &ready) == 0 && !enough(ready);)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    // What the line wrote: `count` bytes, or as many as come before nothing more does.
    std::string Receive(std::size_t count, int patience_ms = 200) const {
        std::string bytes;
        pollfd watched{master, POLLIN, 0};
        while (bytes.size() < count && poll(&watched, 1, patience_ms) > 0) {
            char buffer[4096];
            const ssize_t step = read(master, buffer, sizeof buffer);
            if (step <= 0) break;
            bytes.append(buffer, static_cast<std::size_t>(step));
        }
        return bytes;
    }

    int master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC), slave = -1;
    char name[64] = "";
};

// A line by its name, and what one call moves on it.
class OpenLineTest : public testing::Test {
  protected:
    using Clock = std::chrono::steady_clock;

    ~OpenLineTest() override { Close(); }
    void OpenNamed(const std::string& name, uint32_t timeout_s) {
        uint32_t error = 0;
        line = platform::OpenLine(name.c_str(), 1, error);
        ASSERT_EQ(error, 0U);
        ASSERT_EQ(platform::ApplySettings(line, {9600, 8, 2, 0, true, timeout_s, timeout_s}), 0U);
        start = Clock::now();
    }
    void Close() {
        if (line == platform::kNoLine) return;
        EXPECT_EQ(platform::CloseLine(std::exchange(line, platform::kNoLine)), 0U);
    }
    uint32_t Write(const std::string& bytes) const {
        return platform::WriteBytes(line, reinterpret_cast<const uint8_t*>(bytes.data()),
                                    static_cast<uint32_t>(bytes.size()));
    }
    std::string Read(uint32_t count) const {
        std::string bytes(count, '\0');
        bytes.resize(platform::ReadBytes(line, reinterpret_cast<uint8_t*>(bytes.data()), count));
        return bytes;
    }
    // How long it took from the opening, or from the last time this was asked.
    void ExpectSeconds(double least, double slack = 1) {
        const auto before = std::exchange(start, Clock::now());
        const double seconds = std::chrono::duration<double>(start - before).count();
        EXPECT_TRUE(seconds >= least && seconds < least + slack) << seconds;
    }

    platform::LineHandle line = platform::kNoLine;
    Clock::time_point start;
};

class LineTest : public OpenLineTest {
  protected:
    ~LineTest() override { Close(); }
    void Open(uint32_t timeout_s) { OpenNamed(terminal.name, timeout_s); }

    PseudoTerminal terminal;
};
