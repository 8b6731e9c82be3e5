#include "sim/station.h"

#include <algorithm>

namespace sim {

// When the program has been kept from running, the host's bytes have been waiting for it: that is
// no pause in its data. The calendar has gone on all the same.
void Station::Advance(LineTime now) {
    static constexpr std::chrono::milliseconds kMostAtOnce{500};
    const auto elapsed = std::chrono::floor<std::chrono::milliseconds>(now - told_);
    told_ += elapsed;
    if (elapsed.count() <= 0) return;
    device.Advance(std::min(elapsed, kMostAtOnce), elapsed);
    line.Answer(device.TakeAnswer(), device.exchanges(), now);
}

Bytes Station::Run(std::span<const std::uint8_t> sent, LineTime now) {
    now_ = now;
    Advance(now);
    line.Send(sent, now);
    Bytes received;
    while (const std::optional<LineByte> arrived = line.Arrive(now)) {
        now_ = arrived->at;
        if (arrived->direction == Direction::FromDevice) {
            received.push_back(arrived->byte);
            answered_[arrived->exchange].push_back(arrived->byte);
            continue;
        }
        device.Receive({&arrived->byte, 1});
        line.Answer(device.TakeAnswer(), device.exchanges(), arrived->at);
        TellEnded();
    }
    now_ = now;
    TellEnded();
    return received;
}

void Station::TellEnded() {
    while (!ended_.empty() && !line.Carries(ended_.front().number)) {
        Exchange exchange = std::move(ended_.front());
        ended_.pop_front();
        exchange.answered = std::move(answered_[exchange.number]);
        answered_.erase(answered_.begin(), answered_.upper_bound(exchange.number));
        if (on_exchange) on_exchange(exchange);
    }
}

}  // namespace sim
