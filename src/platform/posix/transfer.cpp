// Moving bytes. A write returns as soon as the kernel has the bytes; the wire carries them later.
// Everywhere else the driver may rely on a written byte being gone, so that this file and the
// settings wait for the wire where it matters, and never discard what was written with success.
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "platform/clock.h"
#include "platform/connection.h"
#include "platform/posix/deadline.h"
#include "platform/posix/line.h"

namespace platform {
namespace {

// On top of the computed time of a byte: adapters and schedulers are not exact.
constexpr uint64_t kCarryMarginUs = 100'000;

// True when the line is ready before the deadline. A line that is gone may be "ready": the transfer
// that follows then tells.
bool WaitUntilReady(int descriptor, short event, const Deadline& deadline) {
    for (;;) {
        pollfd watched{descriptor, event, 0};
        const int ready = poll(&watched, 1, deadline.RemainingMs());
        if (ready > 0) return (watched.revents & event) != 0;
        if (ready < 0 && errno != EINTR) return false;
        if (deadline.HasPassed()) return false;
    }
}

// The read time-out starts when the device can have got the whole question.
Deadline ReadDeadline(const Line& line) {
    return Deadline(std::max(MonotonicUs(), line.output_carried_at_us) + line.read_timeout_us);
}

// Takes what the line holds, waiting for it up to the deadline.
bool TakeInput(Line& line, const Deadline& deadline) {
    for (;;) {
        if (line.read_timeout_us != 0 && !WaitUntilReady(line.descriptor, POLLIN, deadline)) {
            line.output_left_behind = true;
            return false;
        }
        const ssize_t count = read(line.descriptor, line.input.Buffer(), TakenInput::kRoom);
        if (count > 0) {
            line.input.Filled(static_cast<std::size_t>(count));
            return true;
        }
        // 0 is a line that is gone; EAGAIN after the wait is nobody's business but a time-out's.
        if (count == 0 || (errno != EINTR && errno != EAGAIN)) return false;
        if (errno == EAGAIN && line.read_timeout_us == 0) return false;
        if (deadline.HasPassed()) return false;
    }
}

void NoteOutput(Line& line, uint32_t count) {
    if (line.byte_time_us == 0 || count == 0) return;
    line.output_carried_at_us =
        std::max(MonotonicUs(), line.output_carried_at_us) + count * line.byte_time_us;
}

uint32_t Flush(const Line& line, int queue) {
    return tcflush(line.descriptor, queue) == 0 ? 0 : ErrorNumber(errno);
}

uint32_t DiscardLeftOutput(Line& line) {
    if (!line.output_left_behind) return 0;
    line.output_left_behind = false;
    line.output_carried_at_us = 0;
    return Flush(line, TCOFLUSH);
}

// Whether the kernel's queue and the transmitter are empty; a line that cannot tell is taken by its
// computed time.
bool IsOutputCarried(const Line& line) {
    int queued = 0;
    if (ioctl(line.descriptor, TIOCOUTQ, &queued) == 0 && queued > 0) return false;
    unsigned status = 0;
    if (ioctl(line.descriptor, TIOCSERGETLSR, &status) == 0) return (status & TIOCSER_TEMT) != 0;
    return MonotonicUs() >= line.output_carried_at_us;
}

}  // namespace

bool WaitForOutputCarried(const Line& line) {
    const Deadline deadline(std::max(MonotonicUs(), line.output_carried_at_us) + kCarryMarginUs +
                            line.write_timeout_us);
    while (!IsOutputCarried(line)) {
        if (deadline.HasPassed()) return false;
        SleepMs(1);
    }
    return true;
}

uint32_t WriteBytes(LineHandle handle, const uint8_t* bytes, uint32_t count) {
    if (IsConnection(handle)) return WriteToConnection(handle, bytes, count);
    Line* line = FindLine(handle);
    if (line == nullptr) return 0;
    DiscardLeftOutput(*line);  // it must not leave before what is written now
    uint32_t moved = 0;
    uint64_t deadline_us = 0;
    while (moved < count) {
        const ssize_t step = write(line->descriptor, bytes + moved, count - moved);
        if (step > 0) {
            moved += static_cast<uint32_t>(step);
            continue;
        }
        if (step == 0 || (errno != EINTR && errno != EAGAIN)) break;
        if (deadline_us == 0) deadline_us = MonotonicUs() + line->write_timeout_us;
        if (!WaitUntilReady(line->descriptor, POLLOUT, Deadline(deadline_us))) break;
    }
    NoteOutput(*line, moved);
    line->output_left_behind = moved < count;
    return moved;
}

uint32_t ReadBytes(LineHandle handle, uint8_t* bytes, uint32_t count) {
    if (IsConnection(handle)) return ReadFromConnection(handle, bytes, count);
    Line* line = FindLine(handle);
    if (line == nullptr) return 0;
    const Deadline deadline = ReadDeadline(*line);
    uint32_t moved = 0;
    while (moved < count) {
        const TakenByte taken = line->input.Next(bytes[moved]);
        if (taken == TakenByte::kGood) ++moved;
        if (taken == TakenByte::kDamaged) break;
        if (taken == TakenByte::kNone && !TakeInput(*line, deadline)) break;
    }
    return moved;
}

uint32_t PurgeOutput(LineHandle handle) {
    if (IsConnection(handle)) return 0;  // what a connection took cannot be called back
    Line* line = FindLine(handle);
    return line == nullptr ? kErrorNoSuchDevice : DiscardLeftOutput(*line);
}

uint32_t PurgeInput(LineHandle handle) {
    if (IsConnection(handle)) return PurgeConnectionInput(handle);
    Line* line = FindLine(handle);
    if (line == nullptr) return kErrorNoSuchDevice;
    line->input.Discard();
    return Flush(*line, TCIFLUSH);
}

void FlushLine(LineHandle handle) {
    if (const Line* line = FindLine(handle)) WaitForOutputCarried(*line);
}

}  // namespace platform
