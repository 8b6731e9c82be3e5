// The customer display. Its frames are its own protocol; they only pass through the device.
#include "sim/display.h"

#include "sim/command.h"

namespace sim {
namespace {

constexpr Field kFrame[] = {
    {"frame", FieldKind::Text, kRest},
};

constexpr ModelSet kHaveDisplay = {1, 2, 3, 5, 6};

// What a frame begins with. The first of two lines is called otherwise on one type.
constexpr ModelSet kOtherFirstLine = {3};
constexpr std::uint8_t kNumberOrFirstLine = 0x0B;
constexpr std::uint8_t kSecondLine = 0x0C;
constexpr std::uint8_t kFirstLine = 0x19;

DisplayKind KindOf(const Core& core) {
    return core.faults.no_customer_display ? DisplayKind::None : core.display.kind();
}

std::optional<Bytes> TellKind(Core& core) {
    switch (KindOf(core)) {
        case DisplayKind::None:
            return Bytes{0x00};
        case DisplayKind::OneLine:
            return Bytes{0x01};
        case DisplayKind::Numbered:
            return Bytes{0x04};
        case DisplayKind::TwoLines:
            return Bytes{0x02};
    }
    return Bytes{0x00};
}

std::optional<Bytes> AllowFrame(Core& core) {
    if (KindOf(core) == DisplayKind::None) return std::nullopt;
    return Bytes{};
}

// What the display makes of a text: whatever is no character leaves its place dark.
std::string Shown(const Core& core, std::span<const std::uint8_t> text) {
    Bytes shown(text.begin(), text.end());
    for (std::uint8_t& byte : shown)
        if (byte < ' ' || byte == 0x7F) byte = ' ';
    return core.Text(shown);
}

bool ShowNumbered(Core& core, std::span<const std::uint8_t> frame) {
    if (frame.size() < 2 || frame[0] != kNumberOrFirstLine) return false;
    return core.display.Show(frame[1] - '0', Shown(core, frame.subspan(2)));
}

bool ShowLine(Core& core, std::span<const std::uint8_t> frame) {
    const std::uint8_t first = core.Is(kOtherFirstLine) ? kFirstLine : kNumberOrFirstLine;
    if (frame.empty() || (frame[0] != first && frame[0] != kSecondLine)) return false;
    return core.display.Show(frame[0] == first ? 0 : 1, Shown(core, frame.subspan(1)));
}

bool ShowFrame(Core& core, std::span<const std::uint8_t> frame) {
    switch (core.display.kind()) {
        case DisplayKind::None:
            return false;
        case DisplayKind::OneLine:
            return core.display.Show(0, Shown(core, frame));
        case DisplayKind::Numbered:
            return ShowNumbered(core, frame);
        case DisplayKind::TwoLines:
            return ShowLine(core, frame);
    }
    return false;
}

Bytes Show(Core& core, const Record& record) {
    if (ShowFrame(core, record.Raw("frame")))
        core.Note("display: " + core.display.OneLineText());
    else
        core.Note("the display makes nothing of it");
    return {};
}

std::optional<Bytes> Clear(Core& core) {
    core.display.Clear();
    return Bytes{};
}

constexpr Command kCommands[] = {
    {.code = 0x56,
     .name = "kind of display",
     .id = "display-kind",
     .early = 2,
     .models = kHaveDisplay,
     .moment = Moment::NoReceipt,
     .accept = TellKind},
    {.code = 0x52,
     .name = "display frame",
     .id = "display-frame",
     .early = 1,
     .data_end = DataEnd::DisplayFrame,
     .layout = kFrame,
     .models = kHaveDisplay,
     .moment = Moment::NoReceipt,
     .accept = AllowFrame,
     .execute = Show},
    {.code = 0x75,
     .name = "clear display",
     .id = "clear-display",
     .early = 1,
     .models = kHaveDisplay,
     .moment = Moment::NoReceipt,
     .accept = Clear},
};

}  // namespace

std::span<const Command> DisplayCommands() {
    return kCommands;
}

}  // namespace sim
