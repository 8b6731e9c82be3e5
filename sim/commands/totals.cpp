// The day's figures: totals per rate, and the totalizers and counters that a text frame asks for;
// the unique number.
#include <fmt/format.h>

#include <algorithm>

#include "sim/command.h"
#include "sim/frame.h"
#include "sim/rate_totals.h"

namespace sim {
namespace {

constexpr ModelSet kTellTotals = {4, 7, 8, 10, 11, 12, 13};
constexpr int kTotalLength = 5;
constexpr int kUniqueNumberLength = 11;

std::optional<Bytes> TotalsPerRate(Core& core) {
    Bytes bytes;
    for (const std::int64_t total : core.working().counters.totals)
        for (int i = 0; i < kTotalLength; ++i)
            bytes.push_back(static_cast<std::uint8_t>(static_cast<std::uint64_t>(total) >> 8 * i));
    core.Note(fmt::format("day's total {}", Money(Sum(core.working().counters.totals))));
    return bytes;
}

std::optional<Bytes> UniqueNumber(Core& core) {
    const std::string& number = core.fiscal().unique_number;
    return Bytes(number.begin(), number.end());
}

// The answer to the frame: Esc, "r", the length of the body with its high byte first, the body.
Bytes WithHead(Bytes body) {
    const std::size_t length = body.size();
    const auto head = {std::uint8_t{kEscape}, std::uint8_t{'r'},
                       static_cast<std::uint8_t>(length >> 8), static_cast<std::uint8_t>(length)};
    body.insert(body.begin(), head);
    return body;
}

Bytes Totalizers(const RateAmounts& amounts) {
    static constexpr std::int64_t kLargest = 9'999'999'999;
    std::string text;
    for (const std::int64_t amount : amounts)
        text += fmt::format("{:010}", std::min(amount, kLargest));
    return WithHead(Bytes(text.begin(), text.end()));
}

Bytes Counters(const Core& core) {
    Bytes body;
    for (const int number :
         {int{core.working().counters.receipts}, core.working().counters.cancelled_receipts,
          core.fiscal().report_number()}) {
        body.push_back(static_cast<std::uint8_t>(number >> 8));
        body.push_back(static_cast<std::uint8_t>(number));
    }
    return WithHead(body);
}

Bytes TellFigures(Core& core, std::span<const std::uint8_t> selector) {
    if (selector.size() != 1) throw MalformedFrame{};
    switch (selector[0]) {
        case '0':
            return Totalizers(core.working().counters.totals);
        case '2':
            return Totalizers(TaxesIn(core.working().counters.totals, core.fiscal().rates));
        case '4':
            return Counters(core);
        default:
            throw MalformedFrame{};
    }
}

constexpr Command kCommands[] = {
    {.code = 0xDA,
     .name = "day's totals per rate",
     .id = "day-totals",
     .early = 1 + kRates * kTotalLength,
     .models = kTellTotals,
     .moment = Moment::NoReceipt,
     .accept = TotalsPerRate},
    {.code = 0x71,
     .name = "unique number",
     .id = "unique-number",
     .early = 1 + kUniqueNumberLength,
     .moment = Moment::NoReceipt,
     .accept = UniqueNumber},
};

constexpr TextFrame kFrames[] = {
    {.prefix = "LO",
     .name = "day's totalizers and counters",
     .id = "day-figures",
     .models = {10, 11},
     .moment = Moment::NoReceipt,
     .execute = TellFigures},
};

}  // namespace

std::span<const Command> TotalsCommands() {
    return kCommands;
}
std::span<const TextFrame> TotalsFrames() {
    return kFrames;
}

}  // namespace sim
