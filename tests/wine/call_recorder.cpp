#include "wine/call_recorder.h"

#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <utility>

namespace call_recorder {
namespace {

const HANDLE kLine = reinterpret_cast<HANDLE>(0x1234);

// Writes a call down. FALSE when it is the one that fails.
BOOL Note(const char* name, const char* format, ...) {
    char text[300];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    recorded.seen.push_back(name + std::string(*format != '\0' ? " " : "") + text);
    if (recorded.failing != name) return TRUE;
    SetLastError(kFailure);
    return FALSE;
}

// The system's own: the runtime library closes and awaits handles too.
template <class Function>
Function Original(const char* name, Function) {
    const FARPROC address = GetProcAddress(GetModuleHandleA("kernel32.dll"), name);
    return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

HANDLE WINAPI OpenFile(LPCSTR name, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                       DWORD creation, DWORD attributes, HANDLE pattern) {
    const BOOL opened = Note("CreateFileA", "%s %lX %lu %d %lu %lX %d", name, access, share,
                             security != nullptr, creation, attributes, pattern != nullptr);
    return opened ? kLine : INVALID_HANDLE_VALUE;
}

BOOL WINAPI CloseFile(HANDLE file) {
    if (file != kLine) return Original("CloseHandle", CloseFile)(file);
    return Note("CloseHandle", "");
}

DWORD WINAPI FileType(HANDLE) {
    return Note("GetFileType", "") ? FILE_TYPE_CHAR : FILE_TYPE_DISK;
}

BOOL WINAPI Queues(HANDLE, DWORD in, DWORD out) {
    return Note("SetupComm", "%lu %lu", in, out);
}

// The settings of a line that somebody else has used: every bit is set.
BOOL WINAPI ReadState(HANDLE, LPDCB block) {
    const BOOL read = Note("GetCommState", "%lu", block->DCBlength);
    std::memset(block, 0xFF, sizeof *block);
    return read;
}

BOOL WINAPI SetState(HANDLE, LPDCB block) {
    uint32_t flags;
    std::memcpy(&flags, reinterpret_cast<const char*>(block) + offsetof(DCB, BaudRate) + 4, 4);
    return Note("SetCommState", "%lu %lu %X xon%u xoff%u %u%u%u chars%d%d%d%d%d", block->DCBlength,
                block->BaudRate, flags & 0x7FFF, block->XonLim, block->XoffLim, block->ByteSize,
                block->Parity, block->StopBits, block->XonChar, block->XoffChar, block->ErrorChar,
                block->EofChar, block->EvtChar);
}

BOOL WINAPI ReadTimeouts(HANDLE, LPCOMMTIMEOUTS timeouts) {
    std::memset(timeouts, 7, sizeof *timeouts);
    return Note("GetCommTimeouts", "");
}

BOOL WINAPI SetTimeouts(HANDLE, LPCOMMTIMEOUTS t) {
    return Note("SetCommTimeouts", "%lX %lu %lu %lX %lu", t->ReadIntervalTimeout,
                t->ReadTotalTimeoutMultiplier, t->ReadTotalTimeoutConstant,
                t->WriteTotalTimeoutMultiplier, t->WriteTotalTimeoutConstant);
}

BOOL WINAPI SetMask(HANDLE, DWORD events) {
    return Note("SetCommMask", "%lX", events);
}

BOOL WINAPI ClearError(HANDLE, LPDWORD, LPCOMSTAT) {
    recorded.aborting = false;
    return Note("ClearCommError", "");
}

BOOL WINAPI Purge(HANDLE, DWORD what) {
    return Note("PurgeComm", "%lu", what);
}

BOOL WINAPI Escape(HANDLE, DWORD function) {
    return Note("EscapeCommFunction", "%lu", function);
}

BOOL WINAPI ModemStatus(HANDLE, LPDWORD status) {
    *status = 0xFF;
    return Note("GetCommModemStatus", "");
}

DWORD Moved(const char* name, DWORD count) {
    if (recorded.aborting) return 0;
    const auto limit = recorded.moved.find(name);
    return limit == recorded.moved.end() ? count : limit->second;
}

BOOL WINAPI Read(HANDLE, LPVOID bytes, DWORD count, LPDWORD moved, LPOVERLAPPED) {
    std::memset(bytes, 0x5A, count);
    *moved = Moved("ReadFile", count);
    return Note("ReadFile", "%lu", count);
}

BOOL WINAPI Write(HANDLE, LPCVOID bytes, DWORD count, LPDWORD moved, LPOVERLAPPED) {
    *moved = Moved("WriteFile", count);
    return Note("WriteFile", "%lu %02X", count, *static_cast<const uint8_t*>(bytes));
}

BOOL WINAPI Flush(HANDLE) {
    return Note("FlushFileBuffers", "");
}

DWORD WINAPI WaitFor(HANDLE object, DWORD ms) {
    if (object != GetCurrentProcess()) return Original("WaitForSingleObject", WaitFor)(object, ms);
    Note("WaitForSingleObject", "%lu", ms);
    return WAIT_TIMEOUT;
}

DWORD WINAPI SleepFor(DWORD ms, BOOL alertable) {
    Note("SleepEx", "%lu %d", ms, alertable);
    return 0;
}

int WINAPI ShowBox(HWND owner, LPCSTR text, LPCSTR caption, UINT style) {
    Note("MessageBoxA", "%d '%s' '%s' %u", owner != nullptr, text, caption, style);
    return IDOK;
}

// Nobody is waited for: it tells what the driver would wait for.
BOOL WINAPI Wait() {
    return Note("WaitMessage", "");
}

struct Import {
    const char* name;
    void* replacement;
};

template <class Function>
Import Replace(const char* name, Function function) {
    return {name, reinterpret_cast<void*>(function)};
}

const Import kImports[] = {
    Replace("CreateFileA", OpenFile),
    Replace("CloseHandle", CloseFile),
    Replace("GetFileType", FileType),
    Replace("SetupComm", Queues),
    Replace("GetCommState", ReadState),
    Replace("SetCommState", SetState),
    Replace("GetCommTimeouts", ReadTimeouts),
    Replace("SetCommTimeouts", SetTimeouts),
    Replace("SetCommMask", SetMask),
    Replace("ClearCommError", ClearError),
    Replace("PurgeComm", Purge),
    Replace("EscapeCommFunction", Escape),
    Replace("GetCommModemStatus", ModemStatus),
    Replace("ReadFile", Read),
    Replace("WriteFile", Write),
    Replace("FlushFileBuffers", Flush),
    Replace("WaitForSingleObject", WaitFor),
    Replace("SleepEx", SleepFor),
    Replace("MessageBoxA", ShowBox),
    Replace("WaitMessage", Wait),
};

// The address behind an imported name is kept in a table that the loader filled.
void Redirect(const char* name, void** address) {
    for (const Import& import : kImports) {
        if (std::strcmp(import.name, name) != 0) continue;
        DWORD protection = 0;
        VirtualProtect(address, sizeof *address, PAGE_READWRITE, &protection);
        *address = import.replacement;
    }
}

template <class Record>
Record* At(DWORD offset) {
    return reinterpret_cast<Record*>(reinterpret_cast<char*>(GetModuleHandleA(nullptr)) + offset);
}

}  // namespace

std::string Taken() {
    std::string text;
    for (const std::string& call : std::exchange(recorded.seen, {})) text += call + '\n';
    return text;
}

void Install() {
    const auto* headers =
        At<IMAGE_NT_HEADERS>(static_cast<DWORD>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
    const DWORD directory =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(directory); library->Name != 0; ++library) {
        const auto* name = At<IMAGE_THUNK_DATA>(library->OriginalFirstThunk);
        auto* address = At<void*>(library->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++address) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
            const auto offset = static_cast<DWORD>(name->u1.AddressOfData);
            Redirect(At<IMAGE_IMPORT_BY_NAME>(offset)->Name, address);
        }
    }
}

}  // namespace call_recorder
