// An application written from the header alone, against koraxsim over a pseudo-terminal.
#include <cstring>
#include <regex>

#include "koraxdr.h"
#include "simulator_process.h"

namespace {

using system_tests::Process;
using system_tests::ScratchFolder;
using system_tests::Simulator;

constexpr int32_t kPort = 3;

int32_t Connect(const Simulator& simulator, int32_t timeout_s = 5) {
    EXPECT_EQ(0, SetPortDevice(kPort, simulator.link().c_str()));
    return CommunicationInit(kPort, 9600, timeout_s);
}

class OnEveryType : public testing::TestWithParam<int> {
  protected:
    void TearDown() override { CommunicationEnd(); }
};

}  // namespace

TEST_P(OnEveryType, SellsPaysCancelsAndRecovers) {
    const Simulator simulator(GetParam());
    ASSERT_EQ(0, Connect(simulator));
    EXPECT_EQ(GetParam(), xDeviceType());

    ASSERT_EQ(0, ReceiptBegin());
    int32_t value = 0;
    ASSERT_EQ(0, pReceiptItem(1, "Mas\xB3o osobne", 1, 0, 1500, 3, "kg", 333, &value));  // Masło
    EXPECT_EQ(500, value);
    ASSERT_EQ(0, pReceiptItemEx(1, "Chleb razowy", 2, 0, 2, 0, "szt.", 450));
    ASSERT_EQ(0, pFillPayment(1, "Karta", 1000, 0));
    ASSERT_EQ(0, pFillPayment(2, "Got\xF3wka", 500, 100));  // Gotówka
    ASSERT_EQ(0, ReceiptEnd(0));
    EXPECT_EQ(1, xReceiptNumber());
    EXPECT_NE(std::string::npos, simulator.Paper().find("Masło osobne"));
    EXPECT_TRUE(std::regex_search(simulator.Paper(), std::regex("SUMA.* 14,00")));

    ASSERT_EQ(0, ReceiptBegin());
    ASSERT_EQ(0, pReceiptItemEx(1, "Herbata", 1, 0, 1, 0, "szt.", 999));
    ASSERT_EQ(0, ReceiptCancel());
    EXPECT_EQ(201, ReceiptCancel());

    // An item whose value the device does not accept cancels the receipt; the next one goes on.
    ASSERT_EQ(0, ReceiptBegin());
    value = 1;
    EXPECT_NE(0, pReceiptItem(1, "Cukier", 1, 0, 1, 0, "kg", 400, &value));
    char reason[160] = "";
    int32_t code = 0;
    ASSERT_EQ(0, CancellationReason(&code, reason));
    EXPECT_EQ(75, code) << reason;
    ASSERT_EQ(0, ReceiptBegin());
    ASSERT_EQ(0, pReceiptItemEx(1, "Cukier", 1, 0, 1, 0, "kg", 400));
    ASSERT_EQ(0, ReceiptEnd(10));
    EXPECT_TRUE(std::regex_search(simulator.Paper(), std::regex("SUMA.* 3,60")));
    EXPECT_EQ(0, LastError());
}

INSTANTIATE_TEST_SUITE_P(DeviceTypes, OnEveryType, testing::Range(1, 14));

TEST(Application, GoesOnWithAPortThatVanishedAndReturned) {
    {
        Simulator simulator(10);
        ASSERT_EQ(0, Connect(simulator));
        ASSERT_EQ(0, ReceiptBegin());
        EXPECT_EQ(0, simulator.Stop(SIGINT));
        const int32_t error = pReceiptItemEx(1, "Cukier", 1, 0, 1, 0, "kg", 400);
        EXPECT_TRUE(error == 20 || error == 21) << error;
        EXPECT_EQ(2, CommunicationInit(kPort, 9600, 1));
    }
    const Simulator returned(10);
    EXPECT_EQ(0, Connect(returned));
    EXPECT_EQ(0, ReceiptBegin());  // the new device knows of no open receipt
    EXPECT_EQ(0, ReceiptCancel());
    CommunicationEnd();
}

TEST(Application, TellsAbsentAndTakenPorts) {
    ASSERT_EQ(0, SetPortDevice(kPort, "/nowhere/at/all"));
    EXPECT_EQ(2, CommunicationInit(kPort, 9600, 1));
    EXPECT_EQ(2, OpenPort(kPort, 9600, 1, 1));
    EXPECT_EQ(225, SetPortDevice(kPort, nullptr));
    EXPECT_EQ(215, SetPortDevice(0, "/dev/null"));
    EXPECT_EQ(215, SetPortDevice(256, "/dev/null"));
    EXPECT_EQ(215, SetPortDevice(kPort, std::string(257, 'x').c_str()));
    EXPECT_EQ(215, LastError());
    ASSERT_EQ(0, SetPortDevice(kPort, "/dev/null"));
    EXPECT_EQ(2, CommunicationInit(kPort, 9600, 1));
}

TEST(Example, ReceiptPrintsTheTotalThatTheLibraryWorkedOut) {
    for (const int type : {5, 7, 10}) {
        const Simulator simulator(type);
        const auto output = ScratchFolder() / "receipt.out";
        Process receipt({EXAMPLES_DIR "/receipt", simulator.link().string()}, output);
        EXPECT_EQ(0, receipt.Wait()) << system_tests::Contents(output);
        const std::string said = system_tests::Contents(output);
        std::smatch total;
        ASSERT_TRUE(std::regex_search(said, total, std::regex("total (\\d+,\\d\\d)"))) << said;
        const std::regex line("SUMA.* " + total[1].str());
        EXPECT_TRUE(std::regex_search(simulator.Paper(), line)) << said << simulator.Paper();
    }
}

TEST(Koraxsim, EndsCleanlyAndLeavesNoLink) {
    for (const int signal : {SIGINT, SIGTERM}) {
        Simulator simulator(4);
        EXPECT_EQ(0, simulator.Stop(signal));
        EXPECT_FALSE(std::filesystem::is_symlink(simulator.link()));
    }
}

TEST(Example, DayIsLivedThroughOnEveryType) {
    for (int type = 1; type <= 13; ++type) {
        const Simulator simulator(type);
        const auto output = ScratchFolder() / "day.out";
        Process day({EXAMPLES_DIR "/day", simulator.link().string()}, output);
        EXPECT_EQ(0, day.Wait()) << "type " << type << '\n' << system_tests::Contents(output);
    }
}
