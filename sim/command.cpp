#include "sim/command.h"

#include <fmt/format.h>

#include <array>
#include <stdexcept>
#include <string_view>

#include "sim/code_page.h"
#include "sim/vat_table.h"

namespace sim {
namespace {

std::int64_t SignedNumber(std::span<const std::uint8_t> bytes) {
    std::uint32_t number = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) number = number << 8 | bytes[i];
    return static_cast<std::int32_t>(number);
}

std::string Quoted(std::string_view text) {
    return fmt::format("\"{}\"", TrimEnd(text));
}

std::string DotsText(std::span<const std::uint8_t> bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes)
        for (int dot = 0; dot < 8; ++dot) text.push_back(byte & 0x80 >> dot ? '#' : '.');
    return text;
}

std::string DigitsText(std::span<const std::uint8_t> bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes)
        text.push_back(byte <= 9 ? static_cast<char>('0' + byte) : '?');
    return text;
}

int WordOf(std::span<const std::uint8_t> bytes) {
    return bytes[0] | bytes[1] << 8;
}

std::string RatesText(std::span<const std::uint8_t> bytes) {
    for (const RateTable table : {RateTable::Four, RateTable::Six, RateTable::Seven}) {
        if (bytes.size() != static_cast<std::size_t>(CodedLength(table))) continue;
        const VatRates rates = DecodeRates(table, bytes);
        std::string text;
        for (int i = 0; i < static_cast<int>(table); ++i)
            text += fmt::format("{}{}: {}", i > 0 ? ", " : "", RateLetter(i),
                                RateText(rates[static_cast<std::size_t>(i)]));
        return text;
    }
    return "";
}

std::string ValueText(const Core& core, FieldKind kind, std::span<const std::uint8_t> bytes) {
    switch (kind) {
        case FieldKind::Character:
            return fmt::format("\"{}\"", core.Text(bytes));
        case FieldKind::Byte:
            return std::to_string(bytes[0]);
        case FieldKind::Amount:
            return Money(SignedNumber(bytes));
        case FieldKind::Number:
            return std::to_string(SignedNumber(bytes));
        case FieldKind::Word:
            return std::to_string(WordOf(bytes));
        case FieldKind::Digits:
            return DigitsText(bytes);
        case FieldKind::Dots:
            return DotsText(bytes);
        case FieldKind::Text:
            return Quoted(core.Text(bytes));
        case FieldKind::AdditionalText:
            return Quoted(core.AdditionalText(bytes));
        case FieldKind::Rate: {
            const std::optional<int> rate = RateOfNumber(bytes[0]);
            return fmt::format("{} ({})", bytes[0], rate ? RateLetter(*rate) : '?');
        }
        case FieldKind::Marker:
            return bytes[0] == kEscape ? "present" : "missing";
        case FieldKind::Rates:
            return RatesText(bytes);
    }
    return "";
}

using Table = std::array<const Command*, 256>;

Table AllCommands() {
    Table table{};
    for (const std::span<const Command> family :
         {IdentityCommands(), StatusCommands(), VatCommands(), ReceiptCommands(), ItemCommands(),
          PaymentCommands(), DiscountCommands(), PackageCommands(), InvoiceCommands(),
          ReportCommands(), ClockCommands(), TotalsCommands(), ConfigurationCommands(),
          FooterLogoCommands(), PrintoutCommands(), SundryCommands(), DisplayCommands(),
          FrameCommands()}) {
        for (const Command& command : family) {
            if (table[command.code]) throw std::logic_error("two commands with one byte");
            table[command.code] = &command;
        }
    }
    return table;
}

}  // namespace

Record::Record(std::span<const Field> layout, std::span<const std::uint8_t> data)
    : layout_(layout), data_(data) {}

std::span<const std::uint8_t> Record::Raw(const char* label) const {
    std::size_t position = 0;
    for (const Field& field : layout_) {
        const std::size_t length = field.length == kRest ? data_.size() - position
                                                         : static_cast<std::size_t>(field.length);
        if (std::string_view(field.label) == label) return data_.subspan(position, length);
        position += length;
    }
    throw std::logic_error(fmt::format("the layout has no field {}", label));
}

std::int64_t Record::Number(const char* label) const {
    return SignedNumber(Raw(label));
}

int Record::Word(const char* label) const {
    return WordOf(Raw(label));
}

std::vector<std::pair<std::string, std::string>> Record::Describe(const Core& core) const {
    std::vector<std::pair<std::string, std::string>> fields;
    for (const Field& field : layout_)
        fields.emplace_back(field.label, ValueText(core, field.kind, Raw(field.label)));
    return fields;
}

bool InPlace(const Core& core, Moment moment) {
    switch (moment) {
        case Moment::Anytime:
            return true;
        case Moment::NoReceipt:
            return !core.receipt().open();
        case Moment::NoDocument:
            return !core.receipt().open() && !core.session.printout.open();
        case Moment::InReceipt:
            return core.receipt().open();
        case Moment::InPrintout:
            return core.session.printout.open();
    }
    return false;
}

int CountedLength(const Command& command) {
    int length = 0;
    for (const Field& field : command.layout)
        if (field.length != kRest) length += field.length;
    return length;
}

const Command* FindCommand(std::uint8_t code) {
    static const Table kTable = AllCommands();
    return kTable[code];
}

}  // namespace sim
