// Opening and closing the port, the session start, what the globals hold afterwards; which device
// is on the line, its code page, and whether it can print.
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
        return Call(conversation, CommunicationInit, 1, 19200, 7);
    }
};

TEST_F(SessionStart, FailuresEndItAndARefusedProbeDoesNot) {
    for (const auto& [conversation, result] : {std::pair("23<15 " + Identify(10, 2), 0),
                                               {"23<55 " + Identify(10, 2), 0},
                                               {"23<01", 101},
                                               {"23<C8", 26},
                                               {"23", 21},
                                               {"23<06 95<02", 109},
                                               {"23<06 " + kReady + "FF<15", 24},
                                               {"23<06 " + kReady + "FF<062C FE<01", 101}}) {
        Fresh();
        Optimize = 1;
        Expect(conversation, result, CommunicationInit, 1, 9600, 5);
        EXPECT_EQ(KomunikacjaInit + Optimize + NumerPortuDrukarki, result == 0 ? 3 : 0);
        EXPECT_EQ(Urzadzenie, os.line_open ? 10 : 13);
    }
}

TEST_F(SessionStart, APortThatDoesNotOpenIsTwo) {
    os.open_error = 5;
    Expect("", 2, CommunicationInit, 1, 9600, 5);
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
    Expect("", 114, ReceiptNumber, &cell);
    EXPECT_EQ(Optimize, 1) << "the session is not ended";
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
    ExpectOpening("open COM4; pause 100; apply 19200 8E1 cts w7 r7");
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
    int32_t number = 0;
    StartSession(10);
    Expect("66", 21, ReceiptNumber, &number);
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
    EXPECT_STREQ(xDllVersion(), "WIN 4.44 64-BIT (10.12.2013)");
    EXPECT_STREQ(xDllAuthor(), "Korax driver maintainers");
    EXPECT_EQ(pDllVersion(nullptr) + pDllAuthor(nullptr), 450);
    EXPECT_EQ(LastError(), 225);
}

using Identification = DriverTest;

TEST_F(Identification, AnswersThatNameNoModelOrFail) {
    for (const auto& [conversation, result, expected_type, expected_version] :
         {std::tuple("FF<06FF", 0, 13, 0),
          {"FF<0612 FE<06800900", 0, 7, 9},
          {"FF<062C FE<15", 0, 3, 0},
          {"FF<0602", 0, 1, 66},
          {"FF<0612 FE<067D", 21, 55, 66},
          {"FF<15", 24, 55, 66}}) {
        StartSession(10);
        KomunikacjaInit = 0;  // it starts no session by itself
        int32_t type = 55, version = 66;
        Expect(conversation, result, DeviceType, &type, &version);
        EXPECT_EQ(type * 100 + version, expected_type * 100 + expected_version) << conversation;
    }
    EXPECT_EQ(Call(Identify(12, 4), xProgramVersion), 4);
    EXPECT_EQ(Call("FF<15", xDeviceType), 12);
    EXPECT_EQ(LastError(), 24);
}

TEST_F(Identification, NamesAreThoseOfTheSession) {
    char name[20] = "untouched";
    StartSession(7);
    EXPECT_STREQ(xDeviceName(), "QUORRAF (apteczna)");
    StartSession(12);
    EXPECT_STREQ(xDeviceName(), "TOLA F E");
    Urzadzenie = 14;
    EXPECT_STREQ(xDeviceName(), "NIEZNANE");
    CommunicationEnd();
    Expect("", 2, pDeviceName, name);
    EXPECT_STREQ(name, "untouched");
}

TEST_F(Identification, CodePage) {
    const std::string ask = " CF<06>02,'code_page'40<";
    for (const auto& [type, version, conversation, result, expected] : {
             std::tuple(7, 3, std::string(), 0, 0),  // older types are never asked
             {13, 3, "", 0, 0},
             {8, 3, "C3<06F70000", 0, 0},  // a bit of the status
             {8, 3, "C3<06'19',00", 0, 2},
             {10, 1, "C3<06'19',00", 0, 2},                      // an old one has no parameter
             {10, 2, "C3<06080000" + ask + "00,'16'40", 0, 0},   // against the bit
             {11, 2, "C3<06080000" + ask + "00,'42'40", 0, 1},   // unknown: the bit
             {10, 2, "C3<06'19',00" + ask + "00,'xx'40", 0, 0},  // digits do not count then
             {10, 2, "C3<15", 24, 77},
             {10, 2, "C3<06000000" + ask + "75", 217, 0},
         }) {
        StartSession(type, version);
        int32_t page = 77;
        EXPECT_EQ(Call(Identify(type, version) + conversation, IsCodePage1250, &page), result);
        EXPECT_EQ(page, expected) << conversation;
    }
}

TEST_F(Identification, PrintCheck) {
    const std::string ready = "95<00 94<00 95<00";
    // The states are bits of A, B and B: busy, held, stopped.
    for (const auto& [before, conversation, result] : {
             std::tuple(0, "95<00 " + ready, 0),
             {0, "95<02", 109},
             {0, "95<00 95<80", 102},
             {0, "95<00 95<04", 103},
             {0, "95<84 95<00 94<00 95<C4 95<80", 102},  // failures count at the round's head
             {0, "95<00 95<02 94<00 95<02", 0},          // and paper before the first round
             {1, "95<00 95<00 94<00 95<01 95<00 " + ready, 0},     // 010 polls
             {1, "95<00 95<00 94<02 95<01 95<00 " + ready, 0},     // 110
             {0, "95<00 95<00 94<02 95<00 95<00 " + ready, 0},     // 100, after printing
             {1, "95<00 95<00 94<02 95<00", 112},                  // 100, before printing
             {2, "95<00 95<00 94<02 95<00 " + ready, 0},           // 100 with another argument
             {0, "95<00 95<00 94<00 95<41", 112},                  // 011
             {1, "95<00 95<00 94<02 95<41", 112},                  // 111
             {0, "95<00 95<00 94<00 95<40 " + ready, 0},           // 001 does not ask for paper
             {1, "95<00 95<00 94<02 95<40 95<00 94<FD 95<00", 0},  // 101
             {0, "95<00 95<00 94<00 95<40 95<00 94<00 95", 21},    // silence ends the polling
         }) {
        StartSession(4);
        Expect(conversation, result, PrintControl, before);
    }
}

}  // namespace
