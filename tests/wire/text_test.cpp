// Numbers as bytes and as decimal text; Polish letters on their way to the device; the texts of
// error numbers and cancellations.
#include <algorithm>
#include <cstring>
#include <limits>

#include "numbers/io_util.h"
#include "numbers/konwers.h"
#include "numbers/napzbpro.h"
#include "support/contents.h"
#include "support/cp1250.h"
#include "support/driver_test.h"

namespace {

TEST(Numbers, PackingLeavesTheLeadingByteAndCountsBytesFromOne) {
    uint8_t field[6] = {0xAA, 0, 0, 0, 0, 0xBB};
    bajty(field, 0x12345678);
    EXPECT_EQ(Hex(Bytes(field, field + 6)), "AA 78 56 34 12 BB");
    const uint8_t expected[] = {0, 0x78, 0x56, 0x34, 0x12, 0};
    for (uint8_t n = 0; n <= 5; ++n) EXPECT_EQ(BajtZLiczby(n, 0x12345678), expected[n]) << n;
}

TEST(Numbers, ArithmeticCarriesFromByteToByte) {
    const struct {
        const char* name;
        void (*calculate)(uint8_t*);
        const char *number, *result;
        int fault;
    } cases[] = {
        {"twice", [](uint8_t* p) { mul2(p, 4); }, "8081017F", "000303FE", 0},
        {"twice too large", [](uint8_t* p) { mul2(p, 4); }, "00000080", "00000000", 2},
        {"half", [](uint8_t* p) { div2(p, 4); }, "01030181", "80818040", 0},
        {"sum", [](uint8_t* p) { add(p, p + 4, 1, 4); }, "FF80FF0100800001", "00010003", 0},
        {"sum too large", [](uint8_t* p) { add(p, p + 4, 0, 4); }, "000000FF00000001", "00", 2},
        {"next", [](uint8_t* p) { inc(p, 4); }, "FFFF00FF", "000001FF", 0},
        {"tenth", div10, "0102030405060708", "004D001A9A80CD00", 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Bytes number = FromText(c.number), result = FromText(c.result);
        f_konwersja = 0;
        c.calculate(number.data());
        number.resize(result.size());
        EXPECT_EQ(Hex(number), Hex(result));
        EXPECT_EQ(f_konwersja, c.fault);
    }
}

TEST(Numbers, AreComparedByTheirDifference) {
    const struct {
        const char *left, *right, *difference;
        int smaller;
    } cases[] = {
        {"0001", "0100", "FF00", 0}, {"0100", "0001", "01FF", 1}, {"0505", "0505", "0000", 0}};
    for (const auto& c : cases) {
        uint8_t difference[2];
        EXPECT_EQ(cmp(FromText(c.left).data(), FromText(c.right).data(), difference, 2), c.smaller);
        EXPECT_EQ(Hex({difference, difference + 2}), Hex(FromText(c.difference))) << c.left;
    }
    EXPECT_EQ(get_msb(FromText("0000").data(), 2), -1);
    EXPECT_EQ(get_msb(FromText("FF02").data(), 2), 9);
}

TEST(Numbers, DecimalReaderMultipliesBySixteen) {
    const struct {
        const char* text;
        int lowest_byte, fault;
    } cases[] = {{"12 34", 0x34, 0}, {"90", 0x90, 0}, {"12a4", 0x12, 1},
                 {" ", 0, 0},        {"8:", 0x08, 1}, {"12345678123456781", 0, 2}};
    for (const auto& [text, lowest_byte, fault] : cases) {
        const uint8_t* read = atob(text);
        EXPECT_EQ(f_konwersja, fault) << text;
        if (fault < 2) {
            EXPECT_EQ(read[0], lowest_byte) << text;
        }
    }
}

TEST(Numbers, DecimalTextOfBytesWithAndWithoutSign) {
    const struct {
        const char* bytes;
        uint8_t first, last, decimals;
        const char *without_sign, *with_sign;
    } cases[] = {{"00000080", 0, 3, 2, "21474836.48", "-21474836.48"},
                 {"FFFF", 0, 1, 0, "65535", "-1"},
                 {"05", 0, 0, 2, "0.05", "0.05"},
                 {"FB", 0, 0, 2, "2.51", "-0.05"},
                 {"00", 0, 0, 2, "0.00", "0.00"},
                 {"00FF", 0, 1, 0, "65280", "-256"},
                 {"FFFFFFFFFFFFFF7F", 0, 7, 0, "9223372036854775807", "9223372036854775807"},
                 {"0000000000000080", 0, 7, 0, "9223372036854775808", "-9223372036854775808"},
                 {"AA3930AA", 1, 2, 2, "123.45", "123.45"}};
    for (const auto& c : cases) {
        const Bytes bytes = FromText(c.bytes);
        EXPECT_STREQ(NapisZBajtowOpisujacych(bytes.data(), c.first, c.last, c.decimals),
                     c.without_sign);
        EXPECT_STREQ(NapisZBajtowOpisujacychWKodzieU2(bytes.data(), c.first, c.last, c.decimals),
                     c.with_sign);
    }
}

TEST(Numbers, TheLargestNumbersStayWithinTheirBuffers) {
    const uint64_t largest = 9999999999999999999u, too_large = ~uint64_t{0};
    EXPECT_STREQ(btoa(reinterpret_cast<const uint8_t*>(&largest)), "9999999999999999999");
    btoa(reinterpret_cast<const uint8_t*>(&too_large));
    EXPECT_STREQ(btoa(FromText("0000000000000000").data()), "0");
    const Bytes all(256, 0xFF);
    EXPECT_LT(std::strlen(NapisZBajtowOpisujacych(all.data(), 0, 255, 255)), 256u);
    EXPECT_LT(std::strlen(NapisZBajtowOpisujacychWKodzieU2(all.data(), 9, 2, 255)), 256u);
    char text[24];
    KonwersjaLiczbyOsmiobajtowejNaString(FromText("0100000000000001").data(), text);
    EXPECT_STREQ(text, "72057594037927937");
    KonwersjaLiczbySzesciobajtowejNaString(FromText("010000000001FFFF").data(), text);
    EXPECT_STREQ(text, "1099511627777");
    EXPECT_STREQ(IntToStr(0, text, 1), "0");
    EXPECT_STREQ(IntToStr(5, text, 3), "005");
    EXPECT_STREQ(NumToStr(static_cast<uint32_t>(-5), text, 0, 'u'), "4294967291");
    EXPECT_STREQ(NumToStr(4000000000u, text, 0, 'u'), "4000000000");
}

using PolishText = DriverTest;

// For each byte in code page 1250 what stands for it in 852, 1250 and Mazovia, and its capital.
struct Letters {
    int in_page[3][256], capital[256];

    Letters() {
        for (int c = 0; c < 256; ++c) {
            for (auto& page : in_page) page[c] = c;
            capital[c] = c >= 'a' && c <= 'z' ? c - 32 : c;
        }
        std::istringstream lines(Contents(TESTS_DIR "/wire/letters.txt"));
        std::vector<int> order;
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with('#')) continue;
            const Bytes bytes = FromText(line.substr(line.find(' ')));
            in_page[0][bytes[0]] = bytes[1];
            in_page[2][bytes[0]] = bytes[2];
            order.push_back(bytes[0]);
        }
        for (std::size_t i = 9; i < order.size(); ++i)
            capital[static_cast<std::size_t>(order[i])] = order[i - 9];
    }
};

TEST_F(PolishText, OnlyTheEighteenLettersAreConverted) {
    const Letters letters;
    for (int page : {0, 1, 2}) {
        for (int c = 0; c < 256; ++c) {
            SCOPED_TRACE(testing::Message() << "page " << page << ", character " << c);
            CodePage1250 = page;
            const int converted = letters.in_page[page][c];
            EXPECT_EQ(NaLatin2(static_cast<uint8_t>(c)), converted);
            EXPECT_EQ(LastError(), converted) << "left in the last error";
            // In code page 1250 only the letters without diacritics are raised.
            const int capital = page == 1 && c > 127 ? c : letters.capital[c];
            EXPECT_EQ(NaLatin2AndUpper(static_cast<uint8_t>(c)), letters.in_page[page][capital]);
            EXPECT_EQ(LastError(), letters.in_page[page][capital]);
        }
    }
}

TEST_F(PolishText, AnUnknownCodePageGivesItsOwnNumber) {
    CodePage1250 = 3;
    ErrorLastError = 42;
    EXPECT_EQ(NaLatin2('A'), 3);
    EXPECT_EQ(NaLatin2AndUpper('B'), 3);
    EXPECT_EQ(LastError(), 42);
}

TEST_F(PolishText, LettersOfPage852AreRecognised) {
    const Letters letters;
    for (int c = 0; c < 256; ++c) {
        const bool letter = std::ranges::any_of(letters.in_page[0], [&](const int& byte) {
            return byte == c && &byte - letters.in_page[0] != c;
        });
        EXPECT_EQ(InZnakiPolskie(static_cast<uint8_t>(c)), letter) << c;
        EXPECT_EQ(LastError(), letter) << c;
    }
}

using Texts = DriverTest;

TEST_F(Texts, EveryErrorNumberHasItsTextOrTheGeneralOne) {
    const auto texts = NumberedLines(TESTS_DIR "/wire/errors.txt");
    std::vector<int32_t> numbers = {std::numeric_limits<int32_t>::min(),
                                    std::numeric_limits<int32_t>::max()};
    for (int32_t number = -2; number < 1100; ++number) numbers.push_back(number);
    for (const int32_t number : numbers) {
        const std::string expected = Cp1250(texts.at(texts.contains(number) ? number : -1));
        char text[64] = "old";
        ErrorLastError = 7;
        EXPECT_EQ(pErrMessage(number, text), 0);
        EXPECT_EQ(LastError(), 0);
        EXPECT_STREQ(text, expected.c_str()) << number;
        EXPECT_STREQ(xErrMessage(number), expected.c_str()) << number;
    }
}

TEST_F(Texts, EveryCancellationHasItsReason) {
    const auto texts = NumberedLines(TESTS_DIR "/wire/cancellations.txt");
    StartSession(10);
    for (int code = 0; code < 256; ++code) {
        char reason[160] = "old";
        int32_t read = -1;
        Expect("50<06" + Hex({static_cast<uint8_t>(code)}), 0, CancellationReason, &read, reason);
        EXPECT_EQ(read, code);
        EXPECT_EQ(reason, texts.contains(code) ? Cp1250(texts.at(code)) : "") << code;
    }
}

}  // namespace
