// The status bytes and whether they allow a receipt to be opened.
#pragma once

#include <cstdint>

#include "sim/core.h"

namespace sim {

std::uint8_t StatusA(const Core& core);
std::uint8_t StatusB(const Core& core);
std::uint8_t StatusC(const Core& core);
std::uint8_t StatusD(const Core& core);

/// Whether the printing unit is fit for a document. Without paper it takes one and waits.
bool PrintoutAllowed(const Core& core);
/// Whether a receipt may be opened, as the status bytes tell the host, and some VAT rate is in use.
bool ReceiptAllowed(const Core& core);

}  // namespace sim
