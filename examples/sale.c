/* sale DEVICE JOURNAL: sells one coffee exactly once, however often it is started. Its status is
 * 0 sold, 1 not sold, 2 a person has to look, 3 not known before the device answers again. */
#include <koraxdr.h>
#include <stdio.h>

enum { PORT = 1, BAUD = 9600, TIMEOUT_S = 5 };
enum { SALE = 1, RATE_A = 1 };
enum { ASK_RECEIPTS = 102, ASK_DAILY_REPORTS = 217, REFUSED = 24 };

typedef enum { SOLD, NOT_SOLD, LOOK_AT_THE_PAPER, NOT_KNOWN } Outcome;

typedef struct {
    int receipts; /* closed since the last daily report */
    int reports;  /* number of the last daily report */
} Counters;

/* What ReceiptNumber and DailyReportNumber ask. Those two refuse (200) while the driver itself
 * believes a receipt open, and after a close that was not heard it does, in a new session too. */
static int32_t ask(int32_t command, int* value) {
    uint8_t answer[3];
    const int32_t error = RSSequence(command, 3, 0, answer, NULL);
    if (error == 0) *value = answer[0] + 256 * answer[1];
    return error;
}

static int32_t read_counters(Counters* now) {
    int32_t error = ask(ASK_RECEIPTS, &now->receipts);
    if (error != 0) return error;
    now->reports = 0; /* stays so where a device does not tell */
    error = ask(ASK_DAILY_REPORTS, &now->reports);
    return error == REFUSED ? 0 : error;
}

/* After a session start no receipt is open and the counters are final. */
static int32_t start_and_read_counters(Counters* now) {
    const int32_t error = CommunicationInit(PORT, BAUD, TIMEOUT_S);
    return error != 0 ? error : read_counters(now);
}

/* In a shop the journal is a row of the data base, committed before the receipt begins. */
static int journal_read(const char* path, Counters* before) {
    FILE* file = fopen(path, "r");
    if (file == NULL) return 0;
    char end = 0;
    const int fields = fscanf(file, "%d %d%c", &before->receipts, &before->reports, &end);
    fclose(file);
    return fields == 3 && end == '.'; /* a torn row was never followed by a receipt */
}

static int journal_written(const char* path, const Counters* before) {
    FILE* file = fopen(path, "w");
    if (file == NULL) return 0;
    fprintf(file, "%d %d.", before->receipts, before->reports);
    return fclose(file) == 0;
}

static Outcome compare(const Counters* before, const Counters* now) {
    if (now->reports != before->reports) return LOOK_AT_THE_PAPER;
    if (now->receipts == before->receipts) return NOT_SOLD;
    return now->receipts == before->receipts + 1 ? SOLD : LOOK_AT_THE_PAPER;
}

static int32_t print_receipt(void) {
    int32_t error = ReceiptBegin();
    if (error == 0) error = pReceiptItemEx(SALE, "Coffee", RATE_A, 0, 1, 0, "pcs", 1299);
    if (error == 0) error = ReceiptEnd(0);
    return error;
}

static Outcome sell_once(const char* journal) {
    Counters before, now;
    if (start_and_read_counters(&now) != 0) return NOT_KNOWN;
    if (journal_read(journal, &before)) { /* a run before this one did not see its end */
        const Outcome outcome = compare(&before, &now);
        if (outcome != NOT_SOLD) return outcome;
    }
    if (!journal_written(journal, &now)) return NOT_SOLD;
    before = now;

    int32_t error = print_receipt();
    if (error != 0) fprintf(stderr, "receipt: error %d\n", (int)error);
    error = error == 0 ? read_counters(&now) : start_and_read_counters(&now);
    return error == 0 ? compare(&before, &now) : NOT_KNOWN;
}

int main(int argc, char** argv) {
    if (argc != 3) return 4;
#if !defined(_WIN32) /* there port 1 is COM1 */
    SetPortDevice(PORT, argv[1]);
#endif
    const Outcome outcome = sell_once(argv[2]);
    CommunicationEnd();
    return (int)outcome;
}
