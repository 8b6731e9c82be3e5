#include "platform/window_messages.h"

#include <windows.h>

namespace platform {

uint32_t ProcessId() {
    return GetCurrentProcessId();
}

bool PostToAllWindows(const WindowMessage& message) {
    const HWND everybody = HWND_BROADCAST;  // 0xFFFF
    return PostMessageA(everybody, message.number, message.wparam, message.lparam) != FALSE;
}

bool TakeWindowMessage(uint32_t first, uint32_t last, WindowMessage& message) {
    MSG taken{};
    if (!PeekMessageA(&taken, nullptr, first, last, PM_REMOVE)) return false;
    message = {taken.message, taken.wParam, taken.lParam};
    return true;
}

void DispatchOneWindowMessage(uint32_t first, uint32_t last) {
    MSG taken{};
    if (PeekMessageA(&taken, nullptr, first, last, PM_REMOVE)) DispatchMessageA(&taken);
}

void WaitForWindowMessage() {
    WaitMessage();
}

}  // namespace platform
