// Opening and closing the port, the session start, and what the globals hold afterwards.
#include <cstring>

#include "support/driver_test.h"

namespace {

// Taken before any test has run.
const std::vector<int> as_loaded = {
    NrPortu,           SzybkTrans,          Timeouty, Urzadzenie, Prog, AdditionalLines[6].number,
    TimeoutOdbierania, ParzystoscTransmisji};

TEST(LoadedLibrary, HasItsDefaults) {
    EXPECT_EQ(as_loaded, (std::vector<int>{1, 9600, 5, 13, 1, -1, 3, 2}));
}

class SessionStart : public DriverTest {
  protected:
    // What was asked of the operating system since the last time begins with this.
    static void ExpectOpening(const std::string& calls) {
        EXPECT_EQ(os.TakeCalls().substr(0, calls.size()), calls);
    }
    int32_t Init(const std::string& conversation) {
        return Call(conversation, CommunicationInit, 1, 9600, 5);
    }
};

TEST_F(SessionStart, IdentifiesEveryDeviceType) {
    for (int type = 1; type <= 13; ++type) {
        SCOPED_TRACE(type);
        Fresh();
        Prog = 9;
        EXPECT_EQ(Call(Session(type, 5), CommunicationInit, 3, 19200, 7), 0);
        EXPECT_EQ(Urzadzenie, type);
        const bool keeps_version = type == 1 || type == 2 || type == 5,
                   no_version = type == 3 || type == 6 || type == 13;
        EXPECT_EQ(Prog, keeps_version ? 9 : no_version ? 0 : 5);
        EXPECT_EQ(KomunikacjaInit * NrPortu * NumerPortuDrukarki, 9);
        ExpectOpening("open COM3; pause 100; apply 19200 8E1 cts w7 r7; pause 100");
    }
}

TEST_F(SessionStart, FailuresEndItAndARefusedProbeDoesNot) {
    for (const auto& [conversation, result] : {std::pair("23<15 " + Identify(10, 2), 0),
                                               {"23<55 " + Identify(10, 2), 0},
                                               {"23<01", 101},
                                               {"23<C8", 26},
                                               {"23", 21},
                                               {"23<06 95<02", 109},
                                               {"23<06 " + kReady + "FF<15", 24},
                                               {"23<06 " + kReady + "FF<062C FE<01", 101}}) {
        SCOPED_TRACE(conversation);
        Fresh();
        Optimize = 1;
        EXPECT_EQ(Init(conversation), result);
        EXPECT_EQ(LastError(), result);
        const bool established = result == 0;
        EXPECT_EQ(os.line_open, established);
        EXPECT_EQ(KomunikacjaInit + Optimize + NumerPortuDrukarki, established ? 3 : 0);
        EXPECT_EQ(Urzadzenie, established ? 10 : 13);
    }
}

TEST_F(SessionStart, APortThatDoesNotOpenIsTwo) {
    os.open_error = 5;
    EXPECT_EQ(CommunicationInit(1, 9600, 5), 2);
    EXPECT_EQ(LastError(), 2);
    EXPECT_EQ(KomunikacjaInit + NumerPortuDrukarki, 0);
    os.open_error = 0;
    os.settings_error = 87;
    EXPECT_EQ(OpenPort(4, 9600, 1, 1), 2);
    EXPECT_FALSE(os.line_open) << "a failed open leaves nothing open";
    EXPECT_EQ(NrPortu, 4) << "the number stays";
    os.settings_error = 0;
    EXPECT_EQ(Init(Session(4, 1)), 0);
}

TEST_F(SessionStart, WithoutAPortNumberEveryCallFailsUntilOneIsSet) {
    int32_t cell = 77;
    EXPECT_EQ(ReceiptNumber(&cell), 2) << "port 0 is refused by the port layer";
    Optimize = 1;
    EXPECT_EQ(ReceiptNumber(&cell), 114);
    EXPECT_EQ(LastError(), 114);
    EXPECT_EQ(Optimize, 1) << "114 returns at once, the session is not ended";
    EXPECT_EQ(CommunicationInit(0, 9600, 5), 114);
    EXPECT_EQ(cell, 77);
    EXPECT_EQ(Init(Session(8, 2)), 0) << "a port number ends that state";
    EXPECT_EQ(CommunicationEnd(), 0);
    EXPECT_EQ(Urzadzenie, 13);
    EXPECT_EQ(ReceiptNumber(&cell), 2) << "the port number is forgotten with the session";
    EXPECT_EQ(OpenPort(2, 9600, 1, 1), 0);
    EXPECT_EQ(ReceiptNumber(&cell), 2) << "an open port is no session, and its number is not used";

    NumerPortuDrukarki = 4;
    NrPortu = 1;
    os.calls.clear();
    EXPECT_EQ(Call(Session(10, 3) + "66<060700", xReceiptNumber), 7) << "made where it is needed";
    ExpectOpening("open COM4; pause 100; apply 9600 8E1 cts w5 r5");
    EXPECT_EQ(Call("66<060800", xReceiptNumber), 8) << "and kept";
}

TEST_F(SessionStart, ClearsTheReceiptBuffersButNotTheOpenReceipt) {
    Total[1] = Total[7] = 100;
    pFillPayment(4, "Karta", 100, 5);
    xFillLines(1, "Linia");
    Control[10].text[0] = 'x';
    CP1.send = CP2.send = Control[10].flag = 1;
    ParagonRozpoczety = FakturaRozpoczeta = 1;
    KontrolowacStanLiniiCTS = 0;
    EXPECT_EQ(CommunicationInitInternal(6, 0), 0) << "without identification nothing is sent";
    EXPECT_EQ(NrPortu, 6);
    EXPECT_EQ(KomunikacjaInit + KontrolowacStanLiniiCTS, 2);
    EXPECT_EQ(ReceiptState(), "open invoice");
    EXPECT_EQ(Payments[4].name[0] + Payments[4].total + Control[10].text[0] + Control[10].flag, 0);
    EXPECT_EQ(AdditionalLines[1].number + AdditionalLines[1].text[0] + CP1.send + CP2.send, -1);
}

TEST_F(SessionStart, LaterFailuresAndPortFunctionsDoNotEndTheSession) {
    StartSession(10);
    Call("66", xReceiptNumber);
    EXPECT_EQ(LastError(), 21);
    EXPECT_EQ(LastError(), 0) << "read once";
    EXPECT_EQ(KomunikacjaInit, 1);

    Fresh();
    EXPECT_EQ(OpenPort(258, 57600, 1, 9), 0);
    EXPECT_EQ(NrPortu, 2) << "the port number is a byte";
    ExpectOpening("open COM2; pause 100; apply 57600 8E1 cts w1 r9");
    EXPECT_EQ(OpenPort(3, 9600, 1, 1), 0) << "the port before is closed first";
    EXPECT_EQ(KomunikacjaInit, 0);
    StartSession(5);
    EXPECT_FALSE(OptimizeTransmission() || ClosePort());
    EXPECT_FALSE(os.line_open || Optimize);
    EXPECT_EQ(KomunikacjaInit, 1);
    EXPECT_EQ(ReceiptNumber(nullptr), 20) << "an exchange on a closed port";
    EXPECT_FALSE(ClosePort() || LastError());
}

TEST_F(SessionStart, VersionTexts) {
    char text[64];
    std::memset(text, 0x55, sizeof text);
    EXPECT_EQ(pDllVersion(text), 0);
    EXPECT_STREQ(text, "WIN 4.44 64-BIT (10.12.2013)");
    EXPECT_EQ(text[29], 0x55) << "29 bytes with the terminator";
    EXPECT_STREQ(xDllVersion(), text);
    EXPECT_STREQ(xDllAuthor(), "Korax driver maintainers");
    EXPECT_EQ(pDllVersion(nullptr) + pDllAuthor(nullptr), 450);
    EXPECT_EQ(LastError(), 225);
}

}  // namespace
