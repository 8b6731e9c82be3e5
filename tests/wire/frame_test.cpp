// What all functions from the discounts to the display share: null arguments, the debug box, the
// session start and the open receipt, in this order, whatever is wrong with the other arguments.
#include "family_test.h"

namespace {

using Frame = FamilyTest;
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

TEST_F(Frame, BoxesShowTheArgumentsBeforeTheSession) {
    const std::string boxes =
        "function ChangeTime:|1.Hour: 24|2.Minute: 60||function DailyReport:|"
        "1.Unconditionally: 1||function DiscountOrSurcharge: |1.Discount: 1|2.Amount: -2||"
        "function MonthlyReport:|1.Fiscal: 3|2.Year: 4|3.Month: 5||"
        "function NonFiscalPrintoutBegin:|1.Number: 100||function NonFiscalPrintoutLine:|"
        "1.Number: 100|2.Text: t|1.If0A: 2||function NonFiscalPrintoutLine:|1.Text: t||"
        "function NumberReport:|1.Fiscal: 3|2.FirstNumber: 4|3.LastNumber: 5||"
        "function OpenDrawer: |1.DrawerNumber: 4||function PackageItem: |1.Parameter: 4|"
        "2.Number: 2|3.Qantity: 3|4.Price: 4||function PercentDiscountOrSurcharge: |"
        "1.Discount: 1|2.Percent: 2||function PeriodReport:|1.Fiscal: 0|2.yy1: 1|3.mm1: 2|"
        "4.dd1: 3|5.yy2: 4|6.mm2: 5|7.dd2: 66||function RSSequence:|1.ControlCode: 1|"
        "2.QuantityOfBytesToReceive: 0|3.QuantityOfBytesToSend: 0||function pControlPrintout:|"
        "1.Operation: 3|2.Name: n|3.TaxRate: 5||function pDisplayGX450:|1.Number: 1|2.Text: t||"
        "function pInvoiceBegin: |1.Number: a|2.Name1: b|3.Name2: c|4.Name3: d|5.Name4: e|"
        "6.Name5: f|7.Name6: g|8.NIP: h||function pWriteFooterLines:|1.Line1: a|2.Line2: |"
        "3.Line3: c||functionWriteLineFeed:|1.LineFeeds: 1||pCheckArticle:|1.Name: n||";
    NrPortu = 0;
    SetDebugMode();
    testing::internal::CaptureStdout();
    InsideOnly();
    OutsideOnly();
    pInvoiceBegin("a", "b", "c", "d", "e", "f", "g", "h");
    All(OpenDrawer(4), pWriteFooterLines("a", "", "c"), RSSequence(1, 0, 0, nullptr, nullptr));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),  // printed, not shown: meant
              "Sent to function pWriteECRCashierCode:\n1.ECRCode: 1\n1.CashierCode: c\n");
    std::sort(os.notices.begin(), os.notices.end());
    std::string shown;
    for (const std::string& box : os.notices) shown += box.substr(19) + "\n";
    std::replace(shown.begin(), shown.end(), '\n', '|');
    EXPECT_EQ(shown, boxes);
}

}  // namespace
