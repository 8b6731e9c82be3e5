/* A receipt from a point-of-sale program: open a session, sell, pay, close.
 *
 *   receipt /dev/ttyUSB0      on Linux: the serial device
 *   receipt 3                 the COM port's number
 *
 * Texts go to the library in code page 1250, so the Polish letters of the names below are written
 * as their codes there.
 */
#include <koraxdr.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { BAUD = 9600, TIMEOUT_S = 5, COM_PORT = 1 };
enum { CORRECTION = 0, SALE = 1 };
enum { AMOUNT_DISCOUNT = 1 };

/* Prints a text of code page 1250 on a UTF-8 terminal; every letter of it that is not ASCII has its
 * place in this short list. */
static void print_text(const char* text) {
    static const char letters[] =
        "\xA5\xC6\xCA\xA3\xD1\xD3\x8C\x8F\xAF\xB9\xE6\xEA\xB3\xF1\xF3\x9C\x9F\xBF";
    static const char* const utf8[] = {"Ą", "Ć", "Ę", "Ł", "Ń", "Ó", "Ś", "Ź", "Ż",
                                       "ą", "ć", "ę", "ł", "ń", "ó", "ś", "ź", "ż"};
    for (; *text != '\0'; ++text) {
        const char* letter = strchr(letters, *text);
        if (letter != NULL) {
            fputs(utf8[letter - letters], stdout);
        } else {
            putchar(*text);
        }
    }
}

/* Ends the program when a call has failed, with the receipt cancelled and the session closed. */
static void check(const char* call, int32_t error) {
    if (error == 0) return;
    printf("%s: %d, ", call, (int)error);
    print_text(xErrMessage(error));
    putchar('\n');
    if (error == KORAX_E_RECEIPT_CANCELLED) {
        char reason[256];
        int32_t code = 0;
        if (CancellationReason(&code, reason) == 0) {
            printf("The device gave reason %d: ", (int)code);
            print_text(reason);
            putchar('\n');
        }
    } else {
        ReceiptCancel(); /* does nothing when no receipt is open */
    }
    CommunicationEnd();
    exit(EXIT_FAILURE);
}

static int32_t open_line(const char* device) {
    if (device[0] >= '0' && device[0] <= '9') return atoi(device);
#if defined(_WIN32)
    return 0; /* no such port: the session's start says so */
#else
    check("SetPortDevice", SetPortDevice(COM_PORT, device));
    return COM_PORT;
#endif
}

/* Types 7 and 9 refuse a name of more than 28 characters; the others cut it to what they print. */
static const char* fitting(const char* name, int32_t device_type) {
    static char cut[29];
    if (device_type != KORAX_TYPE_QUORRA_F && device_type != KORAX_TYPE_TOLA_F) return name;
    snprintf(cut, sizeof cut, "%s", name);
    return cut;
}

int main(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr, "usage: %s DEVICE\n", argv[0]);
        return 2;
    }
    const int32_t port = open_line(argv[1]);
    check("CommunicationInit", CommunicationInit(port, BAUD, TIMEOUT_S));
    const int32_t device_type = xDeviceType();
    /* Text results share one buffer: each is used before the next is asked for. */
    printf("Device: %s\n", xDeviceName());
    printf("Driver: %s\n", xDllVersion());

    /* A quantity comes with its number of decimals: 1500 and 3 are 1.500 kg. The last argument is
     * the value of the line; 0 asks the library to work it out. */
    const struct {
        int32_t sale;
        const char* name;
        int32_t rate, quantity, decimals;
        const char* unit;
        int32_t price;
    } items[] = {
        /* Chleb żytni krojony, Jabłka ligol, Kawa palona mielona świeżo parzona, Czekolada gorzka z
         * całymi orzechami (three, and one of them taken back), Gazeta codzienna */
        {SALE, "Chleb \xBFytni krojony", KORAX_RATE_C, 2, 0, "szt.", 449},
        {SALE, "Jab\xB3ka ligol", KORAX_RATE_C, 1356, 3, "kg", 399},
        {SALE, "Kawa palona mielona \x9Cwie\xBFo parzona", KORAX_RATE_A, 1, 0, "opak", 2799},
        {SALE, "Czekolada gorzka z ca\xB3ymi orzechami", KORAX_RATE_A, 3, 0, "szt.", 649},
        {CORRECTION, "Czekolada gorzka z ca\xB3ymi orzechami", KORAX_RATE_A, 1, 0, "szt.", 649},
        {SALE, "Gazeta codzienna", KORAX_RATE_B, 1, 0, "szt.", 350},
    };

    check("ReceiptBegin", ReceiptBegin());
    int32_t total = 0;
    for (size_t i = 0; i < sizeof items / sizeof items[0]; ++i) {
        int32_t value = 0;
        check("pReceiptItem", pReceiptItem(items[i].sale, fitting(items[i].name, device_type),
                                           items[i].rate, 0, items[i].quantity, items[i].decimals,
                                           items[i].unit, items[i].price, &value));
        total += items[i].sale == SALE ? value : -value;
    }

    /* A discount on the whole receipt, and two forms of payment with change. They are sent by
     * the end of the receipt, on the device types that know them. */
    const int32_t discount = 150;
    total -= discount;
    const int32_t by_card = 2000;
    const int32_t cash = 5000;
    check("pFillPayment", pFillPayment(1, "Karta", by_card, 0));
    check("pFillPayment",
          pFillPayment(2, "Got\xF3wka", cash, by_card + cash - total)); /* Gotówka */
    int32_t free_lines = 0;
    check("pFillLines", pFillLines(1, "Dzi\xEAkujemy i zapraszamy!", &free_lines)); /* Dziękujemy */
    check("ReceiptEndEx", ReceiptEndEx(discount, AMOUNT_DISCOUNT));

    printf("Receipt %d, total %d,%02d\n", (int)xReceiptNumber(), (int)(total / 100),
           (int)(total % 100));
    CommunicationEnd();
    return EXIT_SUCCESS;
}
