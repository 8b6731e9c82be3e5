// A whole day on every device type: what a type has works, what it lacks is refused with its
// number.
#include <algorithm>
#include <functional>

#include <fmt/format.h>
#include <unistd.h>

#include "scenario/shop.h"
#include "support/logo_file.h"

namespace {

using Types = std::vector<int>;
const Types kAll = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13};
const Types kPayments = {4, 8, 10, 11, 12, 13}, kDiscounts = {8, 10, 11, 13},
            kDisplays = {1, 2, 3, 5, 6}, kSevenRates = {4, 7, 8, 9, 10, 11, 12, 13},
            kNewer = {8, 9, 10, 11, 12}, kFooters = {8, 10, 11, 12, 13},
            kLogos = {8, 9, 10, 11, 12, 13}, kTolaE = {10, 11}, kTotals = {4, 7, 8, 10, 11, 12, 13},
            kOpening = {1, 2, 3, 4, 7, 8, 10, 11, 12, 13}, kSent = {4, 8, 9, 10, 11, 12, 13};

struct Service {
    const char* name;
    const Types& types;  // that have it
    int32_t refusal;     // of the others
    std::function<int32_t()> call;
};

class Day : public Shop, public testing::WithParamInterface<int> {
  protected:
    void Expect(const std::vector<Service>& services) {
        for (const Service& service : services) {
            EXPECT_EQ(service.call(), Has(service.types) ? 0 : service.refusal) << service.name;
        }
    }
    bool Has(const Types& types) { return std::ranges::count(types, GetParam()) != 0; }

    // What an application asks before it opens: who is there, and how its texts go out.
    void Introduction() {
        int32_t v[8];
        char text[256];
        Expect({
            {"DeviceType", kAll, 0, [&] { return DeviceType(v, v + 1); }},
            {"IsCodePage1250", kAll, 0, [&] { return IsCodePage1250(v + 2); }},
            {"ReadVAT", kAll, 0,
             [&] { return ReadVAT(v, v + 1, v + 2, v + 3, v + 4, v + 5, v + 6, v + 7); }},
            {"ReceiptNumber", kAll, 0, [&] { return ReceiptNumber(v); }},
            {"ReceiptConditions", kOpening, 224, [] { return ReceiptConditions(); }},
            {"PrintControl", kAll, 0, [] { return PrintControl(1); }},
            {"pDllVersion", kAll, 0, [&] { return pDllVersion(text); }},
            {"pDllAuthor", kAll, 0, [&] { return pDllAuthor(text); }},
            {"pErrMessage", kAll, 0, [&] { return pErrMessage(213, text); }},
            {"NormNazwa", kAll, 0, [&] { return NormNazwa(text, "Chleb"); }},
            {"NormNazwa1", kAll, 0, [&] { return NormNazwa1(text, "Chleb"); }},
            {"SetDebugMode", kAll, 0, [] { return SetDebugMode(); }},
            {"OpenDrawer", kAll, 0, [] { return OpenDrawer(1); }},
            {"pSendPayment", kSent, 213, [] { return pSendPayment(1, "Bon", 100, 0); }},
            {"pAdditionalCurrencyPayment", kSevenRates, 213,
             [] { return pAdditionalCurrencyPayment(1, 0, "EUR", 100, 42000, 4, 420); }},
            {"ClearDebugMode", kAll, 0, [] { return ClearDebugMode(); }},
        });
        EXPECT_EQ(memory::os.notices.size(), 3u);
        Urzadzenie = 0;
        Prog = 99;
        EXPECT_EQ(xDeviceType(), GetParam());
        EXPECT_EQ(xProgramVersion() == 99, Has({1, 2, 5})) << "these leave it as it was";
        EXPECT_EQ(xIsCodePage1250() + pCharsInArticleName(text) + InZnakiPolskie(0xA5), 6);
        EXPECT_EQ(NaLatin2(0xB9) << 8 | NaLatin2AndUpper(0xB9), 0xA5A4);
        EXPECT_STREQ(xDllAuthor(), "Korax driver maintainers");
    }

    void Morning() {
        int32_t s[4], c[3], rates[8];
        char line[3][41], text[256];
        EXPECT_STREQ(xReadClock(), Has(kSevenRates) ? "13.12.10;09:30:00" : "13.12.10;09:30");
        EXPECT_EQ(ChangeTime(9, 45), 0);
        EXPECT_EQ(ChangeTime(9, 50), 230);
        xReadVAT(rates);
        EXPECT_EQ(SetVAT(0, rates[1], rates[2], rates[3], rates[4], rates[5], rates[6], rates[7]),
                  0);
        EXPECT_EQ(std::string(xReadUniqueNumber()), "KRX13000042");
        EXPECT_EQ(xReadStatus(0) & 1, 1);
        EXPECT_EQ(BitZBajtu(4, 1), 1);
        Expect({
            {"ReadStatus", kAll, 0, [&] { return ReadStatus(&s[0], &s[1], &s[2], &s[3]); }},
            {"WriteConfigBytes", kAll, 0, [&] { return WriteConfigBytes(3, 7, 8, 9); }},
            {"ReadConfigBytes", kAll, 0, [&] { return ReadConfigBytes(3, &c[0], &c[1], &c[2]); }},
            {"pDisplayGX450", kDisplays, 213,
             [&] {
                 xReadClock();  // leaves a byte that the two-line display is recognised by
                 return pDisplayGX450(1, "Otwarte");
             }},
            {"pWriteFooterLines", kFooters, 213,
             [&] { return pWriteFooterLines("Do jutra", "", ""); }},
            {"pReadFooterLines", kFooters, 213,
             [&] { return pReadFooterLines(line[0], line[1], line[2]); }},
            {"pWriteLogo", kLogos, 224, [&] { return pWriteLogo(logo_.name()); }},
            {"pWriteECRCashierCode", kAll, 0, [&] { return pWriteECRCashierCode(7, "Ewa"); }},
            {"WriteUserQuorra", kAll, 0, [&] { return WriteUserQuorra(1, 1, "Kasa"); }},
            {"WriteLineFeed", kAll, 0, [&] { return WriteLineFeed(2); }},
            {"pDeviceName", kAll, 0, [&] { return pDeviceName(text); }},
        });
        EXPECT_EQ(c[0] * 100 + c[1] * 10 + c[2], 789);
        if (Has(kDisplays)) {
            const bool numbered = GetParam() == 2 || GetParam() == 6;
            EXPECT_EQ(device().display_text(), GetParam() == 3 ? "Otwarte |"
                                               : numbered      ? "1: Otwarte"
                                                               : "O O O");
        }
        if (Has(kFooters)) {
            EXPECT_EQ(std::string(line[0]), "Do jutra" + std::string(32, ' '));
        }
        if (Has(kLogos)) {
            EXPECT_EQ(device().logo()->rows[63][0] << 8 | device().logo()->rows[0][1], 0xFF00);
        }
    }

    void Sales() {
        for (int customer = 0; customer < 3; ++customer) {
            ASSERT_EQ(ReceiptBegin(), 0);
            if (customer == 1) OptimizeTransmission();
            EXPECT_EQ(SellBread(), 0);
            Expect({
                {"DiscountOrSurcharge", kDiscounts, 213, [] { return DiscountOrSurcharge(1, 75); }},
                {"Sell", kAll, 0, [] { return Sell("Mydło w kostce", 2, 3, 0, 333); }},
                {"PercentDiscount", kDiscounts, 213,
                 [] { return PercentDiscountOrSurcharge(1, 10); }},
                {"PackageItem", kPayments, 213, [] { return PackageItem(0, 1, 6, 50); }},
                {"PrintSubtotal", kPayments, 213, [] { return PrintSubtotal(); }},
                {"ErasePayments", kAll, 0, [] { return ErasePayments(); }},
                {"EraseLines", kAll, 0, [] { return EraseLines(); }},
            });
            EXPECT_EQ(ReceiptEnd(customer == 2 ? 5 : 0), 0);
            AddUp();
        }
        ASSERT_EQ(ReceiptBegin(), 0);
        EXPECT_EQ(SellBread(), 0);
        EXPECT_EQ(ReceiptCancel(), 0);
        Expect({{"pInvoiceBegin", {11}, 213, [] {
                     return pInvoiceBegin("FV 1", "Nabywca", "", "Miasto", "", "", "",
                                          "1234563218");
                 }}});
        if (!FakturaRozpoczeta) return;
        EXPECT_EQ(SellBread(), 0);
        EXPECT_EQ(ReceiptEnd(0), 0);
        AddUp();
    }

    void AddUp() {
        EXPECT_FALSE(receipt().cancelled || receipt().open());
        for (size_t rate = 0; rate < sold_.size(); ++rate) sold_[rate] += receipt().totals[rate];
    }

    void Printouts() {
        int32_t rate = 0, kind = 0;
        uint8_t status = 0;
        Expect({
            {"OpenDrawer", kAll, 0, [] { return OpenDrawer(2); }},
            {"NonFiscalPrintoutBegin", kAll, 0, [] { return NonFiscalPrintoutBegin(1); }},
            {"pNonFiscalPrintoutLine", kAll, 0,
             [] { return pNonFiscalPrintoutLine(1, "Stan", 1); }},
            {"pAddNonFiscalPrintoutLine", kAll, 0,
             [] { return pAddNonFiscalPrintoutLine("kasy"); }},
            {"NonFiscalPrintoutEnd", kAll, 0, [] { return NonFiscalPrintoutEnd(); }},
            {"pControlPrintout 1", kAll, 0, [] { return pControlPrintout(1, nullptr, 0); }},
            {"pControlPrintout", kAll, 0, [] { return pControlPrintout(0, "Chleb razowy", 1); }},
            {"pControlPrintout 2", kAll, 0, [] { return pControlPrintout(2, nullptr, 0); }},
            {"RSSequence", kAll, 0, [&] { return RSSequence(0x9B, 1, 0, &status, nullptr); }},
            {"pCheckArticle", kNewer, 224,
             [&] { return pCheckArticle(Cp1250("Mydło w kostce").c_str(), &rate, &kind); }},
            {"PrintResume", kAll, 0, [] { return PrintResume(); }},
        });
        EXPECT_EQ(rate, Has(kNewer) ? 2 : 0);
    }

    void Evening() {
        int64_t t[7] = {}, sum = 0;
        int32_t receipts = 0, other = 0;
        for (const int64_t amount : sold_) sum += amount;
        char total[256], of_rate[256];
        Expect({
            {"pReadTotal", kTotals, 224, [&] { return pReadTotal(total); }},
            {"pReadSelTotal", kTotals, 224, [&] { return pReadSelTotal("A", of_rate); }},
            {"pReadDailyTotalizers", kTolaE, 224,
             [&] { return pReadDailyTotalizers(1, t, t + 1, t + 2, t + 3, t + 4, t + 5, t + 6); }},
            {"pReadDailyCounters", kTolaE, 224,
             [&] { return pReadDailyCounters(&receipts, &other); }},
            {"LockedArticlesReport", kAll, 0, [] { return LockedArticlesReport(); }},
            {"PrinterStatusReport", kAll, 0, [] { return PrinterStatusReport(); }},
            {"DailyReport", kAll, 0, [] { return DailyReport(0); }},
            {"NumberReport", kSevenRates, 224, [] { return NumberReport(1, 1, 1); }},
            {"PeriodReport", kAll, 0, [] { return PeriodReport(1, 13, 12, 10, 13, 12, 10); }},
        });
        if (Has(kTotals)) {
            EXPECT_EQ(std::stoll(total), sum);
            EXPECT_EQ(std::stoll(of_rate), sold_[0]);
            EXPECT_STREQ(xReadTotal(), "0") << "the report has closed the day";
            EXPECT_STREQ(xReadSelTotal("A"), "0");
        }
        if (Has(kTolaE)) {
            EXPECT_EQ(t[0], sold_[0]);
        }
        EXPECT_EQ(MonthlyReport(1, 13, 12), Has(kSevenRates) ? 222 : 224)
            << "the month is not over";
        EXPECT_EQ(xDailyReportNumber(), 1);
        ASSERT_EQ(device().daily_reports().size(), 1u);
        EXPECT_EQ(device().daily_reports()[0].totals, sold_);
        EXPECT_EQ(DailyReport(0), 211) << "nothing sold since";
        EXPECT_EQ(xReceiptNumber(), 0);
        EXPECT_EQ(ClosePort(), 0);
        EXPECT_EQ(xReceiptNumber() + LastError(), 20) << "the port is closed";
        EXPECT_EQ(CommunicationInitInternal(1, 1), 0);
    }

    sim::RateAmounts sold_{};
    const LogoFile logo_{fmt::format("{}korax-day-{}.bmp", testing::TempDir(), getpid())};
};

TEST_P(Day, IsLivedThroughAndItsReportSaysWhatWasSold) {
    Open(GetParam());
    Introduction();
    Morning();
    Sales();
    Printouts();
    Evening();
}

INSTANTIATE_TEST_SUITE_P(DeviceTypes, Day, testing::ValuesIn(kAll));

}  // namespace
