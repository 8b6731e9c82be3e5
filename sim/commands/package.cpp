// Returnable packages, and the drawers.
#include "sim/command.h"
#include "sim/printer.h"

namespace sim {
namespace {

constexpr ModelSet kTakePackages = {4, 8, 10, 11, 12, 13};
constexpr std::size_t kMostLines = 32;  // of packages in a receipt
constexpr std::int64_t kLargestAmount = 999'999'999;

constexpr Field kPackage[] = {
    {"sign", FieldKind::Character, 1},  // "-" takes a line back
    {"kind", FieldKind::Character, 1},  // "S" sold, "Z" returned by the customer
    {"number", FieldKind::Word, 2},    {"quantity", FieldKind::Word, 2},
    {"price", FieldKind::Amount, 4},
};

// A correction takes back at most what the receipt holds of the same packages.
bool BalanceHolds(const Receipt& receipt, const Package& correction) {
    int balance = 0;
    for (const Package& package : receipt.packages)
        if (package.returned == correction.returned && package.number == correction.number &&
            package.price == correction.price)
            balance += package.correction ? -package.quantity : package.quantity;
    return balance >= correction.quantity;
}

bool Possible(const Receipt& receipt, const Package& package) {
    return receipt.phase != ReceiptPhase::Totalled && receipt.packages.size() < kMostLines &&
           package.quantity > 0 && package.price > 0 &&
           package.quantity * package.price <= kLargestAmount &&
           (!package.correction || BalanceHolds(receipt, package));
}

// A refused line does no harm to the receipt.
Bytes TakePackage(Core& core, const Record& record) {
    const std::uint8_t sign = record.Byte("sign");
    const std::uint8_t kind = record.Byte("kind");
    const Package package{.correction = sign == '-',
                          .returned = kind == 'Z',
                          .number = record.Word("number"),
                          .quantity = record.Word("quantity"),
                          .price = record.Number("price")};
    const bool known = (sign == '-' || sign == ' ') && (kind == 'S' || kind == 'Z');
    if (!known || !Possible(core.receipt(), package) || !core.Commit(Point::Package))
        return {kRefusal};
    core.receipt().packages.push_back(package);
    core.Note("to pay " + Money(core.receipt().to_pay()));
    return {kAcknowledgement};
}

template <int drawer>
std::optional<Bytes> Open(Core& core) {
    ++core.drawers_opened[drawer - 1];
    return Bytes{};
}

constexpr Command kCommands[] = {
    {.code = 0x17,
     .name = "packages",
     .id = "packages",
     .late = 1,
     .layout = kPackage,
     .models = kTakePackages,
     .moment = Moment::InReceipt,
     .refusal = kRefusal,
     .execute = TakePackage},
    {.code = 0x57, .name = "open drawer 1", .id = "open-drawer-1", .early = 1, .accept = Open<1>},
    {.code = 0x58, .name = "open drawer 2", .id = "open-drawer-2", .early = 1, .accept = Open<2>},
    {.code = 0x59, .name = "open drawer 3", .id = "open-drawer-3", .early = 1, .accept = Open<3>},
};

}  // namespace

std::span<const Command> PackageCommands() {
    return kCommands;
}

}  // namespace sim
