// Totals per rate, the unique number, the raw dialogue of the daily totalizers and counters; status
// and configuration bytes, the test of a bit.
#include <cstring>

#include "support/driver_test.h"

namespace {

class Totals : public DriverTest {
  protected:
    void SetUp() override { StartSession(10); }
    char text[16] = "old";
    const std::string ask = Identify(10, 3), rates = "D1<06,00x14 ";
    // A is 100.00, B 0.01 (by its fifth byte), C 40.00, D to G 0.01.
    const std::string sold =
        "DA<06,1027000000,0000000001,A00F000000,0100000000,0100000000,0100000000,0100000000";
};

TEST_F(Totals, AreFoldedTo32BitsAndTheSelectorIsReadOddly) {
    for (const auto& [answer, sum, first] :
         {std::tuple(sold, "14005", "10000"),
          {"DA<06,FFx35", "1778", "254"},
          {"DA<06,FFFFFF7F80,00x30", "-2147483521", "-2147483521"}}) {
        Expect(ask + rates + answer, 0, pReadTotal, text);
        EXPECT_STREQ(text, sum);
        EXPECT_STREQ(Call(ask + rates + answer, xReadTotal), sum);
        Expect(ask + rates + answer, 0, pReadSelTotal, "A", text);
        EXPECT_STREQ(text, first);
    }
    const auto served = {4, 7, 8, 10, 11, 12, 13};
    ByType(true, served, 224, rates + sold, [&] { return pReadTotal(text); });
    EXPECT_EQ(Urzadzenie, 13) << "refreshed";
    ByType(true, served, 224, rates + sold, [&] { return pReadSelTotal("G", text); });
    std::strcpy(text, "old");
    const std::string rateless = "D1<15 D0<15 70<06,FFFFFFFF = ",
                      same = "D1<15 D0<15 70<15 = 24 | D1<06,00x14 DA<15 = 24 | " + rateless;
    ExpectAll(ask, same + "113 | D1<01 = 113", pReadTotal, text);
    ExpectAll(ask, same + "226 | D1<06,8000,8000,8000,00x8 = 226", pReadSelTotal, "A+", text);
    EXPECT_STREQ(text, "old");
    Expect(ask + "D1<01 " + sold, 0, pReadSelTotal, "A+", text);  // the rates failed silently
    // The selector's first character chooses and its second is tested.
    const std::string no_c = ask + "D1<06,0001,0001,8000,0001,0001,0001,0001 ";
    for (const std::string s : {"A", "AB", "AH", "C", "G", "H", "@", "a", "+", ""}) {
        const std::vector<char> exact(s.c_str(), s.c_str() + s.size() + 1);
        std::strcpy(text, "old");
        Expect(no_c + sold, 0, pReadSelTotal, exact.data(), text);
        EXPECT_STREQ(text, s[0] == 'A' ? "10000" : s == "C" ? "4000" : s == "G" ? "1" : "old") << s;
    }
    for (const char* s : {"AC", "A3", "A+", "C+"}) Expect(no_c, 226, pReadSelTotal, s, text);
    for (const char* s : {"A+", "x+", "++", "Z"})  // the last one leaves what was there
        EXPECT_STREQ(Call(ask + rates + sold, xReadSelTotal, s), "14005");
}

TEST_F(Totals, UniqueNumberAndDailyFigures) {
    std::memset(text, 0x55, sizeof text);
    Expect("71<06,'ABC',00,'1234567'", 0, pReadUniqueNumber, text);
    EXPECT_EQ(std::memcmp(text, "ABC\0001234567\0U", 13), 0);
    EXPECT_STREQ(Call("71<06,'12345678901'", xReadUniqueNumber), "12345678901");

    int64_t c[7] = {};
    int32_t n[2] = {};
    const auto totalizers = [&](int32_t kind) {
        return pReadDailyTotalizers(kind, &c[0], &c[1], &c[2], &c[3], &c[4], &c[5], &c[6]);
    };
    const std::string fields =
        ">1BB0'LO2',1BB3<1B720046'0000000123-000000005      42  2147483647-214748364"
        "99999999991x',00,'9999999'";
    const auto count = [&] { return pReadDailyCounters(&n[0], &n[1]); };
    ByType(true, {10, 11}, 224, fields, [=] { return totalizers(2); });
    ByType(true, {10, 11}, 224, ">1BB0'LO4',1BB3<1B720006,0102FFFEAABB", count);
    Expect(Identify(5, 1), 224, totalizers, 3);
    EXPECT_EQ(Call(ask, totalizers, 3), 215) << "after the type";
    EXPECT_EQ(LastError(), 0) << "and not stored";
    const std::string answers =
        " = 21 | <1B7200 = 21 | <1B730006 = 23 | <15720006 = 23 | <1B720000 = 23 | "
        "<1B720005,31x5 = 23 | <1B720007,31x7 = 23 | <1B720045,31x69 = 23 | <1B720006,31x5 = 21 | "
        "<1B720047,31x71 = 23 | "
        "<1B72FFFF,31x65535 = 23 | <1B72FFFF,31x300 = 21 | <1B720046,31x69 = 21";
    ExpectAll(ask + ">1BB0'LO0',1BB3", answers, totalizers, 1);
    ExpectAll(ask + ">1BB0'LO4',1BB3", answers, count);
    TimeoutNadawania = 70;      // its number as an error is 105
    os.writable_bytes = 4 + 3;  // the identification, and no more than the frame's head
    Expect(ask + ">1BB0'L'<1B", 105, totalizers, 1);  // after the first answered byte
    const int64_t read[7] = {123, -5, 42, INT32_MAX, -214748364, INT32_MAX, 1};
    EXPECT_TRUE(std::equal(c, c + 7, read)) << "untouched by failures";
    EXPECT_EQ(n[0] << 16 | n[1], 0x0102FFFE);
}

TEST_F(Totals, StatusAndConfigurationBytesInAReceiptToo) {
    ParagonRozpoczety = 1;
    int32_t s[4] = {-1, -1, -1, -1}, b[3] = {-1, -1, -1};
    Expect("9B<01 94<02 95", 21, ReadStatus, &s[0], &s[1], &s[2], &s[3]);
    EXPECT_EQ(s[0] * 16 + s[1] * 4 + s[2] + s[3], 22) << "what was read before the failure";
    for (const auto& [which, value] : {std::pair(0, 21), {1, 0}, {2, 255}, {3, 6}, {4, 0}, {-1, 0}})
        EXPECT_EQ(Call("9B<15 94<00 95<FF 96<06", xReadStatus, which), value) << "NAK is one too";
    ExpectAll("DF<", "15 = 24 | 06>FF<6C = 208 | 06>FF<000102 = 21", ReadConfigBytes, 511, &b[0],
              &b[1], &b[2]);
    EXPECT_EQ(b[0] + b[1] + b[2], -3) << "untouched";
    Expect("DF<06>FF<0070FF07", 0, ReadConfigBytes, -1, &b[0], &b[1], &b[2]);
    EXPECT_EQ(b[0] << 16 | b[1] << 8 | b[2], 0x70FF07);
    const auto write = [] { return WriteConfigBytes(255, 0, 128, 254); };
    ExpectAll("DE<06>FF0080FE<", "00 = 0 | 69 = 205", write);
    const uint8_t bits[][3] = {{128, 7, 1}, {128, 8, 0},  {1, 0, 1},
                               {4, 1, 1},   {128, 39, 1}, {255, 31, 0}};
    for (const uint8_t* bit : bits) Expect("", bit[2], [=] { return BitZBajtu(bit[0], bit[1]); });
}

}  // namespace
