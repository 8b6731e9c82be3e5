// DTR and RTS, and the status that the other side shows. A pseudo-terminal has none of them.
#include <sys/ioctl.h>

#include "platform/posix/line.h"

namespace platform {
namespace {

// A multiplexer switches with these lines: bytes that are still on their way go to the old channel.
bool SetModemLine(LineHandle handle, int bit, bool raised) {
    const Line* line = FindLine(handle);
    if (line == nullptr) return false;
    WaitForOutputCarried(*line);
    return ioctl(line->descriptor, raised ? TIOCMBIS : TIOCMBIC, &bit) == 0;
}

}  // namespace

bool SetDtr(LineHandle line, bool raised) {
    return SetModemLine(line, TIOCM_DTR, raised);
}

bool SetRts(LineHandle line, bool raised) {
    return SetModemLine(line, TIOCM_RTS, raised);
}

uint8_t ModemLines(LineHandle handle) {
    const Line* line = FindLine(handle);
    int status = 0;
    if (line == nullptr || ioctl(line->descriptor, TIOCMGET, &status) != 0) return 0;
    uint8_t bits = 0;
    if ((status & TIOCM_CTS) != 0) bits |= kLineCts;
    if ((status & TIOCM_DSR) != 0) bits |= kLineDsr;
    if ((status & TIOCM_RNG) != 0) bits |= kLineRing;
    if ((status & TIOCM_CAR) != 0) bits |= kLineCarrier;
    return bits;
}

}  // namespace platform
