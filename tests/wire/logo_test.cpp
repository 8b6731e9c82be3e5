// The logo: what passes as a bitmap, its lines on the wire, the refusals.
#include <fmt/format.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "support/driver_test.h"

namespace {

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
    // Its lines on the wire, from the top, with their check bytes.
    static std::string Lines(int count = 64) {
        std::string lines;
        for (int line = 0; line < count; ++line) {
            const int first = 0xFF - (63 - line);
            lines +=
                fmt::format("2D<06>{:02X},{:02X},00x22,81,{:02X}<00 ", line, first, first ^ 0x81);
        }
        return lines;
    }
    const std::string file = testing::TempDir() + fmt::format("korax-{}.bmp", getpid());
};

TEST_F(Logo, RowsGoOutBottomUpInvertedOnNewerTypes) {
    for (int type = 1; type <= 13; ++type) {
        SCOPED_TRACE(type);
        StartSession(type % 13 + 1);
        const bool served = type >= 8;
        Write(Bitmap(), Identify(type, 3) + (served ? Lines() : ""), served ? 0 : 224);
        EXPECT_EQ(Urzadzenie, type);
    }
    // The dots may begin anywhere within the first 255 bytes; what follows the 64 rows is ignored.
    Write(Bitmap(255) + kLongText, Identify(10, 3) + Lines(), 0);
}

TEST_F(Logo, AWhiteColour0LeavesOnlyATraceOfWholeBytes) {
    StartSession(10);
    std::string lines;
    for (int line = 0; line < 64; ++line)
        lines += fmt::format("2D<06>{:02X},00,01x22,00,00<00 ", line);
    Write(Bitmap().replace(54, 1, "\xFF"), Identify(10, 3) + lines, 0);
}

TEST_F(Logo, TheFirstRefusalEndsItTranslated) {
    StartSession(10);
    Write(Bitmap(), "FF<15", 24);
    const std::string third = Lines(3);
    const std::string until_answer = Identify(10, 3) + third.substr(0, third.size() - 3);
    for (const auto& [answer, error] : {std::pair("6A", 231),
                                        {"6C", 223},
                                        {"C8", 232},
                                        {"C9", 233},
                                        {"CA", 234},
                                        {"CB", 235},
                                        {"69", 205}})
        Write(Bitmap(), until_answer + answer, error);
}

TEST_F(Logo, OtherFormatsAreRefusedBeforeTheSession) {
    NrPortu = 0;                                 // a file that passes gets as far as the session
    using Change = std::pair<std::size_t, int>;  // the byte at an offset
    const auto expect = [&](const Change& change, int32_t error) {
        SCOPED_TRACE(fmt::format("byte {} is {}", change.first, change.second));
        Write(Bitmap().replace(change.first, 1, 1, static_cast<char>(change.second)), "", error);
    };
    // The last of these makes the last row too short.
    for (const Change& change : {Change(0, 'b'),
                                 {1, 'm'},
                                 {14, 12},
                                 {18, 0},
                                 {18, 200},
                                 {22, 63},
                                 {22, 192},
                                 {28, 24},
                                 {28, 4},
                                 {30, 1},
                                 {10, 63}})
        expect(change, 237);
    // Only the low bytes of sizes are looked at.
    for (const Change& change :
         {Change(10, 0), {11, 9}, {15, 9}, {19, 1}, {23, 1}, {31, 1}, {54, 255}})
        expect(change, 114);
}

TEST_F(Logo, AFileThatEndsEarlyIsRefused) {
    NrPortu = 0;
    const std::size_t whole = 62 + 24 * 64;
    for (std::size_t size = 0; size < whole; size += size < 70 || size > 1570 ? 1 : 97)
        Write(Bitmap().substr(0, size), "", 237);
    Write(Bitmap(), "", 114);
}

TEST_F(Logo, AFileThatCannotBeReadIsRefused) {
    Expect("", 236, pWriteLogo, file.c_str());
    std::filesystem::create_directory(file);
    const int32_t error = pWriteLogo(file.c_str());  // some systems open a folder
    EXPECT_TRUE(error == 236 || error == 237) << error;
}

TEST_F(Logo, IsRefusedInAReceiptAfterTheSessionStart) {
    NumerPortuDrukarki = ParagonRozpoczety = 1;
    Write(Bitmap(), Session(10, 1), 200);
}

}  // namespace
