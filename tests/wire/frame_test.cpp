// What the functions share: null arguments, the debug box, the session start and the open receipt,
// in this order, whatever is wrong with the other arguments.
#include <algorithm>

#include "support/contents.h"
#include "support/driver_test.h"

namespace {

using Frame = DriverTest;
using Results = std::vector<int32_t>;

int32_t cell = 0;
int64_t wide = 0;
char text[256] = "";

const auto All = [](auto... results) { return Results{results...}; };

Results InsideOnly() {
    return All(DiscountOrSurcharge(1, -2), PercentDiscountOrSurcharge(1, 2),
               PackageItem(4, 2, 3, 4), PrintSubtotal());
}

Results OutsideOnly() {
    return All(
        DailyReport(1), LockedArticlesReport(), PrinterStatusReport(), MonthlyReport(3, 4, 5),
        PeriodReport(0, 1, 2, 3, 4, 5, 66), NumberReport(3, 4, 5), DailyReportNumber(&cell),
        pReadClock(text), ChangeTime(24, 60), pReadTotal(text), pReadSelTotal("A", text),
        pReadUniqueNumber(text), pReadDailyCounters(&cell, &cell), NonFiscalPrintoutBegin(100),
        pReadDailyTotalizers(3, &wide, &wide, &wide, &wide, &wide, &wide, &wide),
        NonFiscalPrintoutEnd(), pNonFiscalPrintoutLine(100, "t", 2), pAddNonFiscalPrintoutLine("t"),
        pControlPrintout(3, "n", 5), WriteLineFeed(1), pCheckArticle("n", &cell, &cell),
        WriteUserQuorra(1, 2, "t"), pWriteECRCashierCode(1, "c"), pDisplayGX450(1, "t"));
}

TEST_F(Frame, NullArgumentsThenSessionThenReceipt) {
    NrPortu = 0;
    ParagonRozpoczety = 1;
    EXPECT_EQ(InsideOnly(), Results(4, 114));
    EXPECT_EQ(OutsideOnly(), Results(24, 114));
    EXPECT_EQ(All(pInvoiceBegin("", "", "", "", "", "", "", ""), ReadStatus(0, 0, 0, 0),
                  ReadConfigBytes(1, 0, 0, 0), WriteConfigBytes(1, 2, 3, 4), OpenDrawer(1)),
              Results(5, 114));
    EXPECT_EQ(
        All(pReadClock(nullptr), pReadTotal(nullptr), pReadSelTotal(nullptr, nullptr),
            pWriteLogo(nullptr), pReadUniqueNumber(nullptr), pReadFooterLines(text, text, nullptr),
            pReadDailyCounters(&cell, nullptr), pControlPrintout(3, nullptr, 0),
            pCheckArticle("", &cell, nullptr), RSSequence(1, 1, 0, nullptr, nullptr)),
        Results(10, 225));
    // These come without a session: a range, a file, the functions that start none.
    EXPECT_EQ(All(OpenDrawer(4), pWriteLogo("no such file"), pWriteFooterLines("", "", ""),
                  pReadFooterLines(text, text, text), RSSequence(1, 0, 0, nullptr, nullptr)),
              (Results{212, 236, 20, 20, 20}));
    StartSession(2);
    EXPECT_EQ(InsideOnly(), Results(4, 201));
    ParagonRozpoczety = 1;
    EXPECT_EQ(OutsideOnly(), Results(24, 200));
    EXPECT_TRUE(os.notices.empty());
}

// The misspelt words are meant.
TEST_F(Frame, BoxesShowTheArgumentsBeforeTheSession) {
    const auto call_all = [] {
        NrPortu = 0;
        cell = -3;
        InsideOnly();
        OutsideOnly();
        pInvoiceBegin("a", "b", "c", "d", "e", "f", "g", "h");
        All(OpenDrawer(4), pWriteFooterLines("a", "", "c"), RSSequence(1, 0, 0, nullptr, nullptr),
            SetVAT(7, 1, 2, 3, 4, 5, 6, 8), PrintControl(1), ReceiptEndEx(10, 2),
            pReceiptItem(1, "i", 2, 3, 4, 5, "kg", 6, &cell), pFillPayment(9, "p", 1, 2),
            pSendPayment(9, "s", 3, 4), pFillLines(23, "x", &cell),
            pCurrencyPayment1("c", "4.2", 1, 2, 0), pCurrencyPayment2(1, 2, 3, 4, 0),
            pAdditionalCurrencyPayment(1, 2, "", 3, 4, 5, 6), OpenPort(1, 9600, 2, 3));
    };
    testing::internal::CaptureStdout();
    EXPECT_EQ(SetDebugMode(), 0);
    call_all();
    EXPECT_EQ(ClearDebugMode(), 0);
    call_all();
    EXPECT_EQ(testing::internal::GetCapturedStdout(),  // printed, not shown: meant
              "Sent to function pWriteECRCashierCode:\n1.ECRCode: 1\n1.CashierCode: c\n");
    std::ranges::sort(os.notices);
    std::string shown;
    for (const std::string& box : os.notices)
        for (const char c : box + "\n") shown += c == '\n' ? "|\n" : std::string(1, c);
    EXPECT_EQ(shown, Contents(TESTS_DIR "/wire/boxes.txt"));

    os.notices.clear();
    StartSession(7);
    SetDebugMode();
    Call(Identify(7, 3), IsCodePage1250, &cell);
    EXPECT_TRUE(os.notices.empty()) << "asked by every receipt it shows nothing";
    pFillPayment(1, std::string(9000, 'x').c_str(), 1, 2);  // fits
}

}  // namespace
