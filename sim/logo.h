// The logos on the paper.
#pragma once

#include "sim/device.h"

namespace sim {

/// The shop's logo as it is printed.
Dots AsDots(const Logo& logo);

/// The mark of a fiscal document, printed with the unique number.
const Dots& FiscalLogo();

}  // namespace sim
