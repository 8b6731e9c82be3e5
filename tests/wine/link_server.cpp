// The controlling server: starts the driver named by its argument and steers it by real window
// messages. Says what goes wrong, and returns the count of it.
#include <windows.h>

#include <cstdio>
#include <utility>

#include "links/msgqueue.h"

uint32_t driver = 0;

// The value of the driver's next message of this letter within the time, or -1.
int64_t Receive(char letter, uint32_t ms) {
    for (const uint64_t end = GetTickCount64() + ms; GetTickCount64() < end; Sleep(1)) {
        uint32_t process = 0, value = 0;
        const char received = WinRcvMsg('S', &process, &value);
        if (driver == 0) driver = process;
        if (received == letter && process == driver) return value;
    }
    return -1;
}

int64_t Ask(char letter, uint32_t process = driver) {
    Sleep(100);  // a process has each message once for each of its windows; Wine gives it two
    while (WinRcvMsg('S', nullptr, nullptr) != 0) continue;
    WinSndMsg('S', process, letter, 0);
    return Receive(static_cast<char>(letter - 'a' + 'A'), process == driver ? 5000 : 300);
}

int main(int count, char** arguments) {
    CreateWindowA("STATIC", "", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    InitMsgID_(RegisterWindowMessageA("driver and server"));
    STARTUPINFOA startup{};
    PROCESS_INFORMATION process{};
    if (count != 2 || CreateProcessA(arguments[1], nullptr, nullptr, nullptr, FALSE, 0, nullptr,
                                     nullptr, &startup, &process) == FALSE)
        return 100;
    int64_t suspended = 0;
    DWORD outcome = 0;
    const std::pair<const char*, bool> steps[] = {
        {"announces itself", Receive('A', 20000) == 0 && driver == process.dwProcessId},
        {"LINES, clipped", Ask('l') == 0xFFFFFF},
        {"OUTLINES", Ask('o') == 8},
        {"AVAILABLE", Ask('a') == 0},
        {"takes no command of another driver", Ask('a', driver + 4) == -1},
        {"SUSPEND, no exchange any more",
         Ask('s') == 0 && (suspended = Ask('c')) > 0 && Ask('c') == suspended},
        {"RESUME, exchanges again", Ask('r') == 0 && Ask('c') > suspended + 1},
        {"BREAK ends the exchange with 56",
         Ask('b') == 0 && WaitForSingleObject(process.hProcess, 10000) == WAIT_OBJECT_0 &&
             GetExitCodeProcess(process.hProcess, &outcome) != FALSE && outcome == 56}};
    int wrong = 0;
    for (const auto& [what, right] : steps)
        if (!right) std::printf("not %d: %s\n", ++wrong, what);
    return wrong;
}
