// Prints the library's version and what it says to a device that does not exist.
#include <koraxdr.h>

#include <cstdio>

int main() {
    std::puts(xDllVersion());
    SetPortDevice(1, "/nonexistent");
    std::printf("%d\n", static_cast<int>(CommunicationInit(1, 9600, 1)));
}
