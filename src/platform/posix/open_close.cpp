// Opening a device for this process alone, and closing it.
#include <fcntl.h>
#include <linux/serial.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>

#include "platform/connection.h"
#include "platform/posix/line.h"

namespace platform {
namespace {

// A process that was started without standard streams would get one of their numbers for the line,
// and what it prints would go out on the wire.
int MoveAboveStandardStreams(int descriptor) {
    if (descriptor > STDERR_FILENO) return descriptor;
    const int moved = fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int error = errno;
    close(descriptor);
    errno = error;
    return moved;
}

int OpenDescriptor(const char* name) {
    int descriptor = -1;
    do {
        descriptor = open(name, O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    } while (descriptor < 0 && errno == EINTR);
    return descriptor < 0 ? descriptor : MoveAboveStandardStreams(descriptor);
}

bool IsPseudoTerminal(int descriptor) {
    constexpr unsigned kFirstSlaveMajor = 136;
    constexpr unsigned kLastSlaveMajor = 143;
    struct stat status {};
    if (fstat(descriptor, &status) != 0) return false;
    const unsigned number = major(status.st_rdev);
    return S_ISCHR(status.st_mode) && number >= kFirstSlaveMajor && number <= kLastSlaveMajor;
}

// The file lock keeps out everybody who asks for it, the superuser too; the terminal's exclusive
// mode keeps out every other program. A pseudo-terminal would stay in that mode after an
// application that ended without closing, until its other side ends too, so there the lock has to
// do.
int MakeExclusive(int descriptor, bool pseudo_terminal) {
    if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) return errno;
    if (!pseudo_terminal && ioctl(descriptor, TIOCEXCL) != 0) return errno;
    return 0;
}

// Without it a USB adapter keeps a one-byte answer back for up to 16 ms. Not every line knows it.
void AskForLowLatency(int descriptor) {
    serial_struct settings{};
    if (ioctl(descriptor, TIOCGSERIAL, &settings) != 0) return;
    settings.flags |= static_cast<int>(ASYNC_LOW_LATENCY);
    ioctl(descriptor, TIOCSSERIAL, &settings);
}

// 0, or errno; everything that has to succeed before the descriptor becomes a line.
int Prepare(int descriptor, bool pseudo_terminal) {
    if (isatty(descriptor) == 0) return errno;
    if (const int error = MakeExclusive(descriptor, pseudo_terminal)) return error;
    return MakeRaw(descriptor);
}

}  // namespace

LineHandle OpenLine(const char* name, uint32_t connect_timeout_s, uint32_t& error) {
    if (MeansConnection(name)) return OpenConnection(name, connect_timeout_s, error);
    Line* line = FreeLine();
    if (line == nullptr) {
        error = ErrorNumber(EMFILE);
        return kNoLine;
    }
    const int descriptor = OpenDescriptor(name);
    if (descriptor < 0) {
        error = ErrorNumber(errno);
        return kNoLine;
    }
    const bool pseudo_terminal = IsPseudoTerminal(descriptor);
    if (const int failure = Prepare(descriptor, pseudo_terminal)) {
        close(descriptor);
        error = ErrorNumber(failure);
        return kNoLine;
    }
    AskForLowLatency(descriptor);
    *line = Line{};
    line->descriptor = descriptor;
    line->pseudo_terminal = pseudo_terminal;
    error = 0;
    return HandleOf(*line);
}

uint32_t CloseLine(LineHandle handle) {
    if (IsConnection(handle)) return CloseConnection(handle);
    Line* line = FindLine(handle);
    if (line == nullptr) return kErrorNoSuchDevice;
    // The system's own close would wait far longer for bytes that the line does not take.
    if (!WaitForOutputCarried(*line)) tcflush(line->descriptor, TCOFLUSH);
    if (!line->pseudo_terminal) ioctl(line->descriptor, TIOCNXCL);
    // An interrupted close has closed all the same.
    const int result = close(line->descriptor);
    const int error = errno;
    line->descriptor = -1;
    return result == 0 || error == EINTR ? 0 : ErrorNumber(error);
}

}  // namespace platform
