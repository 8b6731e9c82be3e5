// The status bytes and whether they allow a receipt to be opened.
#pragma once

#include <cstdint>

#include "sim/core.h"

namespace sim {

std::uint8_t StatusA(const Core& core);
std::uint8_t StatusB(const Core& core);
std::uint8_t StatusC(const Core& core);
std::uint8_t StatusD(const Core& core);

/// Whether the printing unit is fit for a document, which without paper it takes and lets wait, and
/// whether there is room to count it.
bool PrintoutAllowed(const Core& core);
/// Whether the device is fit for a daily report. Without paper it books one and lets it wait, behind
/// whatever waits already.
bool DailyReportAllowed(const Core& core);
/// Whether a receipt may be opened, as the status bytes tell the host, and some VAT rate is in use.
bool ReceiptAllowed(const Core& core);

}  // namespace sim
