// The table of open lines, and the numbers for the system's errors.
#include "platform/posix/line.h"

#include <cerrno>
#include <iterator>

namespace platform {
namespace {

// One for the session and one for the look whether another port is present, with room to spare.
constinit Line lines[4]{};

}  // namespace

Line* FreeLine() {
    for (Line& line : lines) {
        if (line.descriptor < 0) return &line;
    }
    return nullptr;
}

LineHandle HandleOf(const Line& line) {
    return &line - lines;
}

Line* FindLine(LineHandle handle) {
    if (handle < 0 || handle >= static_cast<LineHandle>(std::size(lines))) return nullptr;
    Line& line = lines[handle];
    return line.descriptor < 0 ? nullptr : &line;
}

uint32_t ErrorNumber(int error) {
    switch (error) {
        case EACCES:
        case EPERM:
        case EBUSY:
        case EWOULDBLOCK:
            return kErrorDeviceInUse;
        case ENOENT:
        case ENOTDIR:
        case EISDIR:
        case ELOOP:
        case ENAMETOOLONG:
        case ENODEV:
        case ENXIO:
        case ENOTTY:
        case EIO:  // a serial port without its hardware, or a line that was pulled out
        case EBADF:
        case 0:
            return kErrorNoSuchDevice;
        default:
            return static_cast<uint32_t>(error);
    }
}

}  // namespace platform
