// What the shop puts on its receipts: the lines of the footer, and the logo row by row.
#include <algorithm>
#include <functional>
#include <numeric>

#include "sim/command.h"
#include "sim/commands/text_field.h"

namespace sim {
namespace {

// Answers to a line.
namespace refusal {
constexpr std::uint8_t kControlCharacter = 106;
constexpr std::uint8_t kNoSuchLine = 108;
constexpr std::uint8_t kCheckSum = 200;
constexpr std::uint8_t kDataMissing = 201;
constexpr std::uint8_t kRepeated = 202;
constexpr std::uint8_t kDailyReportFirst = 203;
}  // namespace refusal

constexpr Field kFooter[] = {
    {"line", FieldKind::Byte, 1},
    {"text", FieldKind::Text, 40},
    {"check sum", FieldKind::Byte, 1},
};
constexpr Field kFooterQuery[] = {
    {"line", FieldKind::Byte, 1},
};
constexpr Field kLogo[] = {
    {"line", FieldKind::Byte, 1},
    {"dots", FieldKind::Dots, 24},
    {"check sum", FieldKind::Byte, 1},
};

constexpr ModelSet kHaveFooter = {8, 10, 11, 12, 13};
constexpr ModelSet kHaveLogo = {8, 9, 10, 11, 12, 13};

bool CheckSumHolds(const Record& record, const char* label) {
    const auto content = record.Raw(label);
    return std::accumulate(content.begin(), content.end(), 0, std::bit_xor<>()) ==
           record.Byte("check sum");
}

// The line that was accepted last has come once more: to the device that is a fault of the host. The
// first line begins anew, so a host that has lost an answer can always do that.
bool Repeats(const Core& core, const Record& record) {
    return record.Byte("line") != 0 && std::ranges::equal(core.session.last_setup, record.data());
}

// What receipts have been printed with goes into a daily report before it can change again.
bool MayChange(const Core& core, bool changed) {
    return core.working().counters.receipts == 0 || !changed;
}

std::uint8_t WriteFooterLine(Core& core, const Record& record) {
    const std::size_t number = record.Byte("line");
    const auto text = record.Raw("text");
    if (!CheckSumHolds(record, "text")) return refusal::kCheckSum;
    if (number >= core.working().footer.size()) return refusal::kNoSuchLine;
    if (!IsPrintable(text)) return refusal::kControlCharacter;
    if (Repeats(core, record)) return refusal::kRepeated;
    const FooterLine& line = core.working().footer[number];
    if (line.text && std::ranges::equal(*line.text, text)) return kStatusDone;
    if (!MayChange(core, line.changed)) return refusal::kDailyReportFirst;
    const FooterLine written{.text = Bytes(text.begin(), text.end()),
                             .changed = core.working().counters.receipts != 0};
    const Change change{.footer = {{number, written}}};
    return core.Commit(Point::FooterLine, change) ? kStatusDone : kRefusal;
}

// Rows have to come in order, from the top; the logo is in force once it has come to its end.
std::uint8_t WriteLogoLine(Core& core, const Record& record) {
    const LogoMemory& logo = core.working().logo;
    ComingLogo& coming = core.session.logo;
    const std::size_t number = record.Byte("line");
    const auto dots = record.Raw("dots");
    if (!CheckSumHolds(record, "dots")) return refusal::kCheckSum;
    if (number >= coming.logo.rows.size()) return refusal::kNoSuchLine;
    if (Repeats(core, record)) return refusal::kRepeated;
    if (number != 0 && number != coming.next) return refusal::kDataMissing;
    if (!MayChange(core, logo.changed)) return refusal::kDailyReportFirst;
    std::ranges::copy(dots, coming.logo.rows[number].begin());
    if (number + 1 == coming.logo.rows.size()) {
        const bool changed = core.working().counters.receipts != 0 && logo.complete != coming.logo;
        const LogoMemory complete{.complete = coming.logo, .changed = changed};
        if (!core.Commit(Point::Logo, {.logo = complete})) return kRefusal;
        core.Note("the logo is complete");
    }
    coming.next = (number + 1) % coming.logo.rows.size();
    return kStatusDone;
}

template <std::uint8_t (*Write)(Core&, const Record&)>
Bytes WriteLine(Core& core, const Record& record) {
    const std::uint8_t answer = Write(core, record);
    if (answer == kStatusDone)
        core.session.last_setup.assign(record.data().begin(), record.data().end());
    return {answer};
}

Bytes ReadFooterLine(Core& core, const Record& record) {
    const std::uint8_t number = record.Byte("line");
    if (number >= core.working().footer.size()) return {refusal::kNoSuchLine};
    Bytes answer{kStatusDone, number};
    const Bytes text = core.working().footer[number].text.value_or(Bytes{});
    answer.insert(answer.end(), text.begin(), text.end());
    answer.resize(2 + 40, ' ');
    return answer;
}

constexpr Command kCommands[] = {
    {.code = 0x2E,
     .name = "write footer line",
     .id = "write-footer",
     .early = 1,
     .late = 1,
     .layout = kFooter,
     .models = kHaveFooter,
     .moment = Moment::NoReceipt,
     .incomplete = refusal::kDataMissing,
     .execute = WriteLine<WriteFooterLine>},
    {.code = 0x38,
     .name = "read footer line",
     .id = "read-footer",
     .early = 1,
     .late = 1,
     .layout = kFooterQuery,
     .models = kHaveFooter,
     .execute = ReadFooterLine},
    {.code = 0x2D,
     .name = "write logo line",
     .id = "write-logo",
     .early = 1,
     .late = 1,
     .layout = kLogo,
     .models = kHaveLogo,
     .moment = Moment::NoReceipt,
     .incomplete = refusal::kDataMissing,
     .execute = WriteLine<WriteLogoLine>},
};

}  // namespace

std::span<const Command> FooterLogoCommands() {
    return kCommands;
}

}  // namespace sim
