// The state of the device: status bytes, receipt state and counter, resuming after paper ran out.
#include "sim/commands/status.h"

#include <fmt/format.h>

#include "sim/command.h"
#include "sim/reports.h"
#include "sim/vat_table.h"

namespace sim {
namespace {

namespace status_a {
constexpr std::uint8_t kMemoryErased = 0x01;
constexpr std::uint8_t kDocumentInMemory = 0x02;
constexpr std::uint8_t kPendingDailyReport = 0x08;
constexpr std::uint8_t kCmosErased = 0x10;
constexpr std::uint8_t kNoCustomerDisplay = 0x40;
constexpr std::uint8_t kNoPrinterController = 0x80;
}  // namespace status_a

namespace status_b {
constexpr std::uint8_t kPrintBufferFilled = 0x01;
constexpr std::uint8_t kNoPaper = 0x02;
constexpr std::uint8_t kPrinterFailure = 0x04;
constexpr std::uint8_t kReceiptCancelled = 0x10;
constexpr std::uint8_t kPrintHalted = 0x40;
constexpr std::uint8_t kNoPrinterController = 0x80;
}  // namespace status_b

namespace status_c {
constexpr std::uint8_t kProducerData = 0x01;
constexpr std::uint8_t kUserData = 0x02;
constexpr std::uint8_t kReadOnly = 0x04;
}  // namespace status_c
constexpr int kFiscalModuleFit = status_c::kProducerData | status_c::kUserData;

namespace status_d {
constexpr std::uint8_t kServiceJumper = 0x40;
}

constexpr std::uint8_t kReceiptOpenBit = 0x02;

std::uint8_t Bits(bool set, int bits) {
    return set ? static_cast<std::uint8_t>(bits) : 0;
}

template <std::uint8_t (*Status)(const Core&)>
std::optional<Bytes> Tell(Core& core) {
    core.Note(fmt::format("status {:08b}", Status(core)));
    return Bytes{Status(core)};
}

std::optional<Bytes> FurtherStatus(Core&) {
    return Bytes{0};
}

std::optional<Bytes> ReceiptState(Core& core) {
    core.Note(core.receipt().open() ? "a receipt is open" : "no receipt is open");
    return Bytes{Bits(core.receipt().open(), kReceiptOpenBit)};
}

std::optional<Bytes> CancellationCode(Core& core) {
    core.Note(fmt::format("reason {}", static_cast<int>(core.working().counters.cancellation)));
    return Bytes{static_cast<std::uint8_t>(core.working().counters.cancellation)};
}

std::optional<Bytes> ReceiptCounter(Core& core) {
    core.Note(fmt::format("{} receipts", core.working().counters.receipts));
    return Bytes{static_cast<std::uint8_t>(core.working().counters.receipts),
                 static_cast<std::uint8_t>(core.working().counters.receipts >> 8)};
}

std::optional<Bytes> ResumePrinting(Core& core) {
    if (!core.printer.Resume()) return std::nullopt;
    return Bytes{};
}

constexpr Command kCommands[] = {
    {.code = 0x94,
     .name = "status A",
     .id = "status-a",
     .early = 1,
     .status_byte = true,
     .accept = Tell<StatusA>},
    {.code = 0x95,
     .name = "status B",
     .id = "status-b",
     .early = 1,
     .status_byte = true,
     .accept = Tell<StatusB>},
    {.code = 0x9B,
     .name = "status C",
     .id = "status-c",
     .early = 1,
     .status_byte = true,
     .accept = Tell<StatusC>},
    {.code = 0x96,
     .name = "status D",
     .id = "status-d",
     .early = 1,
     .status_byte = true,
     .accept = Tell<StatusD>},
    {.code = 0xF5,
     .name = "further status",
     .id = "further-status",
     .early = 2,
     .models = {8, 9, 10, 11, 12, 13},
     .accept = FurtherStatus},
    {.code = 0x5F,
     .name = "receipt state",
     .id = "receipt-state",
     .early = 2,
     .accept = ReceiptState},
    {.code = 0x50,
     .name = "cancellation reason",
     .id = "cancellation-reason",
     .early = 2,
     .accept = CancellationCode},
    {.code = 0x66,
     .name = "receipt counter",
     .id = "receipt-counter",
     .early = 3,
     .accept = ReceiptCounter},
    {.code = 0x2A,
     .name = "resume printing",
     .id = "resume-printing",
     .early = 1,
     .moment = Moment::NoReceipt,
     .accept = ResumePrinting},
};

}  // namespace

std::uint8_t StatusA(const Core& core) {
    using namespace status_a;
    const FaultPanel& faults = core.faults;
    const bool document_waits = core.printer.halted() && !core.receipt().open();
    return Bits(faults.cmos_erased, kCmosErased | kMemoryErased) |
           Bits(faults.document_in_memory || document_waits, kDocumentInMemory) |
           Bits(faults.pending_daily_report || DailyReportDue(core), kPendingDailyReport) |
           Bits(faults.no_customer_display, kNoCustomerDisplay) |
           Bits(faults.no_printer_controller, kNoPrinterController);
}

std::uint8_t StatusB(const Core& core) {
    using namespace status_b;
    const FaultPanel& faults = core.faults;
    return Bits(faults.print_buffer_filled || core.printer.halted(), kPrintBufferFilled) |
           Bits(faults.no_paper, kNoPaper) | Bits(faults.printer_failure, kPrinterFailure) |
           Bits(core.receipt().cancelled, kReceiptCancelled) |
           Bits(faults.print_halted || core.printer.halted(), kPrintHalted) |
           Bits(faults.no_printer_controller, kNoPrinterController);
}

std::uint8_t StatusC(const Core& core) {
    using namespace status_c;
    const FaultPanel& faults = core.faults;
    return Bits(!faults.no_producer_data, kProducerData) | Bits(!faults.no_user_data, kUserData) |
           Bits(faults.read_only, kReadOnly);
}

std::uint8_t StatusD(const Core& core) {
    return Bits(core.faults.service_jumper, status_d::kServiceJumper);
}

std::span<const Command> StatusCommands() {
    return kCommands;
}

bool PrintoutAllowed(const Core& core) {
    constexpr int kForbidden =
        status_b::kPrinterFailure | status_b::kPrintHalted | status_b::kNoPrinterController;
    return (StatusB(core) & kForbidden) == 0 && core.HasRoom();
}

bool DailyReportAllowed(const Core& core) {
    constexpr int kUnitMissing = status_b::kPrinterFailure | status_b::kNoPrinterController;
    const int b = StatusB(core);
    const bool resume_first = (b & status_b::kPrintHalted) != 0 && (b & status_b::kNoPaper) == 0;
    return (b & kUnitMissing) == 0 && !resume_first && StatusC(core) == kFiscalModuleFit &&
           StatusD(core) == 0;
}

bool ReceiptAllowed(const Core& core) {
    constexpr int kForbiddenA = status_a::kPendingDailyReport | status_a::kCmosErased |
                                status_a::kNoCustomerDisplay | status_a::kNoPrinterController;
    constexpr int kForbiddenB = status_b::kNoPaper | status_b::kPrinterFailure |
                                status_b::kPrintHalted | status_b::kNoPrinterController;
    return (StatusA(core) & kForbiddenA) == 0 && (StatusB(core) & kForbiddenB) == 0 &&
           StatusC(core) == kFiscalModuleFit && StatusD(core) == 0 &&
           !core.session.printout.open() &&
           AnyRateInUse(core.model.rate_table, core.fiscal().rates);
}

}  // namespace sim
