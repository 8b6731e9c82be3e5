// Discounts and surcharges on the last item, and where the receipt stands.
#include <fmt/format.h>

#include "sim/command.h"
#include "sim/fiscal.h"
#include "sim/vat_table.h"

namespace sim {
namespace {

constexpr ModelSet kDiscountItems = {8, 10, 11, 13};
constexpr ModelSet kPrintSubtotals = {4, 8, 10, 11, 12, 13};

constexpr Field kAmount[] = {
    {"sign", FieldKind::Character, 1},
    {"amount", FieldKind::Amount, 4},
};
constexpr Field kPercent[] = {
    {"kind", FieldKind::Character, 1},
    {"percent", FieldKind::Word, 2},
};

Bytes AmountDiscount(Core& core, const Record& record) {
    const std::uint8_t sign = record.Byte("sign");
    Require(sign == '-' || sign == ' ', Reason::WrongDiscount);
    DiscountSaleByAmount(core, sign == ' ', record.Number("amount"));
    return {};
}

Bytes PercentDiscount(Core& core, const Record& record) {
    const std::uint8_t kind = record.Byte("kind");
    Require(kind == 'R' || kind == 'N', Reason::WrongDiscount);
    DiscountSaleByPercent(core, kind == 'N', record.Word("percent"));
    return {};
}

std::optional<Bytes> ReceiptTotals(Core& core) {
    static constexpr std::size_t kTotalLength = 4;
    const Receipt& receipt = core.receipt();
    Bytes bytes(kRates * kTotalLength);
    for (int rate = 0; rate < kRates; ++rate) {
        const auto total =
            static_cast<std::uint64_t>(receipt.totals[static_cast<std::size_t>(rate)]);
        for (std::size_t i = 0; i < kTotalLength; ++i)
            bytes[(NumberOfRate(rate) - 1u) * kTotalLength + i] =
                static_cast<std::uint8_t>(total >> (8 * i));
    }
    core.Note(fmt::format("total {}", Money(receipt.total)));
    return bytes;
}

Bytes Subtotal(Core& core, const Record&) {
    PrintSubtotal(core);
    return {};
}

constexpr Command kCommands[] = {
    {.code = 0x18,
     .name = "amount discount on the item",
     .id = "item-amount-discount",
     .layout = kAmount,
     .models = kDiscountItems,
     .moment = Moment::InReceipt,
     .execute = AmountDiscount},
    {.code = 0x1C,
     .name = "percent discount on the item",
     .id = "item-percent-discount",
     .layout = kPercent,
     .models = kDiscountItems,
     .moment = Moment::InReceipt,
     .execute = PercentDiscount},
    {.code = 0x85,
     .name = "totals of the receipt",
     .id = "receipt-totals",
     .early = 29,
     .models = kDiscountItems,
     .accept = ReceiptTotals},
    {.code = 0x80,
     .name = "subtotal",
     .id = "subtotal",
     .models = kPrintSubtotals,
     .moment = Moment::InReceipt,
     .execute = Subtotal},
};

}  // namespace

std::span<const Command> DiscountCommands() {
    return kCommands;
}

}  // namespace sim
