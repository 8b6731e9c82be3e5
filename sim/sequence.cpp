#include "sim/sequence.h"

#include <algorithm>

#include "sim/frame.h"

namespace sim {

Bytes EndOf(DataEnd end) {
    switch (end) {
        case DataEnd::Counted:
            break;
        case DataEnd::LineFeed:
        case DataEnd::LineFeedOrEscape:
            return {'\n'};
        case DataEnd::Frame:
            return {kEscape, kFrameEnd};
        case DataEnd::DisplayFrame:
            return {'\n', kEscape, 'S'};
    }
    return {};
}

bool DataComplete(const Command& command, std::span<const std::uint8_t> data) {
    const std::size_t size = data.size();
    const auto fixed = static_cast<std::size_t>(CountedLength(command));
    if (size < fixed) return false;
    if (command.data_end != DataEnd::Counted) {
        const Bytes end = EndOf(command.data_end);
        return size >= fixed + end.size() && std::equal(end.rbegin(), end.rend(), data.rbegin());
    }
    if (!command.data_length) return size == fixed;
    return size == static_cast<std::size_t>(command.data_length(data));
}

}  // namespace sim
