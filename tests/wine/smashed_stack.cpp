// The stack protection of the Windows build ends a process whose stack was written over, and tells
// the system why.
#include <windows.h>

#include <cstring>

#include "gtest/gtest.h"

namespace {

[[gnu::noipa]] size_t Smash(const char* text, size_t count) {
    char buffer[8]{};
    char* volatile at = buffer;  // the compiler is not to see how long it is
    std::memcpy(at, text, count);
    return std::strlen(at);
}

}  // namespace

TEST(StackGuard, EndsAProcessWithASmashedStack) {
    constexpr DWORD kStackBufferOverrun = 0xC0000409;
    constexpr char kText[] = "a text that is much longer than the buffer that it is copied to";
    EXPECT_EQ(7u, Smash(kText, 7));
    EXPECT_EXIT(
        Smash(kText, sizeof kText),
        [](int status) { return static_cast<DWORD>(status) == kStackBufferOverrun; }, "");
}
