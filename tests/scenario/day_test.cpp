// A whole day on every device type: what a type has works, what it lacks is refused.
#include <fmt/format.h>
#include <unistd.h>

#include <cstdlib>
#include <numeric>

#include "scenario/shop.h"
#include "support/logo_file.h"

namespace {

class Day : public Shop, public testing::WithParamInterface<int> {
  protected:
    // The outcomes of calls, in their order. A type that lacks a function may refuse it so.
    static void Expect(std::initializer_list<int32_t> results, int32_t refusal = 0) {
        for (const int32_t& result : results)
            EXPECT_TRUE(result == 0 || result == refusal)
                << "call " << &result - results.begin() << " gives " << result;
    }

    void Introduction() {
        int32_t v[8];
        char text[256];
        Expect({SetDebugMode(), DeviceType(v, v + 1), IsCodePage1250(v),
                ReadVAT(v, v + 1, v + 2, v + 3, v + 4, v + 5, v + 6, v + 7), ReceiptNumber(v),
                pDllVersion(text), pDllAuthor(text), pErrMessage(213, text),
                NormNazwa(text, "Chleb"), NormNazwa1(text, "Chleb"), ErasePayments(), EraseLines(),
                ClearDebugMode()});
        EXPECT_STREQ(xDllAuthor(), "Korax driver maintainers");
        EXPECT_EQ(xDeviceType() * 256 + xProgramVersion(), GetParam() * 256 + Prog);
        EXPECT_EQ(pCharsInArticleName("Chleb") + InZnakiPolskie(0xA5), 6);
        EXPECT_EQ(NaLatin2(0xB9) << 8 | NaLatin2AndUpper(0xB9), 0xA5A4);
        EXPECT_EQ((xReadStatus(0) & 1) + BitZBajtu(4, 1), 2);
    }

    void Morning() {
        int32_t v[8], c[3];
        char line[3][41];
        const bool seconds = GetParam() == 4 || GetParam() >= 7;
        EXPECT_STREQ(xReadClock(), seconds ? "13.12.10;09:30:00" : "13.12.10;09:30");
        EXPECT_EQ(ChangeTime(9, 45), 0);
        EXPECT_EQ(ChangeTime(9, 50), 230);
        EXPECT_EQ(SetVAT(0, 2200, 700, 300, 0, 25500, 25500, 10000), 0);
        EXPECT_EQ(xReadVAT(v)[1] * 10000 + device().vat_rates()[1], 2200 * 10000 + 700);
        Expect({PrintControl(1), ReadStatus(&v[0], &v[1], &v[2], &v[3]),
                WriteConfigBytes(3, 7, 8, 9), ReadConfigBytes(3, &c[0], &c[1], &c[2]),
                pWriteECRCashierCode(7, "Ewa"), WriteUserQuorra(1, 1, "Kasa"), WriteLineFeed(2),
                OpenDrawer(1)});
        EXPECT_EQ(c[0] * 100 + c[1] * 10 + c[2], 789);
        EXPECT_STREQ(xReadUniqueNumber(), "KRX13000042");
        Expect({ReceiptConditions()}, 224);
        Expect({pSendPayment(1, "Bon", 100, 0),
                pAdditionalCurrencyPayment(1, 0, "EUR", 100, 42000, 4, 420)},
               213);

        xReadClock();  // leaves a byte that the two-line display is recognised by
        const int32_t display = pDisplayGX450(1, "Otwarte"), logo = pWriteLogo(logo_.name()),
                      footer = pWriteFooterLines("Do jutra", "", "");
        Expect({display, footer}, 213);
        Expect({logo}, 224);
        if (display == 0) {
            const char* const shown[] = {"", "O OaO", "1: Otwarte", "Otwarte |"};
            EXPECT_EQ(device().display_text(), shown[GetParam() < 4 ? GetParam() : GetParam() - 4]);
        }
        EXPECT_EQ(pReadFooterLines(line[0], line[1], line[2]), footer);
        EXPECT_TRUE(footer != 0 || line[0] == "Do jutra" + std::string(32, ' '));
        if (logo == 0) {
            EXPECT_EQ(device().logo()->rows[63][0] << 8 | device().logo()->rows[0][1], 0xFF00);
        }
    }

    void Sales() {
        for (int customer = 0; customer < 3; ++customer) {
            ASSERT_EQ(ReceiptBegin(), 0);
            if (customer == 1) OptimizeTransmission();
            EXPECT_EQ(Sell(kPolish, 1, 1500, 3, 250), 0);
            pFillPayment(1, Cp1250("Gotówka").c_str(), 2000, 105);
            pFillPayment(3, "Karta", 100, 0);
            xFillLines(1, Cp1250("Dziękujemy, zażółć!").c_str());
            Expect({DiscountOrSurcharge(1, 75), Sell("Mydło w kostce", 2, 3, 0, 333),
                    PercentDiscountOrSurcharge(1, 10), PackageItem(0, 1, 6, 50), PrintSubtotal(),
                    pCurrencyPayment1("EUR", "4.2000", 1, 420, 0),
                    pCurrencyPayment2(100, 420, 45, 0, 0)},
                   213);
            const int64_t sum = Total[1] + Total[2], kinds[] = {sum * 95 / 100, sum - 5, sum + 5};
            EXPECT_EQ(ReceiptEndEx(5, customer), 0);  // less 5 %, less 0.05, and 0.05 more
            EXPECT_LE(std::abs(receipt().total - kinds[customer]), customer == 0 ? 1 : 0);
            EXPECT_EQ(receipt().currency_payments.empty(), CP2.change == 0);
            EXPECT_EQ(receipt().sales[0].name, kPolish);
            EXPECT_EQ(receipt().additional_lines.at(0), "Dziękujemy, zażółć!");
            for (const auto& payment : receipt().payments)
                EXPECT_TRUE(payment.name == "Gotówka" || payment.name == "Karta");
            AddUp();
        }
        EXPECT_EQ(SetVAT(0, 2300, 800, 500, 0, 25500, 25500, 10000), 218);
        ASSERT_EQ(ReceiptBegin(), 0);
        const bool short_names = GetParam() == 7 || GetParam() == 9;  // no more than 28 characters
        EXPECT_EQ(Sell(short_names ? kPolish : kLong, 2, 1, 0, 99), 0);
        EXPECT_TRUE(short_names || kLong.starts_with(receipt().sales[0].name));
        EXPECT_EQ(ReceiptCancel(), 0);
        Expect({pInvoiceBegin("FV 1", "Nabywca", "", "Miasto", "", "", "", "1234563218")}, 213);
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
        int32_t rate = 2, kind = 0;
        uint8_t status = 0;
        Expect({NonFiscalPrintoutBegin(1), pNonFiscalPrintoutLine(1, "Stan", 1),
                pAddNonFiscalPrintoutLine("kasy"), NonFiscalPrintoutEnd(),
                pControlPrintout(1, nullptr, 0), pControlPrintout(0, "Chleb razowy", 1),
                pControlPrintout(2, nullptr, 0), RSSequence(0x9B, 1, 0, &status, nullptr),
                PrintResume()});
        Expect({pCheckArticle(Cp1250("Mydło w kostce").c_str(), &rate, &kind)}, 224);
        EXPECT_EQ(rate, 2);
    }

    void Evening() {
        int64_t t[7] = {sold_[0]};
        int32_t receipts = 0, other = 0;
        const auto sum = std::accumulate(sold_.begin(), sold_.end(), int64_t{0});
        if (GetParam() == 4 || (GetParam() >= 7 && GetParam() != 9)) {
            EXPECT_EQ(std::stoll(xReadTotal()), sum);
            EXPECT_EQ(std::stoll(xReadSelTotal("A")), sold_[0]);
            char text[256];
            EXPECT_EQ(pReadSelTotal("A", text), 0);
        }
        Expect({pReadDailyTotalizers(1, t, t + 1, t + 2, t + 3, t + 4, t + 5, t + 6),
                pReadDailyCounters(&receipts, &other)},
               224);
        EXPECT_EQ(t[0], sold_[0]);
        Expect({LockedArticlesReport(), PrinterStatusReport(), DailyReport(0),
                PeriodReport(1, 13, 12, 10, 13, 12, 10)});
        const int32_t numbered = NumberReport(1, 1, 1);
        Expect({numbered}, 224);
        EXPECT_EQ(MonthlyReport(1, 13, 12), numbered == 0 ? 222 : 224) << "the month is not over";
        EXPECT_EQ(xDailyReportNumber(), 1);
        ASSERT_EQ(device().daily_reports().size(), 1u);
        EXPECT_EQ(device().daily_reports()[0].totals, sold_);
        EXPECT_EQ(DailyReport(0), 211) << "nothing sold since";
        EXPECT_EQ(xReceiptNumber(), 0);
        EXPECT_EQ(ClosePort(), 0);
        EXPECT_EQ(xReceiptNumber() + LastError(), 20) << "the port is closed";
        EXPECT_EQ(OpenPort(1, 9600, 5, 5) + CommunicationInitInternal(1, 1), 0);
    }

    const std::string kPolish = "Gęś, jaźń i żółć: ŚĆĄ 28 zn.";
    const std::string kLong = "ĄĆĘŁŃÓŚŹŻ ąćęłńóśźż i trochę dalszych słów";
    sim::RateAmounts sold_{};
    const LogoFile logo_{fmt::format("{}korax-day-{}.bmp", testing::TempDir(), getpid())};
};

TEST_P(Day, IsLivedThroughAndItsReportSaysWhatWasSold) {
    const bool pages = GetParam() >= 8 && GetParam() <= 12;  // the others know code page 852
    Open({.type = GetParam(), .code_page = static_cast<sim::CodePage>(pages * GetParam() % 3)});
    EXPECT_EQ(xIsCodePage1250(), pages * GetParam() % 3);
    Introduction();
    Morning();
    Sales();
    Printouts();
    Evening();
}

INSTANTIATE_TEST_SUITE_P(DeviceTypes, Day, testing::Range(sim::kFirstType, sim::kLastType + 1));

}  // namespace
