#include "platform/win32/handle.h"

namespace platform {

uint32_t PurgeOutput(LineHandle line) {
    return ResultOf(PurgeComm(FileOf(line), PURGE_TXABORT | PURGE_TXCLEAR));
}

uint32_t PurgeInput(LineHandle line) {
    return ResultOf(PurgeComm(FileOf(line), PURGE_RXABORT | PURGE_RXCLEAR));
}

uint32_t WriteBytes(LineHandle line, const uint8_t* bytes, uint32_t count) {
    DWORD moved = 0;
    return WriteFile(FileOf(line), bytes, count, &moved, nullptr) ? moved : 0;
}

uint32_t ReadBytes(LineHandle line, uint8_t* bytes, uint32_t count) {
    DWORD moved = 0;
    return ReadFile(FileOf(line), bytes, count, &moved, nullptr) ? moved : 0;
}

void FlushLine(LineHandle line) {
    FlushFileBuffers(FileOf(line));
}

}  // namespace platform
