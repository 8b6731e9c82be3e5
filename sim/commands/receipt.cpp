// A receipt from its beginning to its end or cancellation.
#include "sim/command.h"
#include "sim/commands/status.h"
#include "sim/fiscal.h"
#include "sim/printout.h"

namespace sim {
namespace {

constexpr Field kPercent[] = {
    {"percent", FieldKind::Byte, 1},
};
constexpr Field kDiscount[] = {
    {"sign", FieldKind::Character, 1},
    {"amount", FieldKind::Amount, 4},
};
constexpr Field kTotal[] = {
    {"total", FieldKind::Amount, 4},
};

std::optional<Bytes> Begin(Core& core) {
    if (!core.receipt().open() && !ReceiptAllowed(core)) return std::nullopt;
    if (!BeginReceipt(core)) return std::nullopt;
    return Bytes{};
}

std::optional<Bytes> End(Core& core) {
    // The receipt stays open until the fiscal module can be written to again.
    if (core.faults.read_only || !EndReceipt(core)) return std::nullopt;
    return Bytes{};
}

// The host also begins its sessions with this, to be rid of a receipt left open; without one it is
// refused. A printout left open is ended as well.
std::optional<Bytes> CancelByHost(Core& core) {
    EndPrintout(core);
    if (!core.receipt().open()) return std::nullopt;
    core.Cancel(Reason::ByHost);
    return Bytes{};
}

Bytes PercentDiscount(Core& core, const Record& record) {
    DiscountByPercent(core, record.Byte("percent"));
    return {};
}

Bytes AmountDiscount(Core& core, const Record& record) {
    const char sign = static_cast<char>(record.Byte("sign"));
    Require(sign == '-' || sign == ' ', Reason::WrongDiscount);
    DiscountByAmount(core, sign == ' ', record.Number("amount"));
    return {};
}

Bytes Total(Core& core, const Record& record) {
    CheckTotal(core, record.Number("total"));
    return {};
}

constexpr Command kCommands[] = {
    // Not told to be out of place in an open receipt: repeating it is an offence of its own.
    {.code = 0x21, .name = "begin receipt", .id = "begin-receipt", .early = 1, .accept = Begin},
    {.code = 0x24,
     .name = "end receipt",
     .id = "end-receipt",
     .early = 1,
     .moment = Moment::InReceipt,
     .accept = End},
    {.code = 0x23,
     .name = "cancel receipt",
     .id = "cancel-receipt",
     .early = 1,
     .accept = CancelByHost},
    {.code = 0x1B,
     .name = "percent discount on the receipt",
     .id = "receipt-percent-discount",
     .layout = kPercent,
     .moment = Moment::InReceipt,
     .execute = PercentDiscount},
    {.code = 0x19,
     .name = "amount discount on the receipt",
     .id = "receipt-amount-discount",
     .layout = kDiscount,
     .moment = Moment::InReceipt,
     .execute = AmountDiscount},
    {.code = 0x07,
     .name = "total to pay",
     .id = "total",
     .layout = kTotal,
     .moment = Moment::InReceipt,
     .execute = Total},
};

}  // namespace

std::span<const Command> ReceiptCommands() {
    return kCommands;
}

}  // namespace sim
