#include "platform/trace_file.h"

#include <windows.h>

#include <utility>

namespace platform {
namespace {

HANDLE file = INVALID_HANDLE_VALUE;

}  // namespace

bool ReadEnvironment(const char* name, char* value, std::size_t size) {
    // The length found, or the room wanted for it when it does not fit.
    const DWORD length = GetEnvironmentVariableA(name, value, static_cast<DWORD>(size));
    return length != 0 && length < size;
}

// The user's own folders give a file its owner's rights; there are no others to set here.
bool OpenTraceFile(const char* path, bool& is_new) {
    CloseTraceFile();
    file = CreateFileA(path, FILE_APPEND_DATA, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
    is_new = file != INVALID_HANDLE_VALUE && GetFileSize(file, nullptr) == 0;
    return file != INVALID_HANDLE_VALUE;
}

void AppendToTraceFile(const char* text, std::size_t length) {
    DWORD written = 0;
    if (file != INVALID_HANDLE_VALUE) {
        WriteFile(file, text, static_cast<DWORD>(length), &written, nullptr);
    }
}

void CloseTraceFile() {
    if (file != INVALID_HANDLE_VALUE) CloseHandle(std::exchange(file, INVALID_HANDLE_VALUE));
}

}  // namespace platform
