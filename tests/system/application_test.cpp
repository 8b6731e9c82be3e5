// An application written from the header alone, against koraxsim over a pseudo-terminal.
#include <regex>

#include "koraxdr.h"
#include "support/logo_file.h"
#include "system/simulator_process.h"

namespace {

using system_tests::Contents;
using system_tests::kPort;
using system_tests::RunExample;
using system_tests::ScratchFolder;
using system_tests::Simulator;

constexpr int32_t kAbsentPort = 200;

int32_t Connect(int32_t timeout_s = 5) {
    return CommunicationInit(kPort, 9600, timeout_s);
}

class OnEveryType : public testing::TestWithParam<int> {
  protected:
    void TearDown() override { CommunicationEnd(); }
};

}  // namespace

TEST_P(OnEveryType, SellsPaysCancelsAndRecovers) {
    const Simulator simulator(GetParam());
    ASSERT_EQ(0, Connect());
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
        ASSERT_EQ(0, Connect());
        ASSERT_EQ(0, ReceiptBegin());
        EXPECT_EQ(0, simulator.Stop());
        const int32_t error = pReceiptItemEx(1, "Cukier", 1, 0, 1, 0, "kg", 400);
        EXPECT_TRUE(error == 20 || error == 21) << error;
        EXPECT_EQ(2, CommunicationInit(kPort, 9600, 1));
    }
    const Simulator returned(10);
    EXPECT_EQ(0, Connect());
    EXPECT_EQ(0, ReceiptBegin());  // the new device knows of no open receipt
    EXPECT_EQ(0, ReceiptCancel());
    CommunicationEnd();
}

TEST(Application, TellsAbsentAndTakenPorts) {
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(2, CommunicationInit(kAbsentPort, 9600, 1));
        EXPECT_EQ(2, OpenPort(kAbsentPort, 9600, 1, 1));
    }
    const Simulator simulator(10);
    const std::string output = ScratchFolder() + "/taken";
    ASSERT_EQ(0, Connect());
    EXPECT_EQ(1, RunExample("receipt", kPort, output));
    EXPECT_NE(std::string::npos, Contents(output).find("CommunicationInit: 2,"));
    EXPECT_EQ(10, xDeviceType());  // the one that has the port goes on
    CommunicationEnd();
    EXPECT_EQ(0, RunExample("receipt", kPort, output)) << Contents(output);
}

TEST(Application, ReopensAsOftenAsItLikes) {
    const Simulator simulator(8);
    for (int i = 0; i < 5; ++i) {
        ASSERT_EQ(0, Connect());
        EXPECT_EQ(8, xDeviceType());
        EXPECT_EQ(0, i % 2 == 0 ? CommunicationEnd() : ClosePort());
    }
}

TEST(Application, GivesUpOnASilentDeviceWhenTheTimeIsOver) {
    const Simulator simulator(10, {"--fault", "silent"});
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(21, Connect(2));
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    EXPECT_GT(passed.count(), 1.9);
    EXPECT_LT(passed.count(), 10);
}

TEST(Application, SendsTheLogoOfAFile) {
    const std::string printed = ScratchFolder() + "/logo.pbm";
    const LogoFile file(ScratchFolder() + "/logo.bmp");
    Simulator simulator(11, {"--logo", printed});
    ASSERT_EQ(0, Connect());
    EXPECT_EQ(0, pWriteLogo(file.name()));
    EXPECT_EQ(236, pWriteLogo((ScratchFolder() + "/no-such-file").c_str()));
    CommunicationEnd();
    EXPECT_EQ(0, simulator.Stop());
    std::string expected = "P4\n192 64\n";
    for (int row = 0; row < 64; ++row) expected += '\xFF' + std::string(23, '\0');
    EXPECT_EQ(expected, Contents(printed));
}

TEST(Example, ReceiptPrintsTheTotalThatTheLibraryWorkedOut) {
    for (const int type : {5, 7, 10}) {
        const Simulator simulator(type);
        const std::string output = ScratchFolder() + "/receipt.out";
        EXPECT_EQ(0, RunExample("receipt", kPort, output));
        const std::string said = Contents(output);
        std::smatch total;
        ASSERT_TRUE(std::regex_search(said, total, std::regex("total (\\d+,\\d\\d)"))) << said;
        const std::regex line("SUMA.* " + total[1].str());
        EXPECT_TRUE(std::regex_search(simulator.Paper(), line)) << said << simulator.Paper();
    }
}

TEST(Example, DayIsLivedThroughOnEveryType) {
    for (int type = 1; type <= 13; ++type) {
        const Simulator simulator(type);
        const std::string output = ScratchFolder() + "/day.out";
        EXPECT_EQ(0, RunExample("day", kPort, output)) << "type " << type << '\n'
                                                       << Contents(output);
    }
}
