// The device at its line, as a program runs it: bytes of the host go in with the time, and bytes to
// the host come out. Exchanges are told with what really went over the line.
#pragma once

#include <deque>
#include <functional>
#include <map>

#include "sim/device.h"
#include "sim/line.h"

namespace sim {

class Station {
  public:
    explicit Station(const DeviceOptions& options, int baud = 0) : device(options), line(baud) {
        device.OnExchange([this](const Exchange& exchange) { ended_.push_back(exchange); });
    }
    Station(const Station&) = delete;
    Station& operator=(const Station&) = delete;

    Device device;
    Line line;

    /// Called for every exchange that is over and whose answer is off the line. `answered` is what
    /// went out.
    std::function<void(const Exchange&)> on_exchange;

    /// Lives on until now; the host has sent these bytes just now. Returns what it has received.
    Bytes Run(std::span<const std::uint8_t> sent, LineTime now);

    /// As the last call of Run told, or the byte that it is passing on.
    LineTime now() const { return now_; }

  private:
    void Advance(LineTime now);
    void TellEnded();

    LineTime now_{};
    LineTime told_{};  // up to when the device knows the time
    std::deque<Exchange> ended_;
    std::map<int, Bytes> answered_;  // by the number of the exchange
};

}  // namespace sim
