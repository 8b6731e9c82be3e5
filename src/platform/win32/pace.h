// How long the line needs for what was written.
#pragma once

#include "platform/serial.h"

namespace platform {

// The speed of the line that is open, from now on.
void SetPace(const LineSettings& settings);

// `count` bytes go out from now on; after a failure nothing counts as being on its way.
void BeginPacedWrite(uint32_t count);
void AbandonPacedWrites();

// Returns when the line has had the time for all that was written.
void AwaitPacedWrites();

}  // namespace platform
