#include "platform/connection.h"
#include "platform/win32/handle.h"

namespace platform {

LineHandle OpenLine(const char* name, uint32_t connect_timeout_s, uint32_t& error) {
    if (MeansConnection(name)) return OpenConnection(name, connect_timeout_s, error);
    const HANDLE file = CreateFileA(name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    error = ResultOf(file != INVALID_HANDLE_VALUE);
    return reinterpret_cast<LineHandle>(file);
}

// Here a write returns when the bytes are gone: nothing is left to wait for.
uint32_t CloseLine(LineHandle line) {
    if (IsConnection(line)) return CloseConnection(line);
    return ResultOf(CloseHandle(FileOf(line)));
}

}  // namespace platform
