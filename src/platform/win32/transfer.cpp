#include "platform/win32/handle.h"
#include "platform/win32/pace.h"

namespace platform {

// By its contract a write returns when the bytes are gone. But serial adapters, and
// pseudo-terminals under Wine, answer it earlier and would throw away here what the line has not
// carried yet: it is given the time for that first. Where the write did return late, no time is
// left to wait.
uint32_t PurgeOutput(LineHandle line) {
    AwaitPacedWrites();
    return ResultOf(PurgeComm(FileOf(line), PURGE_TXABORT | PURGE_TXCLEAR));
}

uint32_t PurgeInput(LineHandle line) {
    return ResultOf(PurgeComm(FileOf(line), PURGE_RXABORT | PURGE_RXCLEAR));
}

uint32_t WriteBytes(LineHandle line, const uint8_t* bytes, uint32_t count) {
    DWORD moved = 0;
    BeginPacedWrite(count);
    if (!WriteFile(FileOf(line), bytes, count, &moved, nullptr)) moved = 0;
    if (moved != count) AbandonPacedWrites();
    return moved;
}

uint32_t ReadBytes(LineHandle line, uint8_t* bytes, uint32_t count) {
    DWORD moved = 0;
    return ReadFile(FileOf(line), bytes, count, &moved, nullptr) ? moved : 0;
}

void FlushLine(LineHandle line) {
    FlushFileBuffers(FileOf(line));
}

}  // namespace platform
