// Invoices: a receipt that begins with a number, the buyer and the buyer's tax number.
#include "sim/command.h"
#include "sim/commands/status.h"
#include "sim/commands/text_field.h"
#include "sim/fiscal.h"

namespace sim {
namespace {

constexpr ModelSet kIssueInvoices = {11};
constexpr std::uint8_t kUnprintableText = 106;
constexpr int kBuyerLine = 40;

constexpr Field kNumber[] = {
    {"number", FieldKind::Text, 20},
};
// The buyer is always described in code page 852.
constexpr Field kBuyer[] = {
    {"line 1", FieldKind::AdditionalText, kBuyerLine},
    {"line 2", FieldKind::AdditionalText, kBuyerLine},
    {"line 3", FieldKind::AdditionalText, kBuyerLine},
    {"line 4", FieldKind::AdditionalText, kBuyerLine},
    {"line 5", FieldKind::AdditionalText, kBuyerLine},
    {"line 6", FieldKind::AdditionalText, kBuyerLine},
};
constexpr Field kTaxNumber[] = {
    {"tax number", FieldKind::AdditionalText, 13},
};

std::string AdditionalTextOf(const Core& core, std::span<const std::uint8_t> text) {
    return std::string(TrimEnd(core.AdditionalText(text)));
}

std::optional<Bytes> AllowInvoice(Core& core) {
    Require(!core.receipt().open(), Reason::WrongOrder);
    if (!ReceiptAllowed(core)) return std::nullopt;
    return Bytes{};
}

Bytes BeginInvoice(Core& core, const Record& record) {
    const auto number = record.Raw("number");
    if (!IsPrintable(number)) return {kUnprintableText};
    const bool begun = BeginReceipt(core, Invoice{TextOf(core, number), {}, {}});
    return {begun ? kStatusDone : kRefusal};
}

Bytes TakeBuyer(Core& core, const Record& record) {
    if (!IsPrintable(record.data())) return {kUnprintableText};
    std::vector<std::string> lines;
    for (const Field& field : kBuyer)
        lines.push_back(AdditionalTextOf(core, record.Raw(field.label)));
    NameBuyer(core, lines);
    return {kStatusDone};
}

Bytes TakeTaxNumber(Core& core, const Record& record) {
    if (!IsPrintable(record.data())) return {kUnprintableText};
    NameTaxNumber(core, AdditionalTextOf(core, record.data()));
    return {kStatusDone};
}

constexpr Command kCommands[] = {
    // Not told to be out of place in an open receipt: repeating it is an offence of its own.
    {.code = 0x4D,
     .name = "begin invoice",
     .id = "begin-invoice",
     .early = 1,
     .late = 1,
     .layout = kNumber,
     .models = kIssueInvoices,
     .accept = AllowInvoice,
     .execute = BeginInvoice},
    {.code = 0x4E,
     .name = "buyer of the invoice",
     .id = "invoice-buyer",
     .late = 1,
     .layout = kBuyer,
     .models = kIssueInvoices,
     .moment = Moment::InReceipt,
     .refusal = kRefusal,
     .execute = TakeBuyer},
    {.code = 0x4F,
     .name = "buyer's tax number",
     .id = "invoice-tax-number",
     .late = 1,
     .layout = kTaxNumber,
     .models = kIssueInvoices,
     .moment = Moment::InReceipt,
     .refusal = kRefusal,
     .execute = TakeTaxNumber},
};

}  // namespace

std::span<const Command> InvoiceCommands() {
    return kCommands;
}

}  // namespace sim
