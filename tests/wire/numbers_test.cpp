// Multi-byte numbers, decimal text and packing.
#include <gtest/gtest.h>

#include <cstring>

#include "numbers/io_util.h"
#include "numbers/konwers.h"
#include "numbers/napzbpro.h"
#include "support/script.h"

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
    // Arguments beyond every number stay within the buffers.
    const Bytes all(256, 0xFF);
    EXPECT_LT(std::strlen(NapisZBajtowOpisujacych(all.data(), 0, 255, 255)), 256u);
    EXPECT_LT(std::strlen(NapisZBajtowOpisujacychWKodzieU2(all.data(), 9, 2, 255)), 256u);
}

TEST(Numbers, IntegerText) {
    for (const auto& [value, digits, kind, expected] : {std::tuple(0, 0u, 'u', "0"),
                                                        {-5, 3u, 'i', "-005"},
                                                        {-5, 0u, 'u', "4294967291"},
                                                        {INT32_MIN, 0u, 'i', "-2147483648"},
                                                        {42, 99u, 'u', "0000000042"}}) {
        char text[12];
        NumToStr(static_cast<uint32_t>(value), text, digits, kind);
        EXPECT_STREQ(text, expected);
    }
}

}  // namespace
