// What the functions share: null arguments, the debug box, the session start and the open receipt,
// in this order, whatever is wrong with the other arguments.
#include <algorithm>

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
    const std::string boxes =
        "function ChangeTime:|1.Hour: 24|2.Minute: 60||function DailyReport:|"
        "1.Unconditionally: 1||function DiscountOrSurcharge: |1.Discount: 1|2.Amount: -2||"
        "function MonthlyReport:|1.Fiscal: 3|2.Year: 4|3.Month: 5||"
        "function NonFiscalPrintoutBegin:|1.Number: 100||function NonFiscalPrintoutLine:|"
        "1.Number: 100|2.Text: t|1.If0A: 2||function NonFiscalPrintoutLine:|1.Text: t||"
        "function NumberReport:|1.Fiscal: 3|2.FirstNumber: 4|3.LastNumber: 5||"
        "function OpenDrawer: |1.DrawerNumber: 4||function OpenPort: |1.Port: 1|2.BaudRate: 9600|"
        "3.WriteTimeout: 2|4.ReadTimeout: 3||function PackageItem: |1.Parameter: 4|2.Number: 2|"
        "3.Qantity: 3|4.Price: 4||function PercentDiscountOrSurcharge: |1.Discount: 1|"
        "2.Percent: 2||function PeriodReport:|1.Fiscal: 0|2.yy1: 1|3.mm1: 2|4.dd1: 3|5.yy2: 4|"
        "6.mm2: 5|7.dd2: 66||function PrintControl: |1.BeforePrinting: 1||function RSSequence:|"
        "1.ControlCode: 1|2.QuantityOfBytesToReceive: 0|3.QuantityOfBytesToSend: 0||"
        "function ReceiptEndEx: |1.DiscountSurcharge: 10|2.TypeOfDiscountSurcharge: 2||"
        "function SetVAT:|1.QuantityOfRates: 7|2.A: 1|3.B: 2|4.C: 3|5.D: 4|6.E: 5|7.F: 6|8.G: 8||"
        "function pAdditionalCurrencyPayment: |1.Number: 1|2.IsChange: 2|3.Name: |"
        "4.PaidInForeignCurrency: 3|5.ExchangeRate: 4|6.QAC: 5|7.PaidInBaseCurrency: 6||"
        "function pControlPrintout:|1.Operation: 3|2.Name: n|3.TaxRate: 5||"
        "function pCurrencyPayment1: |1.CurrencyName: c|2.Rate: 4.2|3.Qantity: 1|4.Subtotal: 2|"
        "5.Send: 0||function pCurrencyPayment2: |1.TotalInCurrency: 1|2.TotalInBaseCurrency: 2|"
        "3.Change: 3|4.TypeOfChange: 4|5.Send: 0||function pDisplayGX450:|1.Number: 1|2.Text: t||"
        "function pFillPayment: |1.PaymentNo: 9|2.PamentName: p|3.Total: 1|4.Change: 2||"
        "function pInvoiceBegin: |1.Number: a|2.Name1: b|3.Name2: c|4.Name3: d|5.Name4: e|"
        "6.Name5: f|7.Name6: g|8.NIP: h||function pReceiptItem: |1.Sale: 1|2.Name: i|"
        "3.TaxRate: 2|4.Communicate: 3|5.Quantity: 4|6.QAC: 5|7.Unit: kg|8.Price: 6|"
        "9.Amount: -3||function pSendPayment: |1.PaymentNo: 9|2.PamentName: s|3.Total: 3|"
        "4.Change: 4||function pWriteFooterLines:|1.Line1: a|2.Line2: |3.Line3: c||"
        "functionWriteLineFeed:|1.LineFeeds: 1||functon pFillLines:|1.Number: 23|2.Line: x||"
        "pCheckArticle:|1.Name: n||";
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
    for (const std::string& box : os.notices) {
        EXPECT_TRUE(box.starts_with("DEBUG MODE\nSent to "));
        shown += box.substr(19) + "\n";
    }
    std::ranges::replace(shown, '\n', '|');
    EXPECT_EQ(shown, boxes);

    os.notices.clear();
    StartSession(7);
    SetDebugMode();
    Call(Identify(7, 3), IsCodePage1250, &cell);
    EXPECT_TRUE(os.notices.empty()) << "asked by every receipt it shows nothing";
    pFillPayment(1, std::string(9000, 'x').c_str(), 1, 2);  // fits
}

}  // namespace
