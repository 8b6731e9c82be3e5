/* sale DEVICE JOURNAL: sells one coffee exactly once, however often it is started. Its status is
 * 0 sold, 1 not sold, 2 a person has to look, 3 not known before the device answers again. */
#define _POSIX_C_SOURCE 200809L /* fsync */
#include <koraxdr.h>
#include <stdio.h>
#if defined(_WIN32)
#include <io.h>
#else
#include <fcntl.h>
#include <libgen.h>
#include <unistd.h>
#endif

enum { PORT = 1, BAUD = 9600, TIMEOUT_S = 5 };
enum { SALE = 1, READINGS = 4 };
enum { ASK_RECEIPTS = 102, ASK_DAILY_REPORTS = 217 };

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

static int32_t ask_counters(Counters* now) {
    int32_t error = ask(ASK_RECEIPTS, &now->receipts);
    if (error != 0) return error;
    now->reports = 0; /* stays so where a device does not tell */
    error = ask(ASK_DAILY_REPORTS, &now->reports);
    return error == KORAX_E_REFUSED ? 0 : error;
}

/* The line has no check sum: a flipped bit makes another number, and one answer alone proves
 * nothing. Two in a row that agree do; what came damaged is asked for again. */
static int32_t read_counters(Counters* now) {
    Counters last = {-1, -1};
    int32_t error = 0;
    for (int reading = 0; reading < READINGS; ++reading) {
        error = ask_counters(now);
        if (error != 0) {
            last.receipts = -1;
            continue;
        }
        if (now->receipts == last.receipts && now->reports == last.reports) return 0;
        last = *now;
    }
    return error != 0 ? error : KORAX_E_UNEXPECTED_ANSWER;
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

/* Closing a file leaves it in the computer's memory, which a power cut takes along. */
static int on_the_disk(FILE* file, const char* path) {
#if defined(_WIN32)
    (void)path; /* the file's entry in its folder goes with it */
    return fflush(file) == 0 && _commit(_fileno(file)) == 0;
#else
    char name[4096];
    snprintf(name, sizeof name, "%s", path);
    const int folder = open(dirname(name), O_RDONLY);
    if (folder < 0) return 0;
    const int done = fflush(file) == 0 && fsync(fileno(file)) == 0 && fsync(folder) == 0;
    close(folder);
    return done;
#endif
}

static int journal_written(const char* path, const Counters* before) {
    FILE* file = fopen(path, "w");
    if (file == NULL) return 0;
    fprintf(file, "%d %d.", before->receipts, before->reports);
    const int done = on_the_disk(file, path);
    return fclose(file) == 0 && done;
}

static Outcome compare(const Counters* before, const Counters* now) {
    if (now->reports != before->reports) return LOOK_AT_THE_PAPER;
    if (now->receipts == before->receipts) return NOT_SOLD;
    return now->receipts == before->receipts + 1 ? SOLD : LOOK_AT_THE_PAPER;
}

static int32_t print_receipt(void) {
    int32_t error = ReceiptBegin();
    if (error == 0) error = pReceiptItemEx(SALE, "Coffee", KORAX_RATE_A, 0, 1, 0, "pcs", 1299);
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
