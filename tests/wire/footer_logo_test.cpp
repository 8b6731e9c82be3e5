// Footer lines and the logo: the lines, their check byte, the refusals, what passes as a bitmap.
#include <fmt/format.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "support/driver_test.h"

namespace {

const char* const kRefusals =
    "<6A = 231 | <6C = 223 | <C8 = 232 | <C9 = 233 | <CA = 234 | <CB = 235 | <69 = 205 | <7AC8C8 = "
    "222 |  = 21";

using Footer = DriverTest;

TEST_F(Footer, LinesAreCutPaddedConvertedCheckedAndRefused) {
    char one[42] = "", two[42] = "", three[42] = "";
    for (int type = 1; type <= 13; ++type) {
        Fresh();
        OpenPort(1, 9600, 1, 1);  // no session, and an open receipt does not matter
        Urzadzenie = type;
        ParagonRozpoczety = 1;
        CodePage1250 = 2;
        const int no = type == 8 || type >= 10 ? 0 : 213;
        const char* sent = "2E<06>00,20x40,00<00 2E<06>01,868D'Z'38,71<00 2E<06>02,61x40,00<00";
        Expect(no ? "" : sent, no, pWriteFooterLines, "", "\xB9\xE6Z", kLongText.c_str());
        const char* read = "38<06>00<00,31,'ab'40 38<06>01<00,6A,'\xA5'40 38<06>02<00,00,FFx40";
        Expect(no ? "" : read, no, pReadFooterLines, one, two, three);
    }
    EXPECT_EQ(two, "\xA5" + std::string(39, ' ')) << "not converted back";
    StartSession(10);  // the first refusal ends them, translated
    const std::string second = "2E<06>00,'a'40,41<00 2E<06>01,'b'40,42";
    ExpectAll(second, kRefusals, pWriteFooterLines, "a", "b", "c");
    ExpectAll("38<06>00<00,20,'x'40 38<06>01", kRefusals, pReadFooterLines, one, two, three);
    Expect("38<06>00<00,C8", 21, pReadFooterLines, one, two, three);
    Expect(second + "<C8", 232, pWriteFooterLines, "a", "b", "c");  // not translated once more:
    Expect("2E", 21, pWriteFooterLines, "", "", "");
    EXPECT_EQ(one + std::string(two, 1), "x" + std::string(39, ' ') + "\xA5");
}

class Logo : public DriverTest {
  protected:
    void TearDown() override { std::filesystem::remove_all(file); }
    // A bitmap whose rows are their number from the bottom, 22 bytes FF, 7E.
    static std::string Bitmap(std::size_t offset = 62) {
        Bytes bytes = FromText("'BM',#0,#0,#0,#40,#192,#64,01000100,00x24,00FFFFFF,FFFFFF00");
        bytes.resize(offset, 0x77);
        bytes[10] = static_cast<uint8_t>(offset);
        for (int row = 0; row < 64; ++row)
            bytes = bytes + FromText(fmt::format("{:02X},FFx22,7E", row));
        return {bytes.begin(), bytes.end()};
    }
    void Write(const std::string& bitmap, const std::string& conversation, int32_t result) {
        std::ofstream(file, std::ios::binary) << bitmap;
        Expect(conversation, result, pWriteLogo, file.c_str());
    }
    // Its lines on the wire, from the top; on a white colour 0 almost nothing is left: meant.
    static std::string Lines(int count = 64, bool white = false) {
        std::string lines;
        for (int line = 0, first = 192; line < count; ++line, ++first)
            lines += fmt::format("2D<06>{:02X},{},{:02X}<00 ", line,
                                 white ? "00,01x22,00" : fmt::format("{:02X},00x22,81", first),
                                 white ? 0 : first ^ 0x81);
        return lines;
    }
    const std::string file = testing::TempDir() + fmt::format("korax-{}.bmp", getpid());
};

TEST_F(Logo, RowsGoOutBottomUpInverted) {
    ByType(true, {8, 9, 10, 11, 12, 13}, 224, Lines(), [&] {
        std::ofstream(file, std::ios::binary) << Bitmap();
        return pWriteLogo(file.c_str());
    });
    const std::string ask = Identify(10, 3), third = Lines(3);
    Write(Bitmap() + kLongText, ask + Lines(), 0);  // 64 rows of a longer file
    Write(Bitmap().replace(54, 1, "\xFF"), ask + Lines(64, true), 0);
    Write(Bitmap(), "FF<15", 24);
    ExpectAll(ask + third.substr(0, third.size() - 4), kRefusals, pWriteLogo, file.c_str());
}

TEST_F(Logo, TheFileIsJudgedBeforeTheSession) {
    NrPortu = 0;  // a file that passes gets as far as the session: 114
    const uint8_t fields[][2] = {{0, 'b'},  {1, 'm'}, {14, 12}, {18, 0}, {18, 200}, {22, 63},
                                 {22, 192}, {28, 24}, {28, 4},  {30, 1}, {10, 63},  {10, 0},
                                 {11, 9},   {15, 9},  {19, 1},  {23, 1}, {31, 1},   {54, 255}};
    for (const uint8_t* field : fields) {
        SCOPED_TRACE(Hex(Bytes(field, field + 2)));
        const auto value = static_cast<char>(field[1]);
        Write(Bitmap().replace(field[0], 1, 1, value), "", field < fields[11] ? 237 : 114);
    }
    for (std::size_t size = 0; size < 62 + 24 * 64; size += size < 70 || size > 1570 ? 1 : 97)
        Write(Bitmap().substr(0, size), "", 237);
    std::filesystem::remove(file);
    Expect("", 236, pWriteLogo, file.c_str());
    std::filesystem::create_directory(file);
    EXPECT_EQ(pWriteLogo(file.c_str()) / 2, 118) << "236 or 237";
    std::filesystem::remove(file);
    NumerPortuDrukarki = NrPortu = ParagonRozpoczety = 1;
    Write(Bitmap(), Session(1, 1), 200);
}

}  // namespace
