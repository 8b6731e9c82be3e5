#include "platform/win32/handle.h"

namespace platform {

LineHandle OpenLine(const char* name, uint32_t& error) {
    const HANDLE file = CreateFileA(name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    error = ResultOf(file != INVALID_HANDLE_VALUE);
    return reinterpret_cast<LineHandle>(file);
}

// Here a write returns when the bytes are gone: nothing is left to wait for.
uint32_t CloseLine(LineHandle line) {
    return ResultOf(CloseHandle(FileOf(line)));
}

}  // namespace platform
