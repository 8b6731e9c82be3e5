// The line between the host and the device: bytes of both directions at the pace of the line, with
// its faults, and a tap that hears what arrives at either end.
//
// The line has no clock: every call tells it the time.
#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string_view>

#include "sim/faults.h"

namespace sim {

/// Since the line was ready.
using LineTime = std::chrono::microseconds;

/// A byte as it arrives.
struct LineByte {
    LineTime at{};
    Direction direction = Direction::ToDevice;
    std::uint8_t byte = 0;
    int exchange = 0;  // of an answer: the number of the exchange that it belongs to
};

/// Hears what arrives, in the order of time, and what happens to the line.
class LineTap {
  public:
    virtual ~LineTap() = default;
    virtual void Byte(const LineByte& byte) = 0;
    virtual void Remark(LineTime at, std::string_view text) = 0;
};

class Line {
  public:
    /// Bits a second, 11 of them a byte; with 0 bytes take no time.
    explicit Line(int baud = 0);

    LineFaults faults;

    /// Bytes that the host sends.
    void Send(std::span<const std::uint8_t> bytes, LineTime now);
    /// An answer of the device. What it says without having heard a byte in between is still the
    /// same answer.
    void Answer(std::span<const std::uint8_t> bytes, int exchange, LineTime now);

    /// The next byte that has arrived by now, in either direction.
    std::optional<LineByte> Arrive(LineTime now);
    /// When the next byte arrives, if one is on its way.
    std::optional<LineTime> next() const;

    /// Bytes of the host on their way to the device.
    std::size_t ahead() const { return to_device_.bytes.size(); }
    /// Whether a byte of this exchange's answer, or of an earlier one's, is still on its way.
    bool Carries(int exchange) const;

    /// A hang-up: what is on its way is lost, and what is sent until the cable is in again.
    void TakeCableOut(LineTime now);
    void PutCableIn(LineTime now);
    bool connected() const { return connected_; }

    /// Null: nobody listens.
    void Listen(LineTap* tap) { tap_ = tap; }

  private:
    struct Waiting {
        LineTime ready;  // to leave
        std::uint8_t byte;
        int exchange;
    };
    struct Channel {
        std::deque<Waiting> bytes;
        std::optional<std::chrono::nanoseconds> last;  // arrival
    };

    Channel& Of(Direction direction);
    std::optional<std::chrono::nanoseconds> NextOf(Direction direction) const;
    Bytes Distort(std::span<const std::uint8_t> answer);
    bool Strike(LineByte& byte);
    void Remark(LineTime at, std::string_view text);

    std::chrono::nanoseconds byte_time_;
    Channel to_device_;
    Channel from_device_;
    std::optional<LineByte> held_;  // the byte behind one that was put before it
    bool answering_ = false;        // the device has heard nothing since it began to answer
    bool connected_ = true;
    LineTap* tap_ = nullptr;
};

}  // namespace sim
