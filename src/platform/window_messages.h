// Window messages between the driver and a controlling server process. Where the system has no
// window messages, nothing is posted and nothing arrives.
#pragma once

#include <cstdint>

namespace platform {

struct WindowMessage {
    uint32_t number;
    uintptr_t wparam;
    intptr_t lparam;
};

uint32_t ProcessId();

// Posts to every top-level window of the system; true when posted.
bool PostToAllWindows(const WindowMessage& message);

// That the program has been told to quit is a message, too, and is nobody's here: it stays pending
// for the program's own loop, whatever is taken or dispatched.

// Removes the next pending message with a number in first..last; false when there is none.
bool TakeWindowMessage(uint32_t first, uint32_t last, WindowMessage& message);

// Removes one pending message with a number in first..last and hands it to its window.
void DispatchOneWindowMessage(uint32_t first, uint32_t last);

// Returns true when a message is pending, at once if one is already; false when nothing is but that
// the program has been told to quit, or when no message can come.
bool WaitForWindowMessage();

}  // namespace platform
