// What a recording says, exchange by exchange.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "sim/recording.h"

namespace sim {

struct DecodedExchange {
    int session = 0;  // counted from 1
    LineTime at{};    // since the session began
    std::string name;
    std::string title;
    Bytes received;  // by the device
    Bytes answered;
    std::vector<std::pair<std::string, std::string>> fields;  // label and value
    std::string note;                                         // what came of it, what was lost
    bool complete = false;
};

/// `reader` tells the code page of texts.
std::vector<DecodedExchange> Decode(const std::vector<RecordedSession>& sessions,
                                    const DeviceOptions& reader);

/// For people: a few lines for each.
std::string DecodedText(const std::vector<DecodedExchange>& exchanges);
/// One array.
std::string DecodedJson(const std::vector<DecodedExchange>& exchanges);

}  // namespace sim
