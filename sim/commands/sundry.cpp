// Small commands: paper feed, query of an article, the user's lines, codes of cash register and
// cashier.
#include <fmt/format.h>

#include <algorithm>

#include "sim/articles.h"
#include "sim/command.h"
#include "sim/commands/text_field.h"
#include "sim/frame.h"
#include "sim/vat_table.h"

namespace sim {
namespace {

constexpr Field kFeed[] = {
    {"lines", FieldKind::Byte, 1},
};
constexpr Field kArticle[] = {
    {"name", FieldKind::Text, 28},
};
constexpr Field kUserLine[] = {
    {"line", FieldKind::Byte, 1},
    {"mode", FieldKind::Byte, 1},
    {"text", FieldKind::Text, kRest},
};
constexpr Field kCodes[] = {
    {"register", FieldKind::Text, 2},
    {"cashier", FieldKind::Text, 2},
};

constexpr ModelSet kAnswerQueries = {8, 9, 10, 11, 12};
constexpr ModelSet kShortCodes = {1, 2, 3, 4, 5, 6, 7, 8, 9, 12, 13};
constexpr ModelSet kLongCodes = {10, 11};

constexpr std::uint8_t kUnprintable = 106;

Bytes Feed(Core& core, const Record& record) {
    core.printer.Feed(LineKind::Printout, record.Byte("lines"));
    return {};
}

Bytes TellArticle(Core& core, const Record& record) {
    static constexpr std::uint8_t kUnknown = 255;
    static constexpr std::uint8_t kLocked = 1;
    const std::string text = core.Text(record.data());
    const std::string_view name = Trim(text);
    if (!NameIsLongEnough(name)) return {'B'};
    const Article* article = FindArticle(core, name);
    if (!article) return {kStatusDone, kUnknown, 0};
    const std::uint8_t flags = article->rate_lowered ? kLocked : 0;
    return {kStatusDone, NumberOfRate(article->rate), flags};
}

// Texts in large print are half as long.
int UserLineLength(std::span<const std::uint8_t> line_and_mode) {
    static constexpr int kShort = 1;
    return 2 + ((line_and_mode[1] & kShort) != 0 ? 20 : 40);
}

Bytes WriteUserLine(Core& core, const Record& record) {
    const auto text = record.Raw("text");
    if (!IsPrintable(text)) return {kUnprintable};
    const UserLine line{record.Byte("mode"), TextOf(core, text)};
    const Change change{.user_lines = {{record.Byte("line"), line}}};
    return {core.Commit(Point::UserLine, change) ? kStatusDone : kRefusal};
}

bool SetCodes(Core& core, std::span<const std::uint8_t> cash_register,
              std::span<const std::uint8_t> cashier) {
    const CashierCodes codes{TextOf(core, cash_register), TextOf(core, cashier)};
    core.Note(fmt::format(R"(register "{}", cashier "{}")", codes.cash_register, codes.cashier));
    return core.Commit(Point::Codes, {.cashier_codes = codes});
}

// Nothing can be answered to the short codes themselves.
std::optional<Bytes> AllowCodes(Core& core) {
    if (!core.HasRoom()) return std::nullopt;
    return Bytes{};
}

Bytes ShortCodes(Core& core, const Record& record) {
    if (!IsPrintable(record.data()))
        core.Note("unprintable codes");
    else if (!SetCodes(core, record.Raw("register"), record.Raw("cashier")))
        core.Note("no room");
    return {};
}

Bytes LongCodes(Core& core, std::span<const std::uint8_t> content) {
    static constexpr std::size_t kRegister = 3;
    static constexpr std::size_t kCashier = 21;
    const auto digit_or_blank = [](std::uint8_t byte) {
        return byte == ' ' || (byte >= '0' && byte <= '9');
    };
    const bool possible = content.size() == kRegister + kCashier && IsPrintable(content) &&
                          std::ranges::all_of(content.first(kRegister), digit_or_blank);
    if (!possible) throw MalformedFrame{};
    const bool set = SetCodes(core, content.first(kRegister), content.subspan(kRegister));
    return {set ? kAcknowledgement : kRefusal};
}

constexpr Command kCommands[] = {
    {.code = 0x46,
     .name = "feed paper",
     .id = "feed-paper",
     .early = 1,
     .layout = kFeed,
     .moment = Moment::NoReceipt,
     .execute = Feed},
    {.code = 0xEF,
     .name = "article query",
     .id = "article-query",
     .early = 1,
     .late = 1,
     .layout = kArticle,
     .models = kAnswerQueries,
     .moment = Moment::NoReceipt,
     .execute = TellArticle},
    {.code = 0x9C,
     .name = "user line",
     .id = "user-line",
     .early = 1,
     .late = 1,
     .layout = kUserLine,
     .data_length = UserLineLength,
     .moment = Moment::NoReceipt,
     .execute = WriteUserLine},
    {.code = 0x43,
     .name = "register and cashier codes",
     .id = "cashier-codes",
     .early = 1,
     .layout = kCodes,
     .models = kShortCodes,
     .moment = Moment::NoReceipt,
     .accept = AllowCodes,
     .execute = ShortCodes},
};

constexpr TextFrame kFrames[] = {
    {.prefix = "J",
     .name = "register and cashier codes",
     .id = "cashier-codes",
     .models = kLongCodes,
     .moment = Moment::NoReceipt,
     .execute = LongCodes},
};

}  // namespace

std::span<const Command> SundryCommands() {
    return kCommands;
}
std::span<const TextFrame> SundryFrames() {
    return kFrames;
}

}  // namespace sim
