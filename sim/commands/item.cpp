// Items: two layouts of fixed fields, for short and for long names, and one of text lines.
#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "sim/code_page.h"
#include "sim/command.h"
#include "sim/fiscal.h"
#include "sim/frame.h"
#include "sim/vat_table.h"

namespace sim {
namespace {

constexpr Field kShortItem[] = {
    {"sign", FieldKind::Character, 1},  // blank for a sale, "-" for a correction
    {"name", FieldKind::Text, 28},      {"message", FieldKind::Character, 1},
    {"quantity", FieldKind::Number, 4}, {"decimals", FieldKind::Byte, 1},
    {"unit", FieldKind::Text, 4},       {"price", FieldKind::Amount, 4},
    {"marker", FieldKind::Marker, 1},   {"rate", FieldKind::Rate, 1},
    {"value", FieldKind::Amount, 4},
};
constexpr Field kLongItem[] = {
    {"sign", FieldKind::Character, 1},    {"name", FieldKind::Text, 40},
    {"message", FieldKind::Character, 1}, {"quantity", FieldKind::Number, 4},
    {"decimals", FieldKind::Byte, 1},     {"unit", FieldKind::Text, 4},
    {"price", FieldKind::Amount, 4},      {"marker", FieldKind::Marker, 1},
    {"rate", FieldKind::Rate, 1},         {"value", FieldKind::Amount, 4},
};

constexpr ModelSet kLongNames = ModelSet{5, 6, 10, 11, 12, 13}.Since(8, 2);
constexpr ModelSet kTextLines = {5, 6, 10, 11, 13};

std::string NameText(const Core& core, std::span<const std::uint8_t> text) {
    Require(std::ranges::all_of(text, [](std::uint8_t byte) { return byte >= ' '; }),
            Reason::UnprintableCharacter);
    return std::string(Trim(core.Text(text)));
}

// The marker comes first: without it the fields are not where they should be, and whatever else
// might be wrong with them says nothing.
Bytes SellItem(Core& core, const Record& record) {
    Require(record.Byte("marker") == kEscape, Reason::MarkerMissing);
    const char sign = static_cast<char>(record.Byte("sign"));
    const char message = static_cast<char>(record.Byte("message"));
    Require((sign == ' ' || sign == '-') && message >= '0' && message <= '7',
            Reason::UnexpectedSequence);
    const std::optional<int> rate = RateOfNumber(record.Byte("rate"));
    const Sale sale{.correction = sign == '-',
                    .name = NameText(core, record.Raw("name")),
                    .rate = rate.value_or(0),
                    .quantity = record.Number("quantity"),
                    .decimals = record.Byte("decimals"),
                    .unit = NameText(core, record.Raw("unit")),
                    .price = record.Number("price"),
                    .value = record.Number("value")};
    Require(rate.has_value(), Reason::WrongRate);
    Sell(core, sale);
    return {};
}

constexpr Command kCommands[] = {
    {.code = 0x06,
     .name = "item",
     .id = "item",
     .layout = kShortItem,
     .moment = Moment::InReceipt,
     .execute = SellItem},
    {.code = 0x05,
     .name = "item with a long name",
     .id = "item",
     .layout = kLongItem,
     .models = kLongNames,
     .moment = Moment::InReceipt,
     .execute = SellItem},
};

// Reads a frame from its front.
class FrameReader {
  public:
    explicit FrameReader(std::span<const std::uint8_t> rest) : rest_(rest) {}

    std::span<const std::uint8_t> Take(std::size_t length) {
        if (rest_.size() < length) throw MalformedFrame{};
        const auto taken = rest_.first(length);
        rest_ = rest_.subspan(length);
        return taken;
    }
    std::span<const std::uint8_t> TakeUntil(std::uint8_t end) {
        const auto place = std::ranges::find(rest_, end);
        return Take(static_cast<std::size_t>(place - rest_.begin()));
    }
    void Expect(std::initializer_list<std::uint8_t> bytes) {
        if (!std::ranges::equal(Take(bytes.size()), bytes)) throw MalformedFrame{};
    }
    void ExpectEnd() const {
        if (!rest_.empty()) throw MalformedFrame{};
    }

  private:
    std::span<const std::uint8_t> rest_;
};

struct Decimal {
    std::int64_t number = 0;
    int decimals = 0;
};

// Digits with at most one point among them.
Decimal ReadDecimal(std::span<const std::uint8_t> text) {
    static constexpr std::size_t kLongest = 14;
    Decimal decimal;
    bool point = false;
    if (text.empty() || text.size() > kLongest) throw MalformedFrame{};
    for (const std::uint8_t byte : text) {
        if (byte == '.' && !point) {
            point = true;
            continue;
        }
        if (byte < '0' || byte > '9') throw MalformedFrame{};
        decimal.number = decimal.number * 10 + (byte - '0');
        decimal.decimals += point;
    }
    return decimal;
}

std::int64_t ReadMoney(std::span<const std::uint8_t> text) {
    const Decimal money = ReadDecimal(text);
    if (money.decimals != 2) throw MalformedFrame{};
    return money.number;
}

// The name goes on after the price, in lines that end with a line feed and a carriage return.
Bytes JoinedName(std::span<const std::uint8_t> first, std::span<const std::uint8_t> others) {
    Bytes name(first.begin(), first.end());
    for (std::size_t i = 0; i < others.size(); ++i) {
        if (others[i] == '\n' && i + 1 < others.size() && others[i + 1] == '\r')
            ++i;
        else
            name.push_back(others[i]);
    }
    return name;
}

Bytes OpenTextLines(Core&, std::span<const std::uint8_t> content) {
    FrameReader(content).ExpectEnd();
    return {kAcknowledgement};
}

Bytes SellTextLine(Core& core, std::span<const std::uint8_t> content) {
    static constexpr std::size_t kNameLine = 40;
    static constexpr std::size_t kUnit = 4;
    static constexpr std::uint8_t kValueMark = 0xB1;
    static constexpr std::uint8_t kRateMark = 0xB2;
    FrameReader reader(content);
    const auto name = reader.Take(kNameLine);
    reader.Expect({0});
    const Decimal quantity = ReadDecimal(reader.TakeUntil(' '));
    reader.Expect({' '});
    const auto unit = reader.Take(kUnit);
    reader.Expect({' ', '*', ' '});
    const std::int64_t price = ReadMoney(reader.TakeUntil(' '));
    reader.Expect({' ', '=', '\n', '\r'});
    const auto more_of_name = reader.TakeUntil(kEscape);
    reader.Expect({kEscape, kValueMark, 'a'});
    const std::int64_t value = ReadMoney(reader.TakeUntil(kEscape));
    reader.Expect({kEscape, kRateMark});
    const int rate = reader.Take(1)[0] - 'A';
    reader.ExpectEnd();

    const Sale sale{.name = NameText(core, JoinedName(name, more_of_name)),
                    .rate = rate,
                    .quantity = quantity.number,
                    .decimals = quantity.decimals,
                    .unit = NameText(core, unit),
                    .price = price,
                    .value = value};
    core.Note(fmt::format("\"{}\" {} x {} = {}", sale.name, Quantity(sale.quantity, sale.decimals),
                          Money(price), Money(value)));
    Require(rate >= 0 && rate < kRates, Reason::WrongRate);
    Sell(core, sale);
    return {kAcknowledgement};
}

constexpr TextFrame kFrames[] = {
    {.prefix = "C",
     .name = "open text lines",
     .id = "open-text-lines",
     .models = kTextLines,
     .moment = Moment::InReceipt,
     .execute = OpenTextLines},
    {.prefix = "D",
     .name = "item as a text line",
     .id = "item",
     .models = kTextLines,
     .moment = Moment::InReceipt,
     .execute = SellTextLine},
};

}  // namespace

std::span<const Command> ItemCommands() {
    return kCommands;
}
std::span<const TextFrame> ItemFrames() {
    return kFrames;
}

}  // namespace sim
