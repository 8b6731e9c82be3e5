// Orders that wait for their time or for an exchange.
//
//     at 3s: ORDER              so long after the line was ready
//     on NAME [#K]: ORDER       before the device acts on the Kth exchange of that name; #* every one
//     after NAME [#K]: ORDER    when it is over and its answer is off the line
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/orders.h"

namespace sim {

class Script {
  public:
    Script() = default;
    /// Throws OrderError, with the number of the line.
    explicit Script(std::string_view text);

    /// Called with an order and what it answered.
    using Listener = std::function<void(const std::string& order, const std::string& answer)>;

    void RunDue(LineTime now, const OrderPlace& place, const Listener& listener);
    void RunOn(const Exchange& exchange, const OrderPlace& place, const Listener& listener);
    void RunAfter(const Exchange& exchange, const OrderPlace& place, const Listener& listener);

    /// When the next order is due by time.
    std::optional<LineTime> next() const;

  private:
    struct Timed {
        LineTime due;
        std::string text;
        Order order;
    };
    struct Awaiting {
        std::string name;
        std::optional<int> count;  // nothing: every one
        std::string text;
        Order order;
    };
    struct Moments {
        std::vector<Awaiting> awaiting;
        std::map<std::string, int> seen;  // by the name of exchanges

        void Run(const std::string& name, const OrderPlace& place, const Listener& listener);
    };

    void Read(std::string_view line);
    void ReadMoment(Moments& moments, const std::vector<std::string_view>& head,
                    std::string_view order);

    std::vector<Timed> timed_;  // by time
    Moments on_;
    Moments after_;
};

}  // namespace sim
