/* first DEVICE: one receipt. DEVICE is a serial device, or on Windows the number of a COM port. */
#include <koraxdr.h>
#include <stdio.h>
#include <stdlib.h>

enum { BAUD = 9600, TIMEOUT_S = 5 };
enum { SALE = 1 };

static void must(const char* call, int32_t error) {
    if (error == 0) return;
    fprintf(stderr, "%s: error %d\n", call, (int)error);
    CommunicationEnd();
    exit(EXIT_FAILURE);
}

int main(int argc, char** argv) {
    if (argc != 2) return 2;
#if defined(_WIN32)
    const int32_t port = atoi(argv[1]);
#else
    const int32_t port = 1;
    must("SetPortDevice", SetPortDevice(port, argv[1]));
#endif
    must("CommunicationInit", CommunicationInit(port, BAUD, TIMEOUT_S));
    printf("Device: %s\n", xDeviceName());

    must("ReceiptBegin", ReceiptBegin());
    must("pReceiptItemEx", pReceiptItemEx(SALE, "Coffee", KORAX_RATE_A, 0, 1, 0, "pcs", 1299));
    must("ReceiptEnd", ReceiptEnd(0));
    CommunicationEnd();
    return EXIT_SUCCESS;
}
