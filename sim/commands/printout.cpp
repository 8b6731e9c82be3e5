// Non-fiscal printouts. Most of their lines come without Esc and command byte: what a byte outside
// any sequence begins depends on the printout that is open.
#include "sim/printout.h"

#include <algorithm>

#include "sim/command.h"
#include "sim/commands/status.h"
#include "sim/commands/text_field.h"
#include "sim/frame.h"
#include "sim/vat_table.h"

namespace sim {
namespace {

constexpr Field kForm[] = {
    {"number", FieldKind::Text, 2},
};
constexpr Field kFreeLine[] = {
    {"text", FieldKind::Text, kRest},
};
constexpr Field kNumberedLine[] = {
    {"number", FieldKind::Text, 2},
    {"text", FieldKind::Text, kRest},
};
constexpr Field kArticleLine[] = {
    {"rate", FieldKind::Byte, 1},
    {"name", FieldKind::Text, 28},
};

constexpr std::size_t kLongestBarCode = 40;

bool IsNumber(std::span<const std::uint8_t> text) {
    return std::ranges::all_of(text, [](std::uint8_t byte) { return byte >= '0' && byte <= '9'; });
}

std::optional<Bytes> AllowPrintout(Core& core) {
    if (!PrintoutAllowed(core)) return std::nullopt;
    return Bytes{};
}

Bytes BeginForm(Core& core, const Record& record) {
    const auto number = record.Raw("number");
    if (IsNumber(number))
        BeginPrintout(core, PrintoutKind::Lines, "Wydruk nr " + core.Text(number));
    else
        core.Note("no such printout");
    return {};
}

std::optional<Bytes> BeginControl(Core& core) {
    if (!PrintoutAllowed(core)) return std::nullopt;
    BeginPrintout(core, PrintoutKind::Control, "WYDRUK KONTROLNY TOWARÓW");
    return Bytes{};
}

Bytes End(Core& core, const Record&) {
    EndPrintout(core);
    return {};
}

void PrintLine(Core& core, std::span<const std::uint8_t> text) {
    core.printer.Verbatim(LineKind::Printout, core.Text(text));
}

Bytes FreeLine(Core& core, const Record& record) {
    PrintLine(core, record.Raw("text"));
    return {};
}

// The number says which line of the form it is, and is not printed.
Bytes NumberedLine(Core& core, const Record& record) {
    if (IsNumber(record.Raw("number")))
        PrintLine(core, record.Raw("text"));
    else
        core.Note("no such line");
    return {};
}

Bytes ArticleLine(Core& core, const Record& record) {
    const std::optional<int> rate = RateOfNumber(record.Byte("rate"));
    core.printer.Columns(LineKind::Printout, TextOf(core, record.Raw("name")),
                         rate ? std::string(1, RateLetter(*rate)) : "?");
    return {};
}

Bytes PrintBarCode(Core& core, std::span<const std::uint8_t> code) {
    const bool possible = !code.empty() && code.size() <= kLongestBarCode && IsPrintable(code) &&
                          std::ranges::all_of(code, [](std::uint8_t byte) { return byte < 0x7F; });
    if (!possible) throw MalformedFrame{};
    core.printer.Bars(LineKind::Printout, core.Text(code));
    return {kAcknowledgement};
}

constexpr Command kCommands[] = {
    {.code = 0x73,
     .name = "begin non-fiscal printout",
     .id = "begin-printout",
     .early = 1,
     .layout = kForm,
     .moment = Moment::NoDocument,
     .accept = AllowPrintout,
     .execute = BeginForm},
    {.code = 0x3F,
     .name = "begin control printout",
     .id = "begin-control-printout",
     .early = 1,
     .moment = Moment::NoDocument,
     .accept = BeginControl},
    {.code = 0x51,
     .name = "end printout",
     .id = "end-printout",
     .moment = Moment::NoReceipt,
     .execute = End},
    {.code = 0x63,
     .name = "free line",
     .id = "free-line",
     .data_end = DataEnd::LineFeed,
     .layout = kFreeLine,
     .moment = Moment::InPrintout,
     .execute = FreeLine},
};

constexpr Command kBareLines[] = {
    {.name = "numbered line",
     .id = "numbered-line",
     .data_end = DataEnd::LineFeedOrEscape,
     .layout = kNumberedLine,
     .moment = Moment::InPrintout,
     .execute = NumberedLine},
    {.name = "line of the control printout",
     .id = "control-line",
     .layout = kArticleLine,
     .moment = Moment::InPrintout,
     .execute = ArticleLine},
};

constexpr TextFrame kFrames[] = {
    {.prefix = "qBI:N1:10:30:",
     .name = "bar code",
     .id = "bar-code",
     .moment = Moment::InPrintout,
     .execute = PrintBarCode},
};

}  // namespace

const Command* BareLine(const Core& core) {
    switch (core.session.printout.kind) {
        case PrintoutKind::None:
            return nullptr;
        case PrintoutKind::Lines:
            return &kBareLines[0];
        case PrintoutKind::Control:
            return &kBareLines[1];
    }
    return nullptr;
}

std::span<const Command> BareLines() {
    return kBareLines;
}

std::span<const Command> PrintoutCommands() {
    return kCommands;
}
std::span<const TextFrame> PrintoutFrames() {
    return kFrames;
}

}  // namespace sim
