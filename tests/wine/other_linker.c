/* Linked without this compiler's libraries, by another linker and the import library for those. */
#include <koraxdr.h>

int start(void);

int start(void) {
    static char version[256];
    if (pDllVersion(version) != 0 || version[0] == '\0') return 1;
    return CommunicationInit(200, 9600, 1) == 2 ? 0 : 2; /* no such port */
}
