#include "sim/core.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <utility>

#include "sim/code_page.h"
#include "sim/vat_table.h"

namespace sim {
namespace {

// These take additional lines in code page 852, whatever page they are set to.
constexpr ModelSet kAdditionalLinesIn852 = {10, 11, 12};

}  // namespace

Core::Core(const DeviceOptions& given, Memory memory, Storage& storage)
    : options(CheckedOptions(given)),
      model(ModelOf(options.type)),
      version(options.program_version.value_or(model.program_version)),
      code_page(options.code_page.value_or(CodePage::Cp852)),
      display(options.display.value_or(model.display)),
      memory_(std::move(memory)),
      storage_(storage) {
    // The receipt itself has not been kept.
    if (working().counters.receipt_open) receipt().phase = ReceiptPhase::Items;
    LosePower();
}

std::string Core::Text(std::span<const std::uint8_t> text) const {
    return ToUtf8(text, code_page);
}

std::string Core::AdditionalText(std::span<const std::uint8_t> text) const {
    return ToUtf8(text, Is(kAdditionalLinesIn852) ? CodePage::Cp852 : code_page);
}

std::chrono::sys_seconds Core::clock() const {
    const std::chrono::duration<double, std::milli> calendar = passed * options.clock_rate;
    return options.clock + std::chrono::floor<std::chrono::seconds>(calendar) + calendar_shift +
           working().clock.shift;
}

std::string Core::FooterText(std::size_t line) const {
    return std::string(TrimEnd(Text(working().footer[line].text.value_or(Bytes{}))));
}

bool Core::Commit(Point point, const Change& change) {
    if (!storage_.Save(point, change)) return false;
    Apply(change, memory_);
    return true;
}

void Core::CommitInReceipt(Point point) {
    Require(Commit(point), Reason::NoRoomForTotals);
}

void Core::Enforce(Point point, const Change& change) {
    if (!Commit(point, change)) Apply(change, memory_);
}

bool Core::SetRates(const VatRates& new_rates) {
    return Commit(Point::Rates,
                  {.articles_forgotten = true, .rates = HeldRates(model.rate_table, new_rates)});
}

void Core::BeginDocument() {
    Change change{.counters = working().counters};
    ++change.counters->documents;
    Enforce(Point::Document, change);
    PrintHead();
}

void Core::PrintHead() {
    for (const std::string& line : options.header) printer.Centred(LineKind::Header, line);
    printer.Columns(LineKind::Header, fmt::format("{:%Y-%m-%d}", clock()),
                    fmt::format("nr wydr. {:06}", working().counters.documents));
}

void Core::Cancel(Reason reason) {
    Receipt& receipt = this->receipt();
    if (!receipt.open()) return;
    Change change{.counters = working().counters};
    ++change.counters->cancelled_receipts;
    change.counters->receipt_open = false;
    change.counters->cancellation = reason;
    Enforce(Point::ReceiptCancelled, change);
    receipt.phase = ReceiptPhase::Closed;
    receipt.cancelled = true;
    sold().clear();
    printer.Rule(LineKind::Notice);
    printer.Centred(LineKind::Notice, receipt.invoice ? "FAKTURA ANULOWANA" : "PARAGON ANULOWANY");
    printer.Centred(LineKind::Notice,
                    fmt::format("({}) {}", static_cast<int>(reason), Describe(reason)));
    printer.EndDocument(LineKind::Notice);
    Note(fmt::format("receipt cancelled, reason {}", static_cast<int>(reason)));
}

void Core::LosePower() {
    Cancel(Reason::DataTimeout);
    session = {};
}

void Core::NoticeFaults() {
    if (faults.cmos_erased && !erased_) {
        Enforce(Point::Erased, {.erased = true});
        session = {};
    }
    erased_ = faults.cmos_erased;
}

void Core::Note(std::string_view remark) {
    if (!note.empty()) note += "; ";
    note += remark;
}

}  // namespace sim
