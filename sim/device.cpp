#include "sim/device.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "sim/core.h"
#include "sim/render/text.h"
#include "sim/wire.h"

namespace sim {
namespace {

// Storage without a state of its own serves all devices.
Storage& KeepsNothing() {
    static Storage storage;
    return storage;
}

}  // namespace

std::string FormatExchange(const Exchange& exchange) {
    const double seconds = static_cast<double>(exchange.at.count()) / 1000;
    std::string text = fmt::format("{:10.3f} {}\n", seconds, exchange.name);
    const auto line = [&text](std::string_view label, const std::string& content) {
        if (!content.empty()) text += fmt::format("{:>17} {}\n", label, content);
    };
    line("host:", fmt::format("{:02X}", fmt::join(exchange.received, " ")));
    std::string fields;
    for (const auto& [label, value] : exchange.fields)
        fields += fmt::format("{}{}: {}", fields.empty() ? "" : ", ", label, value);
    line("", fields);
    line("device:", fmt::format("{:02X}", fmt::join(exchange.answered, " ")));
    line("", exchange.note);
    return text;
}

Device::Device(const DeviceOptions& options)
    : Device(options, NewMemory(options), KeepsNothing()) {}

Device::Device(const DeviceOptions& options, Memory memory, Storage& storage)
    : core_(std::make_unique<Core>(options, std::move(memory), storage)),
      wire_(std::make_unique<Wire>(*core_)) {}

Device::~Device() = default;

void Device::Receive(std::span<const std::uint8_t> bytes) {
    core_->NoticeFaults();
    for (const std::uint8_t byte : bytes) wire_->Receive(byte);
}

Core& Device::core() const {
    core_->NoticeFaults();
    return *core_;
}

void Device::ShiftClock(std::chrono::seconds time) {
    core().calendar_shift += time;
}

Bytes Device::TakeAnswer() {
    return wire_->TakeAnswer();
}

void Device::Advance(std::chrono::milliseconds time, std::chrono::milliseconds passed) {
    core().now += time;
    core_->passed += passed;
    wire_->CheckTimeouts();
}

void Device::RefuseNext(int commands) {
    wire_->RefuseNext(commands);
}

int Device::refusals_left() const {
    return wire_->refusals_left();
}

void Device::SwitchOff() {
    wire_->SwitchOff();
}

void Device::SwitchOn() {
    if (wire_->powered()) return;
    wire_->SwitchOn();
    core().LosePower();
}

bool Device::powered() const {
    return wire_->powered();
}

const std::vector<PaperElement>& Device::printed() const {
    return core_->printer.paper();
}

std::vector<PaperLine> Device::paper() const {
    std::vector<PaperLine> lines;
    for (const PaperElement& element : printed())
        for (std::string& text : TextLines(element))
            lines.push_back({element.kind, std::move(text)});
    return lines;
}

void Device::TearOffPaper() {
    core_->printer.TearOff();
}

void Device::OnExchange(std::function<void(const Exchange&)> watcher) {
    wire_->Watch(std::move(watcher));
}

void Device::OnCommand(std::function<void(const Exchange&)> watcher) {
    wire_->WatchCommands(std::move(watcher));
}

int Device::exchanges() const {
    return wire_->exchanges();
}

const DeviceOptions& Device::options() const {
    return core_->options;
}

FaultPanel& Device::faults() {
    return core_->faults;
}

const Receipt& Device::receipt() const {
    return core().receipt();
}

int Device::receipt_counter() const {
    return core().working().counters.receipts;
}

int Device::cancellation_reason() const {
    return static_cast<int>(core().working().counters.cancellation);
}

const RateAmounts& Device::day_totals() const {
    return core().working().counters.totals;
}

const VatRates& Device::vat_rates() const {
    return core().fiscal().rates;
}

void Device::SetVatRates(const VatRates& rates) {
    core().SetRates(rates);
}

std::chrono::sys_seconds Device::clock() const {
    return core().clock();
}

int Device::cancelled_receipts() const {
    return core().working().counters.cancelled_receipts;
}

int Device::report_number() const {
    return core().fiscal().report_number();
}

const std::vector<DailyReport>& Device::daily_reports() const {
    return core().fiscal().daily_reports;
}

const std::map<std::string, Article>& Device::articles() const {
    return core().working().articles;
}

const std::array<int, kDrawers>& Device::drawers_opened() const {
    return core().drawers_opened;
}

bool Device::printout_open() const {
    return core().session.printout.open();
}

std::array<std::string, kFooterLines> Device::footer() const {
    std::array<std::string, kFooterLines> texts;
    for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = core().FooterText(i);
    return texts;
}

const std::optional<Logo>& Device::logo() const {
    return core().working().logo.complete;
}

const std::vector<std::string>& Device::display() const {
    return core().display.texts();
}

std::string Device::display_text() const {
    return core().display.OneLineText();
}

const std::map<int, UserLine>& Device::user_lines() const {
    return core().working().user_lines;
}

const CashierCodes& Device::cashier_codes() const {
    return core().working().cashier_codes;
}

const ConfigurationGroup& Device::configuration(int group) const {
    return core().working().configuration.at(static_cast<std::size_t>(group));
}

}  // namespace sim
