/* A day at the counter: morning set-up, sales with discounts and packages, an invoice, printouts,
 * and the evening's reports.
 *
 *   day /dev/ttyUSB0 [logo.bmp]     on Linux: the serial device
 *   day 3 [logo.bmp]                the COM port's number
 *
 * Devices differ in what they know. A function that a type lacks answers 213 or 224, or the device
 * itself refuses its command with 24; the day goes on without it. Texts are in code page 1250.
 */
#include <koraxdr.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { BAUD = 9600, TIMEOUT_S = 5, COM_PORT = 1 };
enum { SALE = 1, DISCOUNT = 1 };

static int64_t sold_today; /* hundredths, of the receipts that were ended */

static void fail(const char* call, int32_t error) {
    printf("%s failed with %d\n", call, (int)error);
    if (error == KORAX_E_RECEIPT_CANCELLED) {
        char reason[256];
        int32_t code = 0;
        if (CancellationReason(&code, reason) == 0) printf("reason %d\n", (int)code);
    }
    ReceiptCancel();
    CommunicationEnd();
    exit(EXIT_FAILURE);
}

/* What has to work on every device. */
static void must(const char* call, int32_t error) {
    if (error != 0) fail(call, error);
}

/* What a device may lack: 1 when it was done. */
static int may(const char* call, int32_t error) {
    if (error == KORAX_E_REFUSED || error == KORAX_E_COMMAND_NOT_AVAILABLE ||
        error == KORAX_E_NOT_IN_THIS_DEVICE) {
        printf("  (%s: not on this device, %d)\n", call, (int)error);
        return 0;
    }
    must(call, error);
    return 1;
}

static int32_t open_line(const char* device) {
    if (device[0] >= '0' && device[0] <= '9') return atoi(device);
#if defined(_WIN32)
    return 0; /* no such port: the session's start says so */
#else
    must("SetPortDevice", SetPortDevice(COM_PORT, device));
    return COM_PORT;
#endif
}

/* The clock can be moved once a day, by an hour at most, while nothing has been sold. */
static void correct_clock(void) {
    char text[18];
    int day, month, year, hour, minute;
    must("pReadClock", pReadClock(text));
    printf("Clock: %s\n", text);
    if (sscanf(text, "%d.%d.%d;%d:%d", &day, &month, &year, &hour, &minute) != 5) return;
    const int step = minute < 59 ? 1 : -1;
    must("ChangeTime", ChangeTime(hour, minute + step));
}

/* Article names with their rates. Rates A to D have the same numbers in the device. */
static void control_printout(void) {
    if (!may("pControlPrintout", pControlPrintout(1, NULL, 0))) return;
    must("pControlPrintout", pControlPrintout(3, "Chleb wiejski", KORAX_RATE_C));
    must("pControlPrintout", pControlPrintout(3, "Sok jab\xB3kowy", KORAX_RATE_B));
    must("pControlPrintout", pControlPrintout(2, NULL, 0));
}

static void morning(const char* logo) {
    char name[20], unique[12];
    must("pDeviceName", pDeviceName(name));
    must("pReadUniqueNumber", pReadUniqueNumber(unique));
    printf("Device: %s, number %s\n", name, unique);
    correct_clock();

    /* Rates are read in one form from every generation of devices, and can be written back. */
    int32_t rates[8];
    must("xReadVAT", (xReadVAT(rates), LastError()));
    must("SetVAT",
         SetVAT(rates[0], rates[1], rates[2], rates[3], rates[4], rates[5], rates[6], rates[7]));

    /* The device's code page is asked for by a control printout or a receipt. Footer lines and codes
     * that are written before the first of them go out in page 852, whatever the device's. */
    control_printout();
    may("pWriteFooterLines", pWriteFooterLines("Zapraszamy r\xF3wnie\xBF w niedziel\xEA",
                                               "pon.-pt. 7-20, sob. 8-14", ""));
    if (logo != NULL) may("pWriteLogo", pWriteLogo(logo));
    may("pWriteECRCashierCode", pWriteECRCashierCode(7, "Gra\xBFyna"));
    may("pDisplayGX450", pDisplayGX450(1, "Otwarte"));
}

static int32_t sell(const char* name, int32_t rate, int32_t quantity, int32_t decimals,
                    const char* unit, int32_t price) {
    int32_t value = 0;
    must("pReceiptItem",
         pReceiptItem(SALE, name, rate, 0, quantity, decimals, unit, price, &value));
    return value;
}

/* Every second receipt leaves out the queries that only confirm: OptimizeTransmission. */
static void sales(void) {
    for (int customer = 0; customer < 4; ++customer) {
        if (customer % 2 == 1) must("OptimizeTransmission", OptimizeTransmission());
        must("ReceiptBegin", ReceiptBegin());
        int32_t total = sell("Chleb wiejski", KORAX_RATE_C, 1, 0, "szt.", 450);
        total += sell("Ser w plastrach", KORAX_RATE_C, 250, 3, "kg", 3299);
        if (may("DiscountOrSurcharge", DiscountOrSurcharge(DISCOUNT, 100))) total -= 100;
        total += sell("Sok jab\xB3kowy", KORAX_RATE_B, 2, 0, "szt.", 599);
        must("ReceiptEnd", ReceiptEnd(0));
        sold_today += total;
    }
}

static void receipt_with_everything(void) {
    must("ReceiptBegin", ReceiptBegin());
    int32_t total = sell("Woda mineralna", KORAX_RATE_A, 6, 0, "szt.", 199);
    may("PackageItem", PackageItem(0, 1, 6, 50));
    may("PrintSubtotal", PrintSubtotal());
    must("pFillPayment", pFillPayment(1, "Karta", total, 0));
    int32_t free_lines = 0;
    must("pFillLines", pFillLines(1, "Nr klienta 1234", &free_lines));
    must("ReceiptEnd", ReceiptEnd(0));
    sold_today += total;
    may("OpenDrawer", OpenDrawer(1));
}

static void invoice(void) {
    if (!may("pInvoiceBegin",
             pInvoiceBegin("FV 12/2013",
                           "Hurtownia Pod D\xEA"
                           "bem",
                           "ul. Polna 3", "00-950 Warszawa", "", "", "", "1234563218"))) {
        return;
    }
    const int32_t total = sell("Papier ksero", KORAX_RATE_A, 10, 0, "ryza", 1250);
    must("ReceiptEnd", ReceiptEnd(0));
    sold_today += total;
}

static void printouts(void) {
    if (may("NonFiscalPrintoutBegin", NonFiscalPrintoutBegin(1))) {
        must("pNonFiscalPrintoutLine", pNonFiscalPrintoutLine(1, "Stan kasy", 1));
        must("NonFiscalPrintoutEnd", NonFiscalPrintoutEnd());
    }
    int32_t rate = 0, kind = 0;
    if (may("pCheckArticle", pCheckArticle("Chleb wiejski", &rate, &kind))) {
        printf("Chleb wiejski is sold at rate %d\n", (int)rate);
    }
    may("WriteLineFeed", WriteLineFeed(2));
}

static void evening(void) {
    char total[12];
    if (may("pReadTotal", pReadTotal(total))) {
        if (atoll(total) != sold_today) fail("pReadTotal does not match the sales", 0);
    }
    int64_t t[7];
    int32_t opened = 0, closed = 0;
    may("pReadDailyTotalizers",
        pReadDailyTotalizers(1, &t[0], &t[1], &t[2], &t[3], &t[4], &t[5], &t[6]));
    may("pReadDailyCounters", pReadDailyCounters(&opened, &closed));

    must("DailyReport", DailyReport(0));
    const int32_t again = DailyReport(0);
    if (again != KORAX_E_NOTHING_SOLD) fail("a second DailyReport", again);
    int32_t number = 0;
    if (may("DailyReportNumber", DailyReportNumber(&number))) {
        printf("Daily report %d\n", (int)number);
        may("NumberReport", NumberReport(1, number, number));
    }
    may("LockedArticlesReport", LockedArticlesReport());
    may("PrinterStatusReport", PrinterStatusReport());
}

int main(int argc, char** argv) {
    if (argc < 2 || argc > 3) {
        fprintf(stderr, "usage: %s DEVICE [LOGO]\n", argv[0]);
        return 2;
    }
    must("CommunicationInit", CommunicationInit(open_line(argv[1]), BAUD, TIMEOUT_S));
    morning(argc == 3 ? argv[2] : NULL);
    sales();
    receipt_with_everything();
    invoice();
    printouts();
    printf("Sold today: %d,%02d\n", (int)(sold_today / 100), (int)(sold_today % 100));
    evening();
    CommunicationEnd();
    return EXIT_SUCCESS;
}
