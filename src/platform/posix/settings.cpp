// The line's settings. The kernel's own interface, since only it takes any baud rate; its header
// cannot be used together with <termios.h>.
#include <asm/termbits.h>
#include <sys/ioctl.h>

#include <cerrno>

#include "platform/connection.h"
#include "platform/posix/line.h"

namespace platform {
namespace {

constexpr uint32_t kHighestBaud = 4'000'000;
constexpr tcflag_t kFormatFlags = CSIZE | CSTOPB | PARENB | PARODD | CMSPAR;

bool AddCharacterFormat(const LineSettings& settings, tcflag_t& flags) {
    constexpr tcflag_t kSizes[] = {CS5, CS6, CS7, CS8};
    constexpr tcflag_t kParities[] = {0, PARENB | PARODD, PARENB};
    if (settings.byte_size < 5 || settings.byte_size > 8) return false;
    if (settings.parity > 2 || settings.stop_bits > 2) return false;
    // One and a half stop bits exist with five data bits only, and two do not exist with them.
    if ((settings.stop_bits == 1) != (settings.byte_size == 5) && settings.stop_bits != 0) {
        return false;
    }
    flags |= kSizes[settings.byte_size - 5] | kParities[settings.parity];
    if (settings.stop_bits != 0) flags |= CSTOPB;
    return true;
}

void SetRawModes(termios2& modes) {
    modes.c_iflag = INPCK | PARMRK;  // damaged bytes are marked, nothing else is touched
    modes.c_oflag = 0;
    modes.c_lflag = 0;
    modes.c_cflag = (modes.c_cflag & ~static_cast<tcflag_t>(HUPCL)) | CLOCAL | CREAD;
    modes.c_cc[VMIN] = 1;
    modes.c_cc[VTIME] = 0;
}

bool BuildModes(const LineSettings& settings, termios2& modes) {
    if (settings.baud == 0 || settings.baud > kHighestBaud) return false;
    SetRawModes(modes);
    modes.c_cflag = BOTHER | CLOCAL | CREAD;
    if (!AddCharacterFormat(settings, modes.c_cflag)) return false;
    if (settings.cts_flow_control) modes.c_cflag |= CRTSCTS;
    modes.c_ospeed = settings.baud;
    modes.c_ispeed = settings.baud;
    return true;
}

// A divider in the hardware seldom meets the rate exactly; three per cent still reads right.
bool IsNearly(uint32_t actual, uint32_t wanted) {
    const uint32_t difference = actual > wanted ? actual - wanted : wanted - actual;
    return difference <= wanted * 3 / 100;
}

// A pseudo-terminal drops the parity bit, which it has no wire for; nothing else may be missing.
bool IsApplied(const termios2& actual, const termios2& wanted, bool pseudo_terminal) {
    tcflag_t flags = kFormatFlags | CRTSCTS | CLOCAL | CREAD | HUPCL;
    if (pseudo_terminal) flags &= ~static_cast<tcflag_t>(PARENB | PARODD);
    return (actual.c_cflag & flags) == (wanted.c_cflag & flags) &&
           actual.c_iflag == wanted.c_iflag && actual.c_oflag == wanted.c_oflag &&
           actual.c_lflag == wanted.c_lflag && actual.c_cc[VMIN] == wanted.c_cc[VMIN] &&
           actual.c_cc[VTIME] == wanted.c_cc[VTIME] && IsNearly(actual.c_ospeed, wanted.c_ospeed);
}

int ApplyModes(const Line& line, const termios2& wanted) {
    if (ioctl(line.descriptor, TCSETS2, &wanted) != 0 &&
        !(errno == EINVAL && line.pseudo_terminal)) {
        return errno;
    }
    termios2 actual{};
    if (ioctl(line.descriptor, TCGETS2, &actual) != 0) return errno;
    return IsApplied(actual, wanted, line.pseudo_terminal) ? 0 : EINVAL;
}

uint64_t ByteTimeUs(const LineSettings& settings) {
    constexpr uint64_t kStartBit = 1;
    const uint64_t bits = kStartBit + settings.byte_size + (settings.parity != 0 ? 1U : 0U) +
                          (settings.stop_bits != 0 ? 2U : 1U);
    return (bits * 1'000'000 + settings.baud - 1) / settings.baud;
}

}  // namespace

int MakeRaw(int descriptor) {
    termios2 modes{};
    if (ioctl(descriptor, TCGETS2, &modes) != 0) return errno;
    SetRawModes(modes);
    return ioctl(descriptor, TCSETS2, &modes) == 0 ? 0 : errno;
}

uint32_t ApplySettings(LineHandle handle, const LineSettings& settings) {
    if (IsConnection(handle)) return ApplyConnectionSettings(handle, settings);
    Line* line = FindLine(handle);
    if (line == nullptr) return kErrorNoSuchDevice;
    termios2 modes{};
    if (!BuildModes(settings, modes)) return ErrorNumber(EINVAL);
    // Bytes that are still on their way leave with the settings they were written under.
    WaitForOutputCarried(*line);
    if (const int error = ApplyModes(*line, modes)) return ErrorNumber(error);
    line->write_timeout_us = uint64_t{settings.write_timeout_s} * 1'000'000;
    line->read_timeout_us = uint64_t{settings.read_timeout_s} * 1'000'000;
    line->byte_time_us = line->pseudo_terminal ? 0 : ByteTimeUs(settings);
    if (!line->modem_lines_released) {
        // The system raises both at the open; the device expects them low until they are raised.
        SetDtr(handle, false);
        SetRts(handle, false);
        line->modem_lines_released = true;
    }
    return 0;
}

}  // namespace platform
