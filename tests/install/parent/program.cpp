// Prints what the library says to a device that does not exist.
#include <koraxdr.h>

#include <cstdio>

static_assert(__cplusplus == 201703L, "the parent's standard is its own");

int main() {
    // The library's own warnings would refuse these two.
    const unsigned char port = KORAX_RATE_A * 1L;
    const unsigned speed = 9600;
    SetPortDevice(port, "/nonexistent");
    std::printf("%d\n", static_cast<int>(CommunicationInit(port, speed, 1)));
}
