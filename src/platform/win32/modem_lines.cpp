#include "platform/connection.h"
#include "platform/win32/handle.h"

namespace platform {

static_assert(kLineCts == MS_CTS_ON && kLineDsr == MS_DSR_ON && kLineRing == MS_RING_ON &&
              kLineCarrier == MS_RLSD_ON);

bool SetDtr(LineHandle line, bool raised) {
    return !IsConnection(line) &&
           EscapeCommFunction(FileOf(line), raised ? SETDTR : CLRDTR) != FALSE;
}

bool SetRts(LineHandle line, bool raised) {
    return !IsConnection(line) &&
           EscapeCommFunction(FileOf(line), raised ? SETRTS : CLRRTS) != FALSE;
}

uint8_t ModemLines(LineHandle line) {
    constexpr DWORD kLines = kLineCts | kLineDsr | kLineRing | kLineCarrier;
    DWORD status = 0;
    if (IsConnection(line) || !GetCommModemStatus(FileOf(line), &status)) return 0;
    return static_cast<uint8_t>(status & kLines);
}

}  // namespace platform
