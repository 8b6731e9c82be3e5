// Numbers as bytes and as decimal text; Polish letters on their way to the device, names, and the
// texts of error numbers.
#include <algorithm>
#include <cstring>

#include "numbers/io_util.h"
#include "numbers/konwers.h"
#include "numbers/napzbpro.h"
#include "support/driver_test.h"

namespace {

TEST(Numbers, PackingLeavesTheLeadingByteAndCountsBytesFromOne) {
    uint8_t field[6] = {0xAA, 0, 0, 0, 0, 0xBB};
    bajty(field, 0x12345678);
    EXPECT_EQ(Hex(Bytes(field, field + 6)), "AA 78 56 34 12 BB");
    for (uint8_t n = 1; n <= 4; ++n) EXPECT_EQ(BajtZLiczby(n, 0x12345678), field[n]);
    EXPECT_EQ(BajtZLiczby(0, 0x12345678) + BajtZLiczby(5, 0x12345678), 0);
}

TEST(Numbers, DecimalReaderMultipliesBySixteen) {
    for (const auto& [text, lowest, fault] :
         {std::tuple("12 34", 0x34, 0), {"12a4", 0x12, 1}, {" ", 0, 0}}) {
        EXPECT_EQ(atob(text)[0], lowest) << "each step gives p * 16 + digit, kept as it is";
        EXPECT_EQ(f_konwersja, fault) << text;
    }
    atob("12345678123456781");
    EXPECT_EQ(f_konwersja, 2) << "too many digits";
}

TEST(Numbers, DecimalText) {
    const uint64_t largest = 9999999999999999999u, too_large = ~uint64_t{0};
    EXPECT_STREQ(btoa(reinterpret_cast<const uint8_t*>(&largest)), "9999999999999999999");
    btoa(reinterpret_cast<const uint8_t*>(&too_large));  // outside the range, not the buffer
    for (const auto& [text, first, last, decimals, unsigned_text, signed_text] :
         {std::tuple("00000080", 0, 3, 2, "21474836.48", "-21474836.48"),
          {"FFFF", 0, 1, 0, "65535", "-1"},
          {"05", 0, 0, 2, "0.05", "0.05"},
          {"FB", 0, 0, 2, "2.51", "-0.05"},
          {"AA3930AA", 1, 2, 2, "123.45", "123.45"}}) {
        const Bytes bytes = FromText(text);
        const auto from = static_cast<uint8_t>(first), to = static_cast<uint8_t>(last),
                   point = static_cast<uint8_t>(decimals);
        EXPECT_STREQ(NapisZBajtowOpisujacych(bytes.data(), from, to, point), unsigned_text);
        EXPECT_STREQ(NapisZBajtowOpisujacychWKodzieU2(bytes.data(), from, to, point), signed_text);
    }
    char text[12];
    EXPECT_STREQ(NumToStr(static_cast<uint32_t>(-5), text, 0, 'u'), "4294967291");
    // Arguments beyond every number stay within the buffers.
    const Bytes all(256, 0xFF);
    EXPECT_LT(std::strlen(NapisZBajtowOpisujacych(all.data(), 0, 255, 255)), 256u);
    EXPECT_LT(std::strlen(NapisZBajtowOpisujacychWKodzieU2(all.data(), 9, 2, 255)), 256u);
}

using PolishText = DriverTest;

TEST_F(PolishText, OnlyTheEighteenLettersAreConverted) {
    // Upper case first, lower case in the same order.
    const Bytes letters = FromText("A5C6CAA3D1D38C8FAF,B9E6EAB3F1F39C9FBF");
    const Bytes latin2 = FromText("A48FA89DE3E0978DBD,A586A988E4A298ABBE");
    const Bytes mazovia = FromText("8F95909CA5A398A0A1,868D9192A4A29EA6A7");
    for (int c = 0; c < 256; ++c) {
        const auto byte = static_cast<uint8_t>(c);
        const std::size_t letter =
            static_cast<std::size_t>(std::ranges::find(letters, byte) - letters.begin());
        const int raised = c >= 'a' && c <= 'z' ? c - 32 : c;
        for (int page : {0, 1, 2}) {
            CodePage1250 = page;
            int plain = c, upper = raised;
            if (letter < 18 && page == 0) plain = latin2[letter], upper = latin2[letter % 9];
            if (letter < 18 && page == 2) plain = mazovia[letter], upper = mazovia[letter % 9];
            EXPECT_EQ(NaLatin2(byte), plain) << c << " page " << page;
            EXPECT_EQ(LastError(), plain) << "left in the last error";
            EXPECT_EQ(NaLatin2AndUpper(byte), upper) << c << " page " << page;
        }
        const bool in_852 = std::ranges::count(latin2, byte) != 0;
        EXPECT_EQ(InZnakiPolskie(byte), in_852) << c;
        EXPECT_EQ(LastError(), in_852);
    }
    CodePage1250 = 3;
    ErrorLastError = 42;
    EXPECT_EQ(NaLatin2('A') + NaLatin2AndUpper('B'), 6) << "an unknown page gives its own number";
    EXPECT_EQ(LastError(), 42);
}

TEST_F(PolishText, SignificantCharactersOfAName) {
    char name[300];
    for (const auto& [text, count] : {std::pair("", 0),
                                      {" -+*()!", 0},
                                      {"\xA5\x88", 2},  // 852 counts
                                      {"\xB9\xB3", 0},  // 1250 does not
                                      {"aaaaaaaaaabbbbbbbbbbccccccccdddddddddddddddddddddd", 28},
                                      {"                            abc", 0}}) {
        EXPECT_EQ(pCharsInArticleName(text), count) << text;
        EXPECT_EQ(LastError(), 0);
        EXPECT_EQ(NormNazwa(name, text), count == 0 ? 202 : 0) << text;
        EXPECT_EQ(name, text + std::string(40 - std::min<std::size_t>(40, std::strlen(text)), ' '));
        EXPECT_EQ(NormNazwa1(name, text), 0);
        EXPECT_EQ(name, (text + std::string(28, ' ')).substr(0, 28));
    }
    EXPECT_TRUE(pCharsInArticleName(nullptr) == 225 && LastError() == 225);
}

TEST_F(PolishText, ErrorTexts) {
    for (const auto& [number, expected] : {
             std::pair(0, ""),
             {209, "Parametr <Wartosc> w ReceiptItem r\xF3\xBFny od <Ilosc>*<Cena>"},
             {225, "Bufor wej\x9C\x63iowy ma zerow\xB9 dlugo\x9C\xE6"},
             {999, "W bibliotece wystapi\xB3 wewn\xEAtrzny wyj\xB9tek"},
             {INT32_MIN, "Nieznany b\xB3\xB9\x64 (prawdopodobnie systemowy)"},
         })
        EXPECT_STREQ(xErrMessage(number), expected) << number;
    const std::string unknown = xErrMessage(INT32_MIN);
    std::size_t longest = 0;
    for (int32_t number = -2; number < 1100; ++number) {
        char text[64];
        EXPECT_EQ(pErrMessage(number, text), 0);
        longest = std::max(longest, std::strlen(text));
        const bool named = number == 0 || number == 2 || number == 5 || number == 999 ||
                           (number >= 99 && number <= 114) ||
                           (number >= 20 && number <= 24 && number != 22) ||
                           (number >= 200 && number <= 238);
        EXPECT_EQ(text != unknown, named) << number;
    }
    EXPECT_EQ(longest, 63u);
    EXPECT_TRUE(pErrMessage(1, nullptr) == 225 && LastError() == 225);
}

}  // namespace
