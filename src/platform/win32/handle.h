// A line's handle is the system's own file handle; kNoLine is its invalid one.
#pragma once

#include <windows.h>

#include "platform/serial.h"

namespace platform {

inline HANDLE FileOf(LineHandle line) {
    return reinterpret_cast<HANDLE>(line);
}

// 0 when the call succeeded, else the system's error, which is never 0 then.
inline uint32_t ResultOf(BOOL succeeded) {
    if (succeeded) return 0;
    const DWORD error = GetLastError();
    return error != 0 ? error : ERROR_GEN_FAILURE;
}

}  // namespace platform
