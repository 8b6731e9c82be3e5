// The clock: read, and moved by at most an hour.
#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "sim/command.h"

namespace sim {
namespace {

constexpr ModelSet kTellSeconds = {4, 7, 8, 9, 10, 11, 12, 13};
constexpr int kMostMinutes = 60;
constexpr int kMinuteDigits = 10;  // of the whole clock: date, hour and minute
constexpr int kSecondDigits = 12;

constexpr Field kMove[] = {
    {"later", FieldKind::Byte, 1},
    {"minutes", FieldKind::Digits, 2},
};

template <int count>
std::optional<Bytes> Tell(Core& core) {
    const std::string digits = fmt::format("{:%y%m%d%H%M%S}", core.clock());
    Bytes bytes;
    for (const char digit : std::string_view(digits).substr(0, count))
        bytes.push_back(static_cast<std::uint8_t>(digit - '0'));
    core.Note(fmt::format("{:%Y-%m-%d %H:%M:%S}", core.clock()));
    return bytes;
}

// Nothing can be answered to the move itself.
std::optional<Bytes> AllowMove(Core& core) {
    if (!core.HasRoom()) return std::nullopt;
    return Bytes{};
}

// What speaks against the move, if anything does.
std::string_view Objection(const Core& core, int later, std::span<const std::uint8_t> digits) {
    const int minutes = digits[0] * 10 + digits[1];
    if (later > 1 || digits[0] > 9 || digits[1] > 9 || minutes < 1 || minutes > kMostMinutes)
        return "refused: 1 to 60 minutes";
    if (core.working().counters.receipts != 0) return "refused: a daily report has to come first";
    if (core.working().clock.moved && core.today() <= *core.working().clock.moved)
        return "refused: moved today already";
    return "";
}

// A move that is refused is acknowledged all the same; the host has to look at the clock.
Bytes MoveClock(Core& core, const Record& record) {
    const auto digits = record.Raw("minutes");
    const int later = record.Byte("later");
    if (const std::string_view objection = Objection(core, later, digits); !objection.empty()) {
        core.Note(objection);
        return {};
    }
    const std::chrono::minutes minutes{digits[0] * 10 + digits[1]};
    const auto before = core.clock();
    const auto move = later != 0 ? minutes : -minutes;
    const auto moved_to = std::chrono::floor<std::chrono::days>(before + move);
    const Change change{.clock = {{.shift = core.working().clock.shift + move,
                                   .moved = std::max(core.today(), moved_to)}}};
    if (!core.Commit(Point::Clock, change)) return {};
    core.printer.Columns(LineKind::Notice, "ZMIANA CZASU",
                         fmt::format("{:%Y-%m-%d %H:%M}", before));
    core.printer.Columns(LineKind::Notice, "Nowy czas",
                         fmt::format("{:%Y-%m-%d %H:%M}", core.clock()));
    core.printer.EndDocument(LineKind::Notice);
    return {};
}

constexpr Command kCommands[] = {
    {.code = 0x35,
     .name = "read clock to the minute",
     .id = "read-clock",
     .early = 1 + kMinuteDigits,
     .moment = Moment::NoReceipt,
     .accept = Tell<kMinuteDigits>},
    {.code = 0x40,
     .name = "read clock to the second",
     .id = "read-clock-seconds",
     .early = 1 + kSecondDigits,
     .models = kTellSeconds,
     .moment = Moment::NoReceipt,
     .accept = Tell<kSecondDigits>},
    {.code = 0x36,
     .name = "move clock",
     .id = "move-clock",
     .early = 1,
     .layout = kMove,
     .moment = Moment::NoDocument,
     .accept = AllowMove,
     .execute = MoveClock},
};

}  // namespace

std::span<const Command> ClockCommands() {
    return kCommands;
}

}  // namespace sim
