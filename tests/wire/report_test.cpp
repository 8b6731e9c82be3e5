// Fiscal reports: what the device is asked before one, how the result byte is read; the clock; the
// VAT rates of the three generations.
#include <array>

#include "koraxdr/vat_rates.h"
#include "support/driver_test.h"

namespace {

using Report = DriverTest;

TEST_F(Report, DailyAsksForSalesUnlessAListedTypeIsForced) {
    for (int type = 1; type <= 13; ++type) {
        for (int32_t force : {0, 1, -1}) {
            StartSession(type % 13 + 1);
            const bool forced = force != 0 && (type == 3 || type == 4 || type >= 8);
            const std::string print = "25<06 " + kReady + " = 0", unsold = "66<060000 = 211 | ",
                              sold = "66<060100 " + print + " | 66<060001 " + print;
            ExpectAll(Identify(type, 7), forced ? print : unsold + sold, DailyReport, force);
            EXPECT_EQ(Urzadzenie, type) << "refreshed";
        }
    }
    const std::string fails = "15 = 24 | 0605 66<15 = 24 | 0605 66<060100 25<06 95<02 = 109";
    ExpectAll("FF<", fails, DailyReport, 1);
}

TEST_F(Report, TheOthers) {
    StartSession(1);
    const std::string printed = "06 " + kReady + " = 0 | 06 " + kStopped + "95<02 = 109 | 15 = 24";
    ExpectAll("22<", printed, LockedArticlesReport);
    ExpectAll("26<", printed, PrinterStatusReport);
    const std::string ones = "06>000100010001,000100010001 ";
    ExpectAll("29<", "15 = 24 | " + ones + kReady + " = 0", PeriodReport, 0, 1, 1, 1, 1, 1, 1);
    Expect("28<06>010300020301,090901020301 " + kReady, 0, PeriodReport, -1, 13, 2, 31, 99, 12, 31);
    for (int field = 0; field < 6; ++field) {
        for (int32_t bad : {0, field % 3 == 0 ? 100 : field % 3 == 1 ? 13 : 32, -1, 257}) {
            int32_t d[6] = {1, 1, 1, 99, 12, 31};
            d[field] = bad;
            Expect("", 215, PeriodReport, 1, d[0], d[1], d[2], d[3], d[4], d[5]);
        }
    }
    EXPECT_EQ(Call("D9<06,E8FF", xDailyReportNumber), 65512);
    // The numbered ones check the type, then the kind, and have their result read from the line.
    const auto served = {4, 7, 8, 9, 10, 11, 12, 13};
    const std::string who = Identify(7, 1), month = "31<06>02,0103,0102<00 ",
                      numbers = "31<06>04,2C01,2C01<00 ";
    ByType(true, served, 224, month + kReady, [] { return MonthlyReport(1, 13, 12); });
    ByType(true, served, 224, numbers + kReady, [] { return NumberReport(0, 300, 65836); });
    const std::string known = who + " = 223 | " + Identify(1, 1) + " = 224 | FF<15 = 24";
    for (int32_t kind : {2, -1, 257}) {
        ExpectAll("", known, MonthlyReport, kind, 13, 2);
        ExpectAll("", known, NumberReport, kind, 1, 2);
    }
    const std::string answers = "<00 95<02 = 109 | <00 " + kStopped +
                                "95<02 = 109 | <01 = 219 | <02 = 220 | <03 = 221 | <04 = 222 | "
                                "<05 = 223 | <06 = 0 | <15 = 0 | <FF = 0 |  = 21";
    ExpectAll(who + "31<06>05,0907,0000", answers, MonthlyReport, 0, 97, 0);
    ExpectAll(who + "31<", "15 = 24 | 06>02,0C03,00FF<06 = 0", MonthlyReport, 1, 123, -1);
}

TEST_F(Report, ClockIsReadWithSecondsByNewerTypes) {
    char text[18] = "";
    for (int type = 1; type <= 13; ++type) {
        const bool seconds = type == 4 || type >= 7;
        StartSession(type % 13 + 1);
        const std::string ask = Identify(type, 9) + (seconds ? "40<06," : "35<06,"),
                          digits = seconds ? "010300050200,010403050009" : "010300050200,01040305";
        Expect(ask + digits, 0, pReadClock, text);
        EXPECT_STREQ(text, seconds ? "13.05.20;14:35:09" : "13.05.20;14:35");
        EXPECT_STREQ(Call(ask + digits, xReadClock), text);
        Expect(ask + (seconds ? "FFx12" : "FFx10"), 0, pReadClock, text);
        EXPECT_LE(std::string(text).size(), 17u) << "digit bytes above 9";
        ExpectAll("FF<", "15 = 24 | 0605 35<06,0102 = 21 | 0605 35<15 = 24", pReadClock, text);
        EXPECT_STREQ(text, "");
    }
}

TEST_F(Report, ClockMovesWithinTheDayByAnHourAtMost) {
    StartSession(10);
    const std::string clock = "35<06,000000000000,", at_1015 = "66<060000 " + clock + "01000105 ",
                      at_0030 = "66<060000 " + clock + "00000300 ";
    Expect(at_1015 + "36<06>010600 " + clock + "01010105", 0, ChangeTime, 11, 15);
    Expect(at_1015 + "36<06>000305 " + clock + "00090400", 0, ChangeTime, 9, 40);
    const std::string refused = "36<06>010001 35<06,01x6,01000105 = 230 | ";
    ExpectAll(at_1015, refused + "36<06>010001 35<15 = 24 | 36<15 = 24", ChangeTime, 10, 16);
    Expect(at_1015, 228, ChangeTime, 10, 15);
    Expect(at_1015, 229, ChangeTime, 11, 16);
    Expect("66<060000 " + clock + "02030500", 229, ChangeTime, 0, 20);  // the day is not crossed
    Expect(at_0030 + "36<06>000301 " + clock + "02030509", 0, ChangeTime, 0, -1);
    Expect(at_0030, 229, ChangeTime, INT32_MIN, 20);
    // The counter is looked at before the arguments.
    ExpectAll("66<", "15 = 24 | 060001 = 218 | 060000 = 223", ChangeTime, 24, 0);
}

// The count and the rates A to G.
using Rates = std::array<int32_t, 8>;
constexpr int32_t kUnused = 25500, kExempt = 10000;

class Vat : public DriverTest {
  protected:
    Rates read{};
    void Read(const std::string& conversation, int32_t result) {
        Rates& r = read = {};
        Expect(conversation, result, ReadVAT, &r[0], &r[1], &r[2], &r[3], &r[4], &r[5], &r[6],
               &r[7]);
    }
    void Set(const std::string& conversation, int32_t result, const Rates& r) {
        Expect(conversation, result, SetVAT, r[0], r[1], r[2], r[3], r[4], r[5], r[6], r[7]);
    }
};

TEST_F(Vat, ReadsEveryGenerationAndOnlyTheLastReportsAFailure) {
    StartSession(10);
    // With them, whether any rate is defined: an exempt one counts.
    for (const auto& [conversation, result, rates, defined] : {
             std::tuple("D1<06,08FC,8000,4000,0000,01F4,FEFF,2710", 0,
                        Rates{7, 2300, kUnused, kExempt, 0, 500, 0xFEFF, 10000}, 0),
             {"D1<15 D0<06,08FC,8000,4000,FEFF,FF00,0007", 0,
              Rates{6, 2300, 0x8000, 0x4000, 0xFEFF, kUnused, 7, kExempt}, 0},
             {"D1<15 D0<15 70<06,160700FF", 0,
              Rates{4, 2200, 700, 0, kUnused, kUnused, kUnused, kExempt}, 0},
             {"D1<06,8000,8000,8000,8000,8000,8000,4000", 0,
              Rates{7, kUnused, kUnused, kUnused, kUnused, kUnused, kUnused, kExempt}, 0},
             {"D1<15 D0<15 70<06,FFFFFFFF", 0,
              Rates{4, kUnused, kUnused, kUnused, kUnused, kUnused, kUnused, kExempt}, 113},
             {"D1<01", 0, Rates{}, 113},
             {"D1<15 D0<15 70<15", 24, Rates{}, 24},
         }) {
        Read(conversation, result);
        EXPECT_EQ(read, rates) << conversation;
        uint8_t any = 9;
        EXPECT_EQ(Call(conversation, Stawki, &any), defined) << conversation;
        EXPECT_EQ(any, defined == 0);
    }
    ParagonRozpoczety = 1;
    Read("", 200);
    Set("", 200, {});
    EXPECT_EQ(xReadVAT(&read[0]), &read[0]);
    EXPECT_EQ(LastError(), 200);
}

TEST_F(Vat, WritesByTheDevicesGenerationAndReadsBack) {
    const Rates ordinary = {0, 2300, kUnused, kExempt, 0, 500, 30000, 7},
                four = {9, 2200, 700, 0, kUnused, 1, 2, 3}, fraction = {4, 2250, 700, 0, kUnused};
    const std::string seven = "D5<06>08FC,8000,4000,0000,01F4,7530,0007 " + kReady,
                      six = "D4<06>08FC,FF00,2710,0000,01F4,7530 " + kReady,
                      read_six = "D1<15 D0<06,08FC,FF00,2710,0000,01F4,7530",
                      by_four = "44<06>160700FF " + kReady + "D1<15 D0<15 70<06,160700FF";
    const std::vector<int> with_seven = {4, 7, 8, 9, 10, 11, 12, 13};
    for (const auto& [types, rates, conversation, result] : {
             std::tuple(with_seven, ordinary, seven + "D1<06,08FC,8000,4000,0000,01F4,7530,0007",
                        0),
             {{10}, ordinary, seven + "D1<06,08FC,8000,4000,0000,01F4,7530,0008", 217},
             {{2, 3, 6}, ordinary, six + read_six, 0},
             {{1, 5}, four, by_four, 0},
             {{1}, fraction, by_four, 217},
         }) {
        for (int type : types) {
            StartSession(type);
            Set("66<060000 " + Identify(type, 3) + conversation, result, rates);
        }
    }
    Set("66<15", 24, ordinary);
}

}  // namespace
