// What the compiler's stack protection calls. The compiler's own library for it would make the DLL
// import another system library, for a random number that this can do without.
#include <windows.h>

#include <cstdint>

extern "C" {

extern uintptr_t __stack_chk_guard;
[[noreturn]] void __stack_chk_fail();

uintptr_t __stack_chk_guard;

// Ends the process at once and without another call: nothing on the stack can be trusted any more.
[[noreturn]] void __stack_chk_fail() {
    constexpr int kStackCookieCheckFailure = 2;
    asm volatile("int $0x29" : : "c"(kStackCookieCheckFailure));
    __builtin_unreachable();
}
}

namespace {

// What nobody outside the process can foresee all of: times, numbers, randomised addresses.
uint64_t Unforeseeable() {
    LARGE_INTEGER counter;
    FILETIME time;
    QueryPerformanceCounter(&counter);
    GetSystemTimeAsFileTime(&time);
    const uint64_t parts[] = {static_cast<uint64_t>(counter.QuadPart),
                              uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime,
                              uint64_t{GetCurrentProcessId()} << 32 | GetCurrentThreadId(),
                              reinterpret_cast<uintptr_t>(&counter),
                              reinterpret_cast<uintptr_t>(&GetCurrentProcessId)};
    uint64_t mixed = 0;
    for (const uint64_t part : parts) {
        mixed = (mixed ^ part) * 0x9E3779B97F4A7C15;  // odd, its bits spread evenly
        mixed ^= mixed >> 29;
    }
    return mixed;
}

// Before anything else runs: a function that was entered with another guard could not return. The
// lowest byte stays 0, so that a text that runs over its buffer cannot put the guard back.
[[gnu::constructor(101), gnu::no_stack_protector]] void SetStackGuard() {
    __stack_chk_guard = static_cast<uintptr_t>(Unforeseeable()) << 8;
}

}  // namespace
