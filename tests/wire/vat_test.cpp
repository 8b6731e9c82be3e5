// Reading and writing the rates of the three generations.
#include <array>

#include "koraxdr/vat.h"
#include "support/driver_test.h"

namespace {

// The count and the rates A to G.
using Rates = std::array<int32_t, 8>;
constexpr int32_t kUnused = 25500, kExempt = 10000;

class Vat : public DriverTest {
  protected:
    Rates read{};
    int32_t Read(const std::string& conversation) {
        Rates& r = read = {};
        return Call(conversation, ReadVAT, &r[0], &r[1], &r[2], &r[3], &r[4], &r[5], &r[6], &r[7]);
    }
    int32_t Set(const std::string& conversation, const Rates& r) {
        return Call(conversation, SetVAT, r[0], r[1], r[2], r[3], r[4], r[5], r[6], r[7]);
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
        EXPECT_EQ(Read(conversation), result) << conversation;
        EXPECT_EQ(read, rates) << conversation;
        EXPECT_EQ(LastError(), result);
        uint8_t any = 9;
        EXPECT_EQ(Call(conversation, Stawki, &any), defined) << conversation;
        EXPECT_EQ(any, defined == 0);
    }
    ParagonRozpoczety = 1;
    EXPECT_EQ(Read("") + Set("", {}), 400);
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
            SCOPED_TRACE(testing::Message() << conversation << ", type " << type);
            StartSession(type);
            EXPECT_EQ(Set("66<060000 " + Identify(type, 3) + conversation, rates), result);
            EXPECT_EQ(LastError(), result);
        }
    }
    EXPECT_EQ(Set("66<15", ordinary), 24);
}

}  // namespace
