// An application written from the header alone, against koraxsim over a pseudo-terminal.
#include "koraxdr.h"
#include "support/logo_file.h"
#include "system/simulator_process.h"

namespace system_tests {

namespace {

int32_t Connect(int32_t timeout_s = 5) {
    return CommunicationInit(kPort, 9600, timeout_s);
}

}  // namespace

TEST(Application, SellsWhatTheDeviceRefusedBefore) {
    const Simulator simulator(10);
    ASSERT_EQ(0, Connect());
    ASSERT_EQ(0, ReceiptBegin());
    const auto sell = [](int32_t value) {
        return pReceiptItem(1, "Mas\xB3o osobne", 1, 0, 1500, 3, "kg", 333, &value);  // Masło
    };
    EXPECT_NE(0, sell(501)) << "that is not its value";
    char reason[160] = "";
    int32_t code = 0;
    ASSERT_EQ(0, CancellationReason(&code, reason));
    EXPECT_EQ(75, code) << reason;
    ASSERT_EQ(0, ReceiptBegin());
    ASSERT_EQ(0, sell(0));
    ASSERT_EQ(0, pFillPayment(2, "Got\xF3wka", 500, 50));  // Gotówka
    ASSERT_EQ(0, ReceiptEnd(10));
    EXPECT_EQ(1, xReceiptNumber());
    EXPECT_TRUE(simulator.Prints("Masło osobne"));
    EXPECT_TRUE(simulator.Prints("S U M A.* 4 , 5 0"));
    CommunicationEnd();
}

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

TEST(Application, LeavesATakenPortAloneAndReopensAFreeOne) {
    const Simulator simulator(10);
    const std::string output = ScratchFolder() + "/receipt.out";
    EXPECT_EQ(2, CommunicationInit(200, 9600, 1)) << "there is no such port";
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(0, i == 1 ? ClosePort() : CommunicationEnd());
        ASSERT_EQ(0, Connect());
    }
    EXPECT_EQ(1, RunExample("receipt", kPort, output));
    EXPECT_NE(std::string::npos, Contents(output).find("CommunicationInit: 2,"));
    EXPECT_EQ(10, xDeviceType());  // the one that has the port goes on
    CommunicationEnd();
    EXPECT_EQ(0, RunExample("receipt", kPort, output));
    const std::string said = Contents(output);
    std::smatch total;
    ASSERT_TRUE(std::regex_search(said, total, std::regex("total (\\d+,\\d\\d)"))) << said;
    const std::string spaced = std::regex_replace(total[1].str(), std::regex("(.)"), " $1");
    EXPECT_TRUE(simulator.Prints("S U M A.* " + spaced + "\n")) << said;
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

TEST(Example, DayIsLivedThroughOnEveryType) {
    for (int type = 1; type <= 13; ++type) {
        const Simulator simulator(type);
        const std::string output = ScratchFolder() + "/day.out";
        EXPECT_EQ(0, RunExample("day", kPort, output)) << "type " << type << '\n'
                                                       << Contents(output);
    }
}

}  // namespace system_tests
