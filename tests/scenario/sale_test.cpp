// Whole receipts on every device type.
#include <fmt/format.h>

#include "scenario/shop.h"

namespace {

using Sale = Shop;

const std::string kFits = "Gęś, jaźń i żółć: ŚĆĄ 28 zn.";
const std::string kForty = "ĄĆĘŁŃÓŚŹŻ ąćęłńóśźż i jeszcze trochę zna";
const std::string kLong = kForty + "ków",
                  kLonger = kLong + " oraz dalszy ciąg nazwy w drugim i trzecim wierszu";

TEST_F(Sale, ReceiptWithEverythingOnEveryTypeAndCodePage) {
    for (int type = sim::kFirstType; type <= sim::kLastType; ++type) {
        for (auto page : {sim::CodePage::Cp852, sim::CodePage::Cp1250, sim::CodePage::Mazovia}) {
            if ((type < 8 || type == 13) && page != sim::CodePage::Cp852) continue;
            for (bool optimize : {false, true}) {
                SCOPED_TRACE(fmt::format("type {}, page {}", type, static_cast<int>(page)));
                Open({.type = type, .program_version = {}, .code_page = page, .vat_rates = {}});
                ASSERT_EQ(ReceiptBegin(), 0);
                // Optimised from the second receipt on, when the code page is known.
                if (optimize) OptimizeTransmission();
                EXPECT_EQ(SellBread(), 0);
                EXPECT_EQ(Sell(kFits, 2, 3, 0, 319), 0);
                EXPECT_EQ(Sell("Bilet ulgowy", 7, 1, 0, 1005), 0);
                EXPECT_EQ(Sell("Chleb żytni", 1, 500, 3, 250, false), 0);
                const bool long_names = type == 5 || type == 6 || type >= 10 || type == 8;
                const bool text_lines = long_names && type != 8 && type != 12;
                EXPECT_EQ(long_names ? Sell(text_lines ? kLonger : kLong, 2, 1, 0, 99) : 0, 0);
                pFillPayment(1, Cp1250("Gotówka").c_str(), 2000, 105);
                pFillPayment(3, "Karta", 100, 0);
                xFillLines(1, Cp1250("Dziękujemy, zażółć!").c_str());
                const int64_t a = Total[1], b = Total[2], g = Total[5];
                EXPECT_EQ(ReceiptEnd(10), 0);

                EXPECT_EQ(ReceiptState(), fmt::format("A={} B={} E=1005", a, b));
                EXPECT_EQ(a * 10000 + g, 250 * 10000 + 1005);
                EXPECT_EQ(b, 957 + (long_names ? 99 : 0));
                EXPECT_EQ(receipt().total, 225 + (long_names ? 950 : 861) + 904) << "less 10 %";
                EXPECT_FALSE(receipt().cancelled || receipt().open() || Optimize);
                EXPECT_EQ(receipt().sales[1].name, kFits);
                EXPECT_TRUE(receipt().sales[3].correction);
                EXPECT_EQ(receipt().sales.back().name == (text_lines ? kLonger : kForty),
                          long_names);
                const bool payments = type == 4 || type == 8 || type >= 10;
                ASSERT_EQ(receipt().payments.size(), payments ? 2u : 0u);
                EXPECT_EQ(payments ? receipt().payments[0].name : "Gotówka", "Gotówka");
                ASSERT_EQ(receipt().additional_lines.size(), 1u);
                EXPECT_EQ(receipt().additional_lines[0], "Dziękujemy, zażółć!");
                EXPECT_EQ(device().day_totals()[6], 904);
                EXPECT_EQ(xReceiptNumber(), 1);
            }
        }
    }
}

TEST_F(Sale, AmountsOnTheWholeReceiptAndCurrencyPayments) {
    for (int type = sim::kFirstType; type <= sim::kLastType; ++type) {
        SCOPED_TRACE(type);
        Open(type);
        for (const auto& [kind, total] : {std::pair(1, 325), {2, 425}, {3, 375}}) {
            ASSERT_FALSE(ReceiptBegin() || SellBread());
            const bool currency = type == 8 || (type >= 10 && type <= 12);
            EXPECT_EQ(pCurrencyPayment1("EUR", "4.2000", 1, 420, 0), currency ? 0 : 213);
            EXPECT_EQ(pCurrencyPayment2(100, 420, 45, 0, 0), currency || type == 13 ? 0 : 213);
            EXPECT_EQ(ReceiptEndEx(50, kind), 0);
            EXPECT_EQ(receipt().total, total);
            EXPECT_EQ(receipt().currency_payments.empty(), !currency && type != 13);
            EXPECT_FALSE(receipt().cancelled);
        }
        EXPECT_EQ(xReceiptNumber(), 3);
    }
}

TEST_F(Sale, RatesAreWrittenAndReadBack) {
    for (int type = sim::kFirstType; type <= sim::kLastType; ++type) {
        SCOPED_TRACE(type);
        Open(type);
        EXPECT_EQ(SetVAT(0, 2200, 700, 300, 0, 25500, 25500, 10000), 0);
        int32_t rates[8];
        EXPECT_EQ(xReadVAT(rates)[1], 2200);
        const bool six = type == 2 || type == 3 || type == 6;
        EXPECT_EQ(rates[0], type == 1 || type == 5 ? 4 : (six ? 6 : 7));
        EXPECT_EQ(device().vat_rates()[1], 700);
        ExpectReceipt();
        EXPECT_EQ(SetVAT(0, 2300, 800, 500, 0, 25500, 25500, 10000), 218);
    }
}

}  // namespace
