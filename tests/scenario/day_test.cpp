// A whole day on every device type: what a type has works, what it lacks is refused, and in the
// evening the driver, the device and the report agree on what was sold.
#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <numeric>

#include "scenario/shop.h"
#include "support/calls.h"
#include "support/logo_file.h"

namespace {

class Day : public Shop, public testing::WithParamInterface<int> {
  protected:
    // Calls that succeed, or all give this on a type that lacks the function.
    static bool Served(const std::vector<std::string>& calls, int32_t refusal = 0) {
        bool all = true;
        for (const std::string& call : calls) {
            const std::string result = CallByText(call).values.at(0).written;
            EXPECT_TRUE(result == "0" || result == std::to_string(refusal))
                << call << ": " << result;
            all = all && result == "0";
        }
        return all;
    }

    void Morning() {
        EXPECT_EQ(xDeviceType(), GetParam());
        const bool seconds = GetParam() == KORAX_TYPE_QUORRA_2 || GetParam() >= KORAX_TYPE_QUORRA_F;
        EXPECT_STREQ(xReadClock(), seconds ? "13.12.10;09:30:00" : "13.12.10;09:30");
        EXPECT_EQ(ChangeTime(9, 45), 0);
        EXPECT_EQ(ChangeTime(9, 50), KORAX_E_CLOCK_ONCE_A_DAY);
        EXPECT_EQ(SetVAT(0, 2200, 700, 300, 0, KORAX_RATE_NOT_USED, KORAX_RATE_NOT_USED,
                         KORAX_RATE_EXEMPT),
                  0);
        int32_t rates[8];
        EXPECT_EQ(xReadVAT(rates)[KORAX_RATE_A], 2200);
        EXPECT_EQ(device().vat_rates()[KORAX_RATE_B - 1], 700);
        Served({"PrintControl 1", "ReadStatus & & & &", "WriteConfigBytes 3 7 8 9",
                "pWriteECRCashierCode 7 'Ewa'", "WriteUserQuorra 1 1 'Kasa'", "WriteLineFeed 2",
                "OpenDrawer 1"});
        std::array<int32_t, 3> c;
        EXPECT_EQ(ReadConfigBytes(3, &c[0], &c[1], &c[2]), 0);
        EXPECT_EQ(c, (std::array<int32_t, 3>{7, 8, 9}));
        EXPECT_STREQ(xReadUniqueNumber(), "KRX13000042");
        Served({"ReceiptConditions"}, KORAX_E_NOT_IN_THIS_DEVICE);
        Served(
            {"pSendPayment 1 'Bon' 100 0", "pAdditionalCurrencyPayment 1 0 'EUR' 100 42000 4 420"},
            KORAX_E_COMMAND_NOT_AVAILABLE);
    }

    void Decoration() {
        xReadClock();  // leaves a byte that the two-line display is recognised by
        if (Served({"pDisplayGX450 1 'Otwarte'"}, KORAX_E_COMMAND_NOT_AVAILABLE)) {
            const char* const by_type[] = {"", "O OaO", "1: Otwarte", "Otwarte |",
                                           "", "O OaO", "1: Otwarte"};
            EXPECT_EQ(device().display_text(), by_type[GetParam()]);
        }
        if (Served({"pWriteFooterLines 'Do jutra' '' ''"}, KORAX_E_COMMAND_NOT_AVAILABLE)) {
            char lines[3][41];
            EXPECT_EQ(pReadFooterLines(lines[0], lines[1], lines[2]), 0);
            EXPECT_EQ(lines[0], "Do jutra" + std::string(32, ' '));
        }
        const int32_t logo = pWriteLogo(logo_.name());
        EXPECT_EQ(logo, GetParam() >= KORAX_TYPE_TOLA ? 0 : KORAX_E_NOT_IN_THIS_DEVICE);
        if (logo == 0) {
            EXPECT_EQ(device().logo()->rows[63][0], 0xFF);
            EXPECT_EQ(device().logo()->rows[0][1], 0);
        }
    }

    void Sales() {
        // Less 5 %, less 0.05, and 0.05 more.
        for (const int32_t kind : {0, 1, 2}) {
            ASSERT_EQ(ReceiptBegin(), 0);
            if (kind == 1) OptimizeTransmission();
            EXPECT_EQ(Sell(kPolish, KORAX_RATE_A, 1500, 3, 250), 0);
            pFillPayment(1, Cp1250("Gotówka").c_str(), 2000, 105);
            pFillPayment(3, "Karta", 100, 0);
            xFillLines(1, Cp1250("Dziękujemy, zażółć!").c_str());
            const int32_t refusal = KORAX_E_COMMAND_NOT_AVAILABLE;
            Served({"DiscountOrSurcharge 1 75"}, refusal);
            EXPECT_EQ(Sell("Mydło w kostce", KORAX_RATE_B, 3, 0, 333), 0);
            Served({"PercentDiscountOrSurcharge 1 10", "PackageItem 0 1 6 50", "PrintSubtotal",
                    "pCurrencyPayment1 'EUR' '4.2000' 1 420 0", "pCurrencyPayment2 100 420 45 0 0"},
                   refusal);
            const int64_t sum = Total[1] + Total[2], to_pay = kind == 0   ? sum * 95 / 100
                                                              : kind == 1 ? sum - 5
                                                                          : sum + 5;
            EXPECT_EQ(ReceiptEndEx(5, kind), 0);
            EXPECT_LE(std::abs(receipt().total - to_pay), kind == 0 ? 1 : 0);
            EXPECT_EQ(receipt().currency_payments.empty(), CP2.change == 0);
            EXPECT_EQ(receipt().sales[0].name, kPolish);
            EXPECT_EQ(receipt().additional_lines.at(0), "Dziękujemy, zażółć!");
            for (const auto& payment : receipt().payments)
                EXPECT_TRUE(payment.name == "Gotówka" || payment.name == "Karta") << payment.name;
            AddUp();
        }
        EXPECT_EQ(SetVAT(0, 2300, 800, 500, 0, 25500, 25500, 10000), KORAX_E_RECEIPTS_PRINTED);
    }

    void LongNameAndInvoice() {
        ASSERT_EQ(ReceiptBegin(), 0);
        // Two types refuse names of more than 28 characters.
        const bool short_names =
            GetParam() == KORAX_TYPE_QUORRA_F || GetParam() == KORAX_TYPE_TOLA_F;
        const std::string name = short_names ? kPolish : kLong;
        EXPECT_EQ(Sell(name, KORAX_RATE_B, 1, 0, 99), 0);
        EXPECT_EQ(name.substr(0, receipt().sales[0].name.size()), receipt().sales[0].name);
        EXPECT_EQ(ReceiptCancel(), 0);
        if (!Served({"pInvoiceBegin 'FV 1' 'Nabywca' '' 'Miasto' '' '' '' '1234563218'"},
                    KORAX_E_COMMAND_NOT_AVAILABLE))
            return;
        EXPECT_EQ(SellBread(), 0);
        EXPECT_EQ(ReceiptEnd(0), 0);
        AddUp();
    }

    void AddUp() {
        EXPECT_FALSE(receipt().cancelled);
        EXPECT_FALSE(receipt().open());
        for (size_t rate = 0; rate < sold_.size(); ++rate) sold_[rate] += receipt().totals[rate];
    }

    void Printouts() {
        Served({"NonFiscalPrintoutBegin 1", "pNonFiscalPrintoutLine 1 'Stan' 1",
                "pAddNonFiscalPrintoutLine 'kasy'", "NonFiscalPrintoutEnd",
                "pControlPrintout 1 null 0", "pControlPrintout 0 'Chleb razowy' 1",
                "pControlPrintout 2 null 0", "RSSequence 0x9B 1 0 & null", "PrintResume"});
        int32_t rate = -1, kind = -1;
        const int32_t known = pCheckArticle(Cp1250("Mydło w kostce").c_str(), &rate, &kind);
        if (known == 0) {
            EXPECT_EQ(rate, KORAX_RATE_B);
        } else {
            EXPECT_EQ(known, KORAX_E_NOT_IN_THIS_DEVICE);
        }
    }

    void Evening() {
        const auto sum = std::accumulate(sold_.begin(), sold_.end(), int64_t{0});
        if (Served({"pReadTotal &"}, KORAX_E_NOT_IN_THIS_DEVICE)) {
            EXPECT_EQ(std::stoll(xReadTotal()), sum);
            EXPECT_EQ(std::stoll(xReadSelTotal("A")), sold_[0]);
        }
        int64_t t[7];
        if (Served({"pReadDailyCounters & &"}, KORAX_E_NOT_IN_THIS_DEVICE)) {
            EXPECT_EQ(pReadDailyTotalizers(1, &t[0], &t[1], &t[2], &t[3], &t[4], &t[5], &t[6]), 0);
            EXPECT_EQ(t[0], sold_[0]);
        }
        Served({"LockedArticlesReport", "PrinterStatusReport", "DailyReport 0",
                "PeriodReport 1 13 12 10 13 12 10"});
        const bool numbered = Served({"NumberReport 1 1 1"}, KORAX_E_NOT_IN_THIS_DEVICE);
        EXPECT_EQ(MonthlyReport(1, 13, 12),
                  numbered ? KORAX_E_MONTH_NOT_OVER : KORAX_E_NOT_IN_THIS_DEVICE);
        EXPECT_EQ(xDailyReportNumber(), 1);
        ASSERT_EQ(device().daily_reports().size(), 1u);
        EXPECT_EQ(device().daily_reports()[0].totals, sold_);
        EXPECT_EQ(DailyReport(0), KORAX_E_NOTHING_SOLD);
        EXPECT_EQ(xReceiptNumber(), 0);
    }

    const std::string kPolish = "Gęś, jaźń i żółć: ŚĆĄ 28 zn.";
    const std::string kLong = "ĄĆĘŁŃÓŚŹŻ ąćęłńóśźż i trochę dalszych słów";
    sim::RateAmounts sold_{};
    const LogoFile logo_{fmt::format("{}korax-day-{}.bmp", testing::TempDir(), getpid())};
};

TEST_P(Day, IsLivedThroughAndItsReportSaysWhatWasSold) {
    // Types 8 to 12 can be set to other code pages than 852.
    const bool pages = GetParam() >= KORAX_TYPE_TOLA && GetParam() <= KORAX_TYPE_TOLA_F_E;
    const int page = pages ? GetParam() % 3 : 0;
    Open({.type = GetParam(), .code_page = static_cast<sim::CodePage>(page)});
    EXPECT_EQ(xIsCodePage1250(), page);
    Morning();
    Decoration();
    Sales();
    LongNameAndInvoice();
    Printouts();
    Evening();
}

INSTANTIATE_TEST_SUITE_P(DeviceTypes, Day, testing::Range(sim::kFirstType, sim::kLastType + 1));

}  // namespace
