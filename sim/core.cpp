#include "sim/core.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

#include "sim/code_page.h"
#include "sim/vat_table.h"

namespace sim {
namespace {

constexpr VatRates kDefaultRates = {2300, 800, 500, 0, kRateUnused, kRateUnused, kRateExempt};

// These take additional lines in code page 852, whatever page they are set to.
constexpr ModelSet kAdditionalLinesIn852 = {10, 11, 12};

void Check(bool possible, const char* complaint) {
    if (!possible) throw std::invalid_argument(complaint);
}

const DeviceOptions& Checked(const DeviceOptions& options) {
    Check(options.type >= kFirstType && options.type <= kLastType,
          "the device type has to be 1 to 13");
    const int version = options.program_version.value_or(0);
    Check(version >= 0 && version <= 255, "the program version has to be 0 to 255");
    Check(ModelOf(options.type).choice_of_code_page ||
              options.code_page.value_or(CodePage::Cp852) == CodePage::Cp852,
          "only device types 8 to 12 can have a code page other than 852");
    Check(ModelOf(options.type).display != DisplayKind::None ||
              options.display.value_or(DisplayKind::None) == DisplayKind::None,
          "only device types 1, 2, 3, 5 and 6 have a customer display");
    Check(options.unique_number.size() == 11, "the unique number has to have 11 characters");
    int number = 0;  // of the report before
    for (const DailyReport& report : options.daily_reports) {
        Check(report.number > number && report.number <= 65535,
              "daily reports have to be numbered from 1 upwards, to 65535 at most");
        number = report.number;
    }
    return options;
}

// What the device's table of rates can hold of the rates given.
VatRates Held(RateTable table, const VatRates& rates) {
    return DecodeRates(table, EncodeRates(table, rates));
}

}  // namespace

Core::Core(const DeviceOptions& given)
    : options(Checked(given)),
      model(ModelOf(options.type)),
      version(options.program_version.value_or(model.program_version)),
      code_page(options.code_page.value_or(CodePage::Cp852)),
      rates(Held(model.rate_table, options.vat_rates.value_or(kDefaultRates))),
      daily_reports(options.daily_reports),
      display(options.display.value_or(model.display)) {}

std::string Core::Text(std::span<const std::uint8_t> text) const {
    return ToUtf8(text, code_page);
}

std::string Core::AdditionalText(std::span<const std::uint8_t> text) const {
    return ToUtf8(text, Is(kAdditionalLinesIn852) ? CodePage::Cp852 : code_page);
}

std::chrono::sys_seconds Core::clock() const {
    return options.clock + std::chrono::floor<std::chrono::seconds>(now) + clock_shift;
}

std::string Core::FooterText(std::size_t line) const {
    return std::string(TrimEnd(Text(footer[line].text)));
}

void Core::SetRates(const VatRates& new_rates) {
    rates = Held(model.rate_table, new_rates);
    articles.clear();
}

void Core::BeginDocument() {
    ++document_number;
    for (const std::string& line : options.header) printer.Centred(LineKind::Header, line);
    printer.Columns(LineKind::Header, fmt::format("{:%Y-%m-%d}", clock()),
                    fmt::format("nr wydr. {:06}", document_number));
}

void Core::Cancel(Reason reason) {
    if (!receipt.open()) return;
    receipt.phase = ReceiptPhase::Closed;
    receipt.cancelled = true;
    ++cancelled_receipts;
    cancellation = reason;
    printer.Rule(LineKind::Notice);
    printer.Centred(LineKind::Notice, receipt.invoice ? "FAKTURA ANULOWANA" : "PARAGON ANULOWANY");
    printer.Centred(LineKind::Notice,
                    fmt::format("({}) {}", static_cast<int>(reason), Describe(reason)));
    printer.Text(LineKind::Notice, "");
    Note(fmt::format("receipt cancelled, reason {}", static_cast<int>(reason)));
}

void Core::Note(std::string_view remark) {
    if (!note.empty()) note += "; ";
    note += remark;
}

}  // namespace sim
