#include "platform/window_messages.h"

#include <windows.h>

namespace platform {
namespace {

// Takes the next pending message of these numbers. The one that tells the program to quit comes
// whatever the numbers are, when nothing else does; it is posted again.
bool Taken(MSG& message, uint32_t first, uint32_t last) {
    if (!PeekMessageA(&message, nullptr, first, last, PM_REMOVE)) return false;
    if (message.message != WM_QUIT) return true;
    PostQuitMessage(static_cast<int>(message.wParam));
    return false;
}

}  // namespace

uint32_t ProcessId() {
    return GetCurrentProcessId();
}

bool PostToAllWindows(const WindowMessage& message) {
    const HWND everybody = HWND_BROADCAST;  // 0xFFFF
    return PostMessageA(everybody, message.number, message.wparam, message.lparam) != FALSE;
}

bool TakeWindowMessage(uint32_t first, uint32_t last, WindowMessage& message) {
    MSG taken{};
    if (!Taken(taken, first, last)) return false;
    message = {taken.message, taken.wParam, taken.lParam};
    return true;
}

void DispatchOneWindowMessage(uint32_t first, uint32_t last) {
    MSG taken{};
    if (Taken(taken, first, last)) DispatchMessageA(&taken);
}

// WaitMessage alone would wait for a message that is new to the thread, although others are queued
// that a look for some number has passed over.
bool WaitForWindowMessage() {
    MSG next{};
    while (!PeekMessageA(&next, nullptr, 0, 0, PM_NOREMOVE)) {
        if (!WaitMessage()) return false;
    }
    return next.message != WM_QUIT;
}

}  // namespace platform
