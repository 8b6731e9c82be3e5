// The command that carries text frames.
#include "sim/frame.h"

#include <algorithm>

namespace sim {
namespace {

constexpr Field kFrame[] = {
    {"frame", FieldKind::Text, kRest},
};

}  // namespace

std::vector<const TextFrame*> AllFrames() {
    std::vector<const TextFrame*> frames;
    for (const std::span<const TextFrame> family :
         {ItemFrames(), TotalsFrames(), PrintoutFrames(), SundryFrames()})
        for (const TextFrame& frame : family) frames.push_back(&frame);
    return frames;
}

const TextFrame* FindFrame(std::span<const std::uint8_t> content) {
    const auto begins = [&](const TextFrame& frame) {
        return content.size() >= frame.prefix.size() &&
               std::equal(frame.prefix.begin(), frame.prefix.end(), content.begin(),
                          [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
    };
    for (const TextFrame* frame : AllFrames())
        if (begins(*frame)) return frame;
    return nullptr;
}

namespace {

// A rule broken by a frame that can be read cancels the receipt like that of any other sequence:
// the frame itself is acknowledged.
Bytes RunFrame(Core& core, const Record& record) {
    const auto content = record.Raw("frame");
    const TextFrame* frame = FindFrame(content);
    try {
        if (!frame || !core.Is(frame->models) || !InPlace(core, frame->moment))
            throw MalformedFrame{};
        core.Note(frame->name);
        return frame->execute(core, content.subspan(frame->prefix.size()));
    } catch (const Violation& violation) {
        core.Cancel(violation.reason);
        return {kAcknowledgement};
    } catch (const MalformedFrame&) {
        core.Cancel(Reason::UnexpectedSequence);
        return {kRefusal};
    }
}

constexpr Command kCommands[] = {
    {.code = kFrameBegin,
     .name = "text frame",
     .id = "text-frame",
     .late = 1,
     .data_end = DataEnd::Frame,
     .layout = kFrame,
     .execute = RunFrame},
};

}  // namespace

std::span<const Command> FrameCommands() {
    return kCommands;
}

}  // namespace sim
