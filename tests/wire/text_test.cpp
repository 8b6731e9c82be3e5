// Polish letters on their way to the device, names, and the texts of error numbers.

#include <algorithm>
#include <cstring>

#include "support/driver_test.h"

namespace {

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
