#include "sim/state.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "sim/vat_table.h"

namespace sim {
namespace {

std::string Amount(std::int64_t hundredths) {
    const std::int64_t size = hundredths < 0 ? -hundredths : hundredths;
    return fmt::format("{}{}.{:02}", hundredths < 0 ? "-" : "", size / 100, size % 100);
}

// On one line, with a blank behind each comma. Line feeds inside texts are escaped.
std::string OneLine(const nlohmann::ordered_json& json) {
    std::string line;
    for (const char c : json.dump(0)) {
        if (c != '\n')
            line += c;
        else if (line.ends_with(','))
            line += ' ';
    }
    return line;
}

}  // namespace

std::string StateText(Station& station, int paper_lines) {
    Device& device = station.device;
    nlohmann::ordered_json state;
    state["type"] = device.options().type;
    state["clock"] = fmt::format("{:%Y-%m-%dT%H:%M:%S}", device.clock());
    state["receipt"]["open"] = device.receipt_open();
    state["receipt"]["number"] = device.receipt_counter();
    state["counters"]["receipts"] = device.receipt_counter();
    state["counters"]["cancelled"] = device.cancelled_receipts();
    state["counters"]["reports"] = device.report_number();
    std::int64_t sum = 0;
    for (int rate = 0; rate < kRates; ++rate) {
        const std::int64_t total = device.day_totals()[static_cast<std::size_t>(rate)];
        state["totals"][std::string(1, RateLetter(rate))] = Amount(total);
        sum += total;
    }
    state["totals"]["sum"] = Amount(sum);
    state["faults"] = FaultsInForce(device, station.line);
    state["paper"]["out"] = device.faults().no_paper;
    state["paper"]["lines"] = paper_lines;
    state["exchanges"] = device.exchanges();
    return OneLine(state);
}

}  // namespace sim
