// Prints the library's version, that of its header, and what it says to a device that does not
// exist.
#include <koraxdr.h>

#include <cstdio>

int main() {
    std::puts(xDllVersion());
    std::printf("%d.%d.%d %d\n", KORAXDR_VERSION_MAJOR, KORAXDR_VERSION_MINOR,
                KORAXDR_VERSION_PATCH, KORAXDR_VERSION);
    SetPortDevice(1, "/nonexistent");
    std::printf("%d\n", static_cast<int>(CommunicationInit(1, 9600, 1)));
}
