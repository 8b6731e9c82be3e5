// Forms of payment, payments in other currencies, lines after the receipt.
#include <fmt/format.h>

#include <algorithm>

#include "sim/code_page.h"
#include "sim/command.h"
#include "sim/fiscal.h"

namespace sim {
namespace {

constexpr Field kPaid[] = {
    {"number", FieldKind::Byte, 1},
    {"name", FieldKind::Text, 13},
    {"paid", FieldKind::Amount, 4},
};
constexpr Field kChange[] = {
    {"number", FieldKind::Byte, 1},
    {"name", FieldKind::Text, 13},
    {"change", FieldKind::Amount, 4},
};
constexpr Field kCurrency[] = {
    {"currency", FieldKind::Text, 3},
    {"rate", FieldKind::Text, 10},
    {"quantity", FieldKind::Byte, 1},
    {"subtotal", FieldKind::Amount, 4},
};
constexpr Field kCurrencyTotal[] = {
    {"total in currency", FieldKind::Amount, 4},
    {"total", FieldKind::Amount, 4},
    {"change in currency", FieldKind::Amount, 4},
    {"change", FieldKind::Amount, 4},
};
constexpr Field kAdditionalCurrency[] = {
    {"number", FieldKind::Byte, 1},   {"is change", FieldKind::Byte, 1},
    {"currency", FieldKind::Text, 3}, {"paid in currency", FieldKind::Amount, 4},
    {"rate", FieldKind::Number, 4},   {"decimals of rate", FieldKind::Byte, 1},
    {"paid", FieldKind::Amount, 4},
};
constexpr Field kAdditionalLine[] = {
    {"number", FieldKind::Character, 1},
    {"text", FieldKind::AdditionalText, kRest},
};

constexpr int kLargestRateDecimals = 8;
constexpr char kFirstLine = '0';
constexpr char kLastLine = kFirstLine + 22;

// These tell a currency payment from a cancellation by whether anything has been sold yet: before
// the first item the same sequence cancels the receipt, and only then it is answered.
constexpr ModelSet kCancelsBeforeFirstItem = {10, 11};

std::string PrintableName(const Core& core, std::span<const std::uint8_t> text) {
    Require(std::ranges::all_of(text, [](std::uint8_t byte) { return byte >= ' '; }),
            Reason::UnprintableCharacter);
    return std::string(TrimEnd(core.Text(text)));
}

std::string CurrencyName(const Record& record) {
    const auto name = record.Raw("currency");
    Require(std::ranges::all_of(name, [](std::uint8_t byte) { return byte > ' ' && byte < 0x7F; }),
            Reason::WrongCurrencyPayment);
    return ToUtf8(name, CodePage::Cp852);
}

// A rate given as text: digits with one point or comma at most.
std::string RateAsText(const Record& record) {
    const std::string text = ToUtf8(record.Raw("rate"), CodePage::Cp852);
    const std::string_view rate = Trim(text);
    const auto digit = [](char c) { return c >= '0' && c <= '9'; };
    const auto point = [](char c) { return c == '.' || c == ','; };
    Require(std::ranges::any_of(rate, digit) && std::ranges::count_if(rate, point) <= 1 &&
                std::ranges::all_of(rate, [&](char c) { return digit(c) || point(c); }),
            Reason::WrongCurrencyPayment);
    return std::string(rate);
}

std::int64_t AmountOf(const Record& record, const char* label) {
    const std::int64_t amount = record.Number(label);
    Require(amount >= 0, Reason::WrongCurrencyPayment);
    return amount;
}

Bytes Paid(Core& core, const Record& record) {
    DeclarePayment(core, {.number = record.Byte("number"),
                          .name = PrintableName(core, record.Raw("name")),
                          .paid = record.Number("paid")});
    return {};
}

Bytes Change(Core& core, const Record& record) {
    DeclareChange(core, {.number = record.Byte("number"),
                         .name = PrintableName(core, record.Raw("name")),
                         .change = record.Number("change")});
    return {};
}

Bytes Currency(Core& core, const Record& record) {
    AddCurrencyPayments(core, {{fmt::format("{} kurs {} / {}", CurrencyName(record),
                                            RateAsText(record), record.Byte("quantity")),
                                AmountOf(record, "subtotal")}});
    return {};
}

Bytes CurrencyTotal(Core& core, const Record& record) {
    if (core.Is(kCancelsBeforeFirstItem) && core.receipt().sales.empty()) {
        core.Cancel(Reason::ByHost);
        return {kAcknowledgement};
    }
    const std::int64_t in_currency = AmountOf(record, "total in currency");
    const std::int64_t total = AmountOf(record, "total");
    const std::int64_t change_in_currency = AmountOf(record, "change in currency");
    const std::int64_t change = AmountOf(record, "change");
    std::vector<CurrencyPayment> payments = {{"Zapłacono w walucie", in_currency},
                                             {"Wartość w PLN", total}};
    if (change_in_currency != 0) payments.push_back({"Reszta w walucie", change_in_currency});
    if (change != 0) payments.push_back({"Reszta w PLN", change});
    AddCurrencyPayments(core, payments);
    return {};
}

Bytes AdditionalCurrency(Core& core, const Record& record) {
    const std::string name = CurrencyName(record);
    const std::int64_t in_currency = AmountOf(record, "paid in currency");
    const std::int64_t rate = AmountOf(record, "rate");
    const int decimals = record.Byte("decimals of rate");
    Require(decimals <= kLargestRateDecimals, Reason::WrongCurrencyPayment);
    const char* label = record.Byte("is change") != 0 ? "Reszta " : "";
    AddCurrencyPayments(
        core,
        {{fmt::format("{}{} {} kurs {}", label, Money(in_currency), name, Quantity(rate, decimals)),
          AmountOf(record, "paid")}});
    return {};
}

Bytes AdditionalLine(Core& core, const Record& record) {
    const std::uint8_t number = record.Byte("number");
    Require(number >= kFirstLine && number <= kLastLine, Reason::UnexpectedSequence);
    AddLine(core, core.AdditionalText(record.Raw("text")));
    return {};
}

constexpr ModelSet kFormsOfPayment = {4, 8, 9, 10, 11, 12, 13};

constexpr Command kCommands[] = {
    {.code = 0x81,
     .name = "payment",
     .id = "payment",
     .layout = kPaid,
     .models = kFormsOfPayment,
     .moment = Moment::InReceipt,
     .execute = Paid},
    {.code = 0x82,
     .name = "change of payment",
     .id = "payment-change",
     .layout = kChange,
     .models = kFormsOfPayment,
     .moment = Moment::InReceipt,
     .execute = Change},
    {.code = 0x83,
     .name = "currency payment",
     .id = "currency-payment",
     .layout = kCurrency,
     .models = {8, 10, 11, 12},
     .moment = Moment::InReceipt,
     .execute = Currency},
    {.code = 0x84,
     .name = "currency payment, total",
     .id = "currency-total",
     .layout = kCurrencyTotal,
     .models = {8, 10, 11, 12, 13},
     .moment = Moment::InReceipt,
     .execute = CurrencyTotal},
    {.code = 0x08,
     .name = "additional currency payment",
     .id = "additional-currency-payment",
     .layout = kAdditionalCurrency,
     .models = ModelSet{7, 9, 10, 11, 12, 13}.Since(4, 6).Since(8, 2),
     .moment = Moment::InReceipt,
     .execute = AdditionalCurrency},
    {.code = 0x09,
     .name = "additional line",
     .id = "additional-line",
     .data_end = DataEnd::LineFeed,
     .layout = kAdditionalLine,
     .moment = Moment::InReceipt,
     .execute = AdditionalLine},
};

}  // namespace

std::span<const Command> PaymentCommands() {
    return kCommands;
}

}  // namespace sim
