#include <utility>

#include "platform/connection.h"
#include "platform/win32/handle.h"

namespace platform {
namespace {

// A transfer that failed may have left bytes behind: of its own, or of the write before, which an
// adapter still holds while the device takes nothing.
bool output_left = false;

// Without a time-out a read that finds nothing is no failure of the line.
bool ReadsWait(LineHandle line) {
    COMMTIMEOUTS timeouts{};
    return GetCommTimeouts(FileOf(line), &timeouts) && timeouts.ReadTotalTimeoutConstant != 0;
}

// The line aborts on errors: from a damaged byte on it refuses every transfer until its errors are
// cleared.
void AcceptTransfersAgain(LineHandle line) {
    DWORD errors = 0;
    ClearCommError(FileOf(line), &errors, nullptr);
}

}  // namespace

// A write returns when its bytes are gone, so after one that succeeded no output is pending. But
// serial adapters, and pseudo-terminals under Wine, answer it before the line has carried the
// bytes, and clearing the output would tear off the end of what was sent: it is done only when a
// failed transfer may have left something to clear.
uint32_t PurgeOutput(LineHandle line) {
    if (IsConnection(line)) return 0;  // what a connection took cannot be called back
    if (!std::exchange(output_left, false)) return 0;
    return ResultOf(PurgeComm(FileOf(line), PURGE_TXABORT | PURGE_TXCLEAR));
}

uint32_t PurgeInput(LineHandle line) {
    if (IsConnection(line)) return PurgeConnectionInput(line);
    return ResultOf(PurgeComm(FileOf(line), PURGE_RXABORT | PURGE_RXCLEAR));
}

uint32_t WriteBytes(LineHandle line, const uint8_t* bytes, uint32_t count) {
    if (IsConnection(line)) return WriteToConnection(line, bytes, count);
    DWORD moved = 0;
    if (!WriteFile(FileOf(line), bytes, count, &moved, nullptr)) moved = 0;
    if (moved == count) return moved;
    output_left = true;
    AcceptTransfersAgain(line);
    return moved;
}

uint32_t ReadBytes(LineHandle line, uint8_t* bytes, uint32_t count) {
    if (IsConnection(line)) return ReadFromConnection(line, bytes, count);
    DWORD moved = 0;
    if (!ReadFile(FileOf(line), bytes, count, &moved, nullptr)) moved = 0;
    if (moved == count) return moved;
    if (ReadsWait(line)) output_left = true;
    AcceptTransfersAgain(line);
    return moved;
}

void FlushLine(LineHandle line) {
    if (IsConnection(line)) return;
    FlushFileBuffers(FileOf(line));
}

}  // namespace platform
