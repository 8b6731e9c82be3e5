// The operating system as the tests have it: one serial line in memory, a clock that only waits
// move, message boxes and window messages that are written down instead of shown and posted.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "platform/serial.h"
#include "platform/window_messages.h"

using Bytes = std::vector<uint8_t>;

inline Bytes operator+(Bytes left, const Bytes& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

namespace memory {

// What hangs at the far end of the line. It answers through Platform::Answer.
class Peer {
  public:
    virtual ~Peer() = default;
    virtual void HostSent(const Bytes& bytes) = 0;
    virtual void TimePassed(uint32_t /*ms*/) {}
};

struct Platform {
    Peer* peer = nullptr;
    uint64_t now_ms = 0;

    // Faults. The byte count runs down; the write after the last byte fails, and all later ones.
    uint32_t open_error = 0, settings_error = 0;
    std::optional<uint32_t> writable_bytes;
    bool vanished = false;  // the adapter is pulled out: everything fails at once

    // Modem status bits while RTS is low and high.
    uint8_t modem_lines[2] = {platform::kLineCts, platform::kLineCts};
    bool rts = false;

    // What the driver did. `calls` has everything but transfers, in words.
    std::vector<std::string> calls;
    std::vector<std::size_t> writes;   // size of each write call
    std::size_t discarded_bytes = 0;   // device bytes that a purge threw away
    std::vector<std::string> notices;  // caption, line break, text

    // Window messages: waiting for the driver, arriving while it waits, dispatched, posted. Behind
    // the last one that arrives the program is told to quit.
    std::deque<platform::WindowMessage> pending, arriving;
    std::vector<uint32_t> dispatched;
    std::vector<platform::WindowMessage> posted;

    bool line_open = false;

    // Bytes from the device.
    void Answer(const Bytes& bytes) { input.insert(input.end(), bytes.begin(), bytes.end()); }
    std::size_t UnreadBytes() const { return input.size(); }
    // The calls since the last time, joined with "; ".
    std::string TakeCalls();
    void Wait(uint64_t ms);

    std::deque<uint8_t> input;
    platform::LineSettings settings{};
};

extern Platform os;

inline constexpr uint32_t kProcessId = 4321;

}  // namespace memory
