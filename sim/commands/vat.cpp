// The table of VAT rates: each generation knows the commands of its own table only.
#include "sim/command.h"
#include "sim/vat_table.h"

namespace sim {
namespace {

constexpr ModelSet kSevenRates = {4, 7, 8, 9, 10, 11, 12, 13};
constexpr ModelSet kSixRates = {2, 3, 6};
constexpr ModelSet kFourRates = {1, 5};

constexpr Field kSevenRateTable[] = {
    {"rates", FieldKind::Rates, CodedLength(RateTable::Seven)},
};
constexpr Field kSixRateTable[] = {
    {"rates", FieldKind::Rates, CodedLength(RateTable::Six)},
};
constexpr Field kFourRateTable[] = {
    {"rates", FieldKind::Rates, CodedLength(RateTable::Four)},
};

std::optional<Bytes> ReadRates(Core& core) {
    return EncodeRates(core.model.rate_table, core.fiscal().rates);
}

// Rates change only right after a daily report, before the first sale, and where the fiscal module
// can be written to.
std::optional<Bytes> AllowRates(Core& core) {
    if (core.working().counters.receipts != 0 || core.faults.read_only || !core.HasRoom())
        return std::nullopt;
    return Bytes{};
}

// Nothing can be answered to rates that are not taken; the host has to read them back.
Bytes WriteRates(Core& core, const Record& record) {
    const RateTable table = core.model.rate_table;
    const auto coded = record.Raw("rates");
    if (!AreRates(table, coded)) {
        core.Note("refused: above 100 %");
        return {};
    }
    VatRates rates = DecodeRates(table, coded);
    if (table != RateTable::Seven) rates.back() = core.fiscal().rates.back();
    if (rates == core.fiscal().rates) {
        core.Note("the same rates");
        return {};
    }
    if (!core.SetRates(rates)) return {};
    core.printer.Centred(LineKind::Notice, "ZMIANA STAWEK PTU");
    for (int rate = 0; rate < kRates; ++rate)
        core.printer.Columns(LineKind::Notice, std::string("PTU ") + RateLetter(rate),
                             RateText(core.fiscal().rates[static_cast<std::size_t>(rate)]));
    core.printer.EndDocument(LineKind::Notice);
    return {};
}

constexpr Command ReadCommand(std::uint8_t code, RateTable table, const ModelSet& models) {
    return {.code = code,
            .name = "read VAT rates",
            .id = "read-rates",
            .early = 1 + CodedLength(table),
            .models = models,
            .moment = Moment::NoReceipt,
            .accept = ReadRates};
}

constexpr Command WriteCommand(std::uint8_t code, std::span<const Field> layout,
                               const ModelSet& models) {
    return {.code = code,
            .name = "write VAT rates",
            .id = "write-rates",
            .early = 1,
            .layout = layout,
            .models = models,
            .moment = Moment::NoReceipt,
            .accept = AllowRates,
            .execute = WriteRates};
}

constexpr Command kCommands[] = {
    ReadCommand(0xD1, RateTable::Seven, kSevenRates),
    ReadCommand(0xD0, RateTable::Six, kSixRates),
    ReadCommand(0x70, RateTable::Four, kFourRates),
    WriteCommand(0xD5, kSevenRateTable, kSevenRates),
    WriteCommand(0xD4, kSixRateTable, kSixRates),
    WriteCommand(0x44, kFourRateTable, kFourRates),
};

}  // namespace

std::span<const Command> VatCommands() {
    return kCommands;
}

}  // namespace sim
