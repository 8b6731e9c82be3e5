// The rules of a fiscal device beyond those of a receipt: days, faults, rates, set-up, options.
#include <algorithm>
#include <stdexcept>

#include "sim/host.h"
#include "sim/option_text.h"

namespace sim_test {
namespace {

using Faults = sim::FaultPanel;
const Bytes kDailyReport = Esc(0x25), kResume = Esc(0x2A), kStatusA = Esc(0x94);
const Bytes kNewRates = Esc(0xD5, {0x09, 0x60, 0, 0, 0, 0, 0, 0, 0x80, 0, 0x80, 0, 0x40, 0});

TEST(Rules, ADayWithSalesThatHasPassedDemandsItsReport) {
    // From 9:30 on the day of the sales, one after the other.
    const struct {
        std::chrono::seconds shift;
        bool due;
    } moves[] = {
        {14h + 29min, false}, {1min, true}, {-1min, false}, {24h * 40, true}, {-24h * 50, false}};
    Device device;
    Send(device, kReceipt);
    for (const auto& [shift, due] : moves) {
        SCOPED_TRACE(shift.count());
        device.ShiftClock(shift);
        EXPECT_EQ(Send(device, kStatusA), Bytes{due ? std::uint8_t{0x08} : std::uint8_t{0}});
        EXPECT_EQ(Send(device, kBegin), Bytes{due ? kNak : kAck});
        Send(device, kCancel);
    }
    device.ShiftClock(24h * 11);
    Talk(device, {{"due", kBegin, {kNak}},
                  {"report", kDailyReport, {kAck}},
                  {"next day", kReceipt, {kAck, kAck}}});
    Device over_midnight;
    Send(over_midnight, kReceipt + kBegin + kBread + Total(700));
    over_midnight.ShiftClock(24h);
    Talk(over_midnight, {{"begun the day before", kEnd, {kAck}}, {"due", kBegin, {kNak}}});
    Device without_sales;
    Send(without_sales, kBegin + kBread + kCancel);
    without_sales.ShiftClock(24h);
    EXPECT_EQ(Send(without_sales, kBegin), Bytes{kAck}) << "a cancelled receipt is no sale";
}

const struct {
    const char* what;
    bool Faults::*fault;
    Bytes before, sent;
} kNotDone[] = {
    {"rates, read-only", &Faults::read_only, {}, kNewRates},
    {"end, read-only", &Faults::read_only, kBegin + kBread + Total(700), kEnd},
    {"report, read-only", &Faults::read_only, kReceipt, kDailyReport},
    {"report, user data", &Faults::no_user_data, kReceipt, kDailyReport},
    {"report, producer data", &Faults::no_producer_data, kReceipt, kDailyReport},
    {"report, printer failed", &Faults::printer_failure, kReceipt, kDailyReport},
    {"report, no printer", &Faults::no_printer_controller, kReceipt, kDailyReport},
    {"report, jumper", &Faults::service_jumper, kReceipt, kDailyReport},
};

TEST(Rules, WhatAFaultForbidsIsRefusedAndDoneAfterIt) {
    for (const auto& [what, fault, before, sent] : kNotDone) {
        SCOPED_TRACE(what);
        Device device;
        Send(device, before);
        const auto rates = device.vat_rates();
        const auto receipts = device.receipt_counter();
        const bool open = device.receipt_open();
        device.faults().*fault = true;
        EXPECT_EQ(Send(device, sent), Bytes{kNak});
        EXPECT_EQ(device.vat_rates(), rates);
        EXPECT_EQ(device.receipt_counter(), receipts);
        EXPECT_EQ(device.receipt_open(), open);
        EXPECT_EQ(device.report_number(), 0);
        device.faults().*fault = false;
        EXPECT_EQ(Send(device, sent), Bytes{kAck});
    }
}

TEST(Rules, WithoutPaperTheDailyReportIsBookedAndWaits) {
    for (const bool receipt_waits : {false, true}) {
        SCOPED_TRACE(receipt_waits);
        Device device;
        Send(device, kBegin + kBread + Total(700) + (receipt_waits ? Bytes{} : kEnd));
        device.faults().no_paper = true;
        if (receipt_waits) Send(device, kEnd);
        Talk(device, {{"report", kDailyReport, {kAck}}, {"waits", kResume, {kNak}}});
        EXPECT_EQ(device.report_number(), 1);
        device.faults().no_paper = false;
        EXPECT_EQ(Paper(device).find("R A P O R T   F I S K A L N Y"), std::string::npos);
        EXPECT_EQ(Send(device, kResume), Bytes{kAck});
        EXPECT_NE(Paper(device).find("R A P O R T   F I S K A L N Y"), std::string::npos);
    }
}

constexpr int kNone = sim::kRateUnused, kExempt = sim::kRateExempt;

const struct {
    int type;
    Bytes sent;
    sim::VatRates in_force;  // A 23 %, B 8 %, C 5 %, D 0 % and G exempt where they are refused
} kRateTables[] = {
    {10,
     Esc(0xD5, {0x27, 0x0F, 0, 0, 0, 0, 0, 0, 0x80, 0, 0x40, 0, 0x80, 0}),
     {9999, 0, 0, 0, kNone, kExempt, kNone}},
    {10,
     Esc(0xD5, {0x27, 0x11, 0, 0, 0, 0, 0, 0, 0x80, 0, 0x80, 0, 0x40, 0}),
     {2300, 800, 500, 0, kNone, kNone, kExempt}},
    {10,
     Esc(0xD5, {0, 0, 0x63, 0x9C, 0, 0, 0, 0, 0x80, 0, 0x80, 0, 0x40, 0}),
     {2300, 800, 500, 0, kNone, kNone, kExempt}},
    {2,
     Esc(0xD4, {0, 0, 0xFF, 0, 0, 0, 0, 0, 0, 0, 0x27, 0x10}),
     {0, kNone, 0, 0, 0, kExempt, kExempt}},
    {2,
     Esc(0xD4, {0xFE, 0xFF, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}),
     {2300, 800, 500, 0, kNone, kNone, kExempt}},
    {1, Esc(0x44, {99, 0, 255, 7}), {9900, 0, kNone, 700, kNone, kNone, kExempt}},
    {1, Esc(0x44, {22, 7, 3, 101}), {2300, 800, 500, 0, kNone, kNone, kExempt}},
};

TEST(Rules, RatesAboveAHundredPercentAreRefused) {
    for (const auto& [type, sent, in_force] : kRateTables) {
        Device device({.type = type});
        EXPECT_EQ(Send(device, sent), Bytes{kAck}) << "only a read-back tells";
        EXPECT_EQ(device.vat_rates(), in_force) << testing::PrintToString(sent);
    }
}

TEST(Rules, TheSameRatesAgainChangeNothing) {
    for (const int type : {1, 2, 10}) {
        SCOPED_TRACE(type);
        Device device({.type = type, .vat_rates = sim::RatesFromText(type, "23,8,5,0,-,-,-")});
        Send(device, kReceipt + kBegin + Sold({.rate = 2}) + Total(700) + kEnd + kDailyReport);
        const std::string paper = Paper(device);
        const int read = type == 1 ? 0x70 : type == 2 ? 0xD0 : 0xD1;
        const int write = type == 1 ? 0x44 : type == 2 ? 0xD4 : 0xD5;
        Bytes rates = Send(device, Esc(read));
        rates.erase(rates.begin());
        EXPECT_EQ(Send(device, Esc(write, rates)), Bytes{kAck});
        EXPECT_EQ(Paper(device), paper);
        EXPECT_EQ(device.vat_rates().back(), sim::kRateUnused);
        Send(device, kBegin + kBread);
        EXPECT_EQ(device.cancellation_reason(), 67) << "the article is locked as before";
    }
}

TEST(Rules, ErasingTheWorkingMemoryLeavesTheFiscalMemory) {
    Device device;
    const Bytes codes = Esc(0xB0, Text("J 12") + Text("Ewa", 21) + Bytes{0x1B, 0xB3});
    Send(device, kNewRates + Esc(0x36, {1, 1, 5}) + kReceipt + kDailyReport + kReceipt +
                     FooterLine(1, "stopka") + Logo(1) + codes + Esc(0xDE, {7, 1, 2, 3}) + kBegin +
                     kBread);
    const Bytes number = Esc(0x71), clock = Esc(0x35);
    device.faults().cmos_erased = true;
    EXPECT_FALSE(device.receipt_open());
    EXPECT_EQ(device.receipt_counter(), 0);
    EXPECT_EQ(device.day_totals(), sim::RateAmounts{});
    EXPECT_TRUE(device.articles().empty());
    EXPECT_FALSE(device.logo().has_value());
    EXPECT_EQ(device.footer(), (std::array<std::string, 3>{}));
    EXPECT_EQ(device.cashier_codes(), sim::CashierCodes{});
    Device fresh;
    Talk(device, {{"closed", kBegin, {kNak}},
                  {"configuration", Esc(0xDF, {7}), {kAck, 0, 0, 0, 0}},
                  {"clock", clock, Send(fresh, clock)},
                  {"unique number", number, Send(fresh, number)}});
    EXPECT_EQ(device.report_number(), 1);
    EXPECT_EQ(device.vat_rates()[0], 2400);
    Send(device, FooterLine(1, "po utracie"));
    EXPECT_EQ(device.footer()[1], "po utracie") << "erased once";
    device.faults().cmos_erased = false;
    EXPECT_EQ(Send(device, kReceipt), Bytes(2, kAck)) << "after the service";
}

TEST(Rules, LinesOfFooterAndLogoAreRepeatedAndMended) {
    Device device;
    Talk(device, {{"first line", FooterLine(0, "a"), {kAck, 0}},
                  {"again from the first", FooterLine(0, "a"), {kAck, 0}},
                  {"second line", FooterLine(1, "b"), {kAck, 0}},
                  {"the same data", FooterLine(1, "b"), {kAck, 202}},
                  {"refused", FooterLine(2, "\x07"), {kAck, 106}},
                  {"not mended", FooterLine(2, "\x07"), {kAck, 106}},
                  {"check sum", FooterLine(2, "c", true), {kAck, 200}},
                  {"not mended", FooterLine(2, "c", true), {kAck, 200}},
                  {"mended", FooterLine(2, "c"), {kAck, 0}},
                  {"not the one before", FooterLine(1, "b"), {kAck, 0}},
                  {"row 0", LogoRow(0, 1), {kAck, 0}},
                  {"row 0 again", LogoRow(0, 1), {kAck, 0}},
                  {"row 1 damaged", LogoRow(1, 2, true), {kAck, 200}},
                  {"row 1 mended", LogoRow(1, 2), {kAck, 0}},
                  {"row 1 again", LogoRow(1, 2), {kAck, 202}},
                  {"begun anew", LogoRow(0, 3), {kAck, 0}},
                  {"row 2 is missing its row 1", LogoRow(2, 3), {kAck, 201}}});
}

TEST(Rules, AFooterLineWrittenEmptyIsPrintedEmpty) {
    const auto end_of_receipt = [](const Bytes& footer) {
        Device device;
        Send(device, footer + kReceipt);
        const std::string paper = Paper(device);
        const std::size_t begin = paper.find("KRX13000042") + 12;
        return paper.substr(begin, paper.find("- - -") - begin);
    };
    EXPECT_EQ(end_of_receipt(FooterLine(1, "") + FooterLine(2, "koniec")), "\nkoniec\n\n");
    EXPECT_EQ(end_of_receipt(FooterLine(2, "koniec")), "koniec\n\n") << "not those never written";
}

const struct {
    int type;
    const char* text;
    sim::VatRates rates;
    const char* complaint = "";
} kRateTexts[] = {
    {10, "23,8,5,7.5,exempt,-,-", {2300, 800, 500, 750, kExempt, kNone, kNone}},
    {3, "22.55,0,-,-,1,2.05,exempt", {2255, 0, kNone, kNone, 100, 205, kExempt}},
    {1, "22,7,-,0,-,-,-", {2200, 700, kNone, 0, kNone, kNone, kNone}},
    {10, "23,8,5,0,-,-", {}, "seven"},
    {10, "23,8,5,0,-,-,exempt,-", {}, "seven"},
    {10, "100.01,8,5,0,-,-,-", {}, "above 100"},
    {10, "7.555,8,5,0,-,-,-", {}, "two decimals"},
    {10, "23,8,,0,-,-,-", {}, "rate C"},
    {10, "23,8,5 ,0,-,-,-", {}, "rate C"},
    {10, "23,8,5.,0,-,-,-", {}, "rate C"},
    {10, "-1,8,5,0,-,-,-", {}, "rate A"},
    {5, "22.5,7,-,0,-,-,-", {}, "whole percents"},
    {5, "22,7,-,0,3,-,-", {}, "type 5 does not have it"},
    {5, "22,7,-,0,-,exempt,-", {}, "type 5 does not have it"},
    {6, "22,7,-,0,-,-,0", {}, "rate G"},
    {6, "exempt,7,-,0,-,-,-", {}, "only G"},
};

TEST(Options, RatesAreReadFromText) {
    for (const auto& [type, text, rates, complaint] : kRateTexts) {
        SCOPED_TRACE(text);
        std::string said;
        try {
            EXPECT_EQ(sim::RatesFromText(type, text), rates);
            EXPECT_EQ(Device({.type = type, .vat_rates = rates}).vat_rates(), rates);
        } catch (const std::invalid_argument& error) {
            said = error.what();
        }
        EXPECT_EQ(said.empty(), *complaint == '\0') << said;
        EXPECT_NE(said.find(complaint), std::string::npos) << said;
    }
}

TEST(Options, TheClockRunsAtItsRateFromItsBeginning) {
    const auto begin = sim::TimeFromText("2026-01-31T23:59:50");
    ASSERT_TRUE(begin.has_value());
    for (const double rate : {0.0, 0.5, 1.0, 3600.0}) {
        SCOPED_TRACE(rate);
        Device device({.clock = *begin, .clock_rate = rate});
        for (int i = 0; i < 1000; ++i) device.Advance(1ms, 10ms);
        const std::chrono::duration<double> expected = 10s * rate;
        EXPECT_EQ(device.clock() - *begin, std::chrono::floor<std::chrono::seconds>(expected));
    }
    for (const char* text : {"2026-02-29T00:00:00", "2026-01-31 12:00:00", "2026-01-31T24:00:00",
                             "1999-12-31T12:00:00", "2026-01-31T12:00", "2026-01-31T12:00:00Z"})
        EXPECT_FALSE(sim::TimeFromText(text).has_value()) << text;
}

}  // namespace
}  // namespace sim_test
