// Opening and closing the port, the session start, what the globals hold afterwards.
#include "support/driver_test.h"

namespace {

// Taken before any test has run.
struct Defaults {
    int port = NrPortu, baud = SzybkTrans, timeout_s = Timeouty, type = Urzadzenie, version = Prog,
        last_line = AdditionalLines[6].number, read_timeout_s = TimeoutOdbierania,
        parity = ParzystoscTransmisji, session_port = NumerPortuDrukarki, code_page = CodePage1250,
        optimised = Optimize, debug_mode = DebugMode;
};
const Defaults as_loaded;

TEST(LoadedLibrary, HasItsDefaults) {
    EXPECT_EQ(as_loaded.port, 1);
    EXPECT_EQ(as_loaded.baud, 9600);
    EXPECT_EQ(as_loaded.timeout_s, 5);
    EXPECT_EQ(as_loaded.type, KORAX_TYPE_OTHER);
    EXPECT_EQ(as_loaded.version, 1);
    EXPECT_EQ(as_loaded.last_line, -1);
    EXPECT_EQ(as_loaded.read_timeout_s, 3);
    EXPECT_EQ(as_loaded.parity, 2);
    EXPECT_EQ(as_loaded.session_port, 0);
    EXPECT_EQ(as_loaded.code_page, 0);
    EXPECT_EQ(as_loaded.optimised, 0);
    EXPECT_EQ(as_loaded.debug_mode, 0);
}

class SessionStart : public DriverTest {
  protected:
    // What was asked of the operating system since the last time begins with this.
    static void ExpectOpening(const std::string& calls) {
        EXPECT_EQ(os.TakeCalls().substr(0, calls.size()), calls);
    }
};

TEST_F(SessionStart, FailuresEndItAndARefusedProbeDoesNot) {
    const struct {
        std::string conversation;
        int32_t result;
    } cases[] = {{"23<15 " + Identify(10, 2), 0},
                 {"23<55 " + Identify(10, 2), 0},
                 {"23<01", KORAX_E_SERVICE_JUMPER},
                 {"23<C8", KORAX_E_DAMAGED},
                 {"23", KORAX_E_RECEIVE_TIMEOUT},
                 {"23<06 95<02", KORAX_E_NO_PAPER},
                 {"23<06 " + kReady + "FF<15", KORAX_E_REFUSED},
                 {"23<06 " + kReady + "FF<062C FE<01", KORAX_E_SERVICE_JUMPER}};
    for (const auto& [conversation, result] : cases) {
        SCOPED_TRACE(conversation);
        Fresh();
        Optimize = 1;
        Expect(conversation, result, CommunicationInit, 1, 9600, 5);
        const bool stands = result == 0;
        EXPECT_EQ(KomunikacjaInit, stands);
        EXPECT_EQ(Optimize, stands);
        EXPECT_EQ(NumerPortuDrukarki, stands ? 1 : 0);
        EXPECT_EQ(os.line_open, stands);
        EXPECT_EQ(Urzadzenie, stands ? KORAX_TYPE_TOLA_E : KORAX_TYPE_OTHER);
    }
}

TEST_F(SessionStart, APortThatDoesNotOpenIsAnErrorAndLeavesNothingOpen) {
    os.open_error = 5;
    Expect("", KORAX_E_PORT, CommunicationInit, 1, 9600, 5);
    EXPECT_EQ(KomunikacjaInit, 0);
    EXPECT_EQ(NumerPortuDrukarki, 0);
    os.open_error = 0;
    os.settings_error = 87;
    Expect("", KORAX_E_PORT, OpenPort, 4, 9600, 1, 1);
    EXPECT_FALSE(os.line_open);
    EXPECT_EQ(NrPortu, 4) << "the number stays";
    os.settings_error = 0;
    Expect(Session(4, 1), 0, CommunicationInit, 1, 19200, 7);
}

TEST_F(SessionStart, WithoutAPortNumberEveryCallFailsUntilOneIsSet) {
    int32_t cell = 77;
    Expect("", KORAX_E_PORT, IsCodePage1250, &cell);  // port 0 is refused by the port layer
    Optimize = 1;
    Expect("", KORAX_E_NO_PORT_NUMBER, ReceiptNumber, &cell);
    EXPECT_EQ(Optimize, 1) << "the session is not ended";
    Expect("", KORAX_E_NO_PORT_NUMBER, CommunicationInit, 0, 9600, 5);
    EXPECT_EQ(cell, 77);
    Expect(Session(8, 2), 0, CommunicationInit, 1, 19200, 7);
}

TEST_F(SessionStart, TheEndForgetsThePortNumberAndTheType) {
    StartSession(8);
    Optimize = 1;
    ErrorLastError = 5;
    Expect("", 0, CommunicationEnd);
    EXPECT_EQ(Urzadzenie, KORAX_TYPE_OTHER);
    EXPECT_EQ(Optimize, 0);
    EXPECT_FALSE(os.line_open);
    int32_t cell = 77;
    Expect("", KORAX_E_PORT, ReceiptNumber, &cell);
    // An open port is no session, and its number is not used for one.
    Expect("", 0, OpenPort, 2, 9600, 1, 1);
    Expect("", KORAX_E_PORT, ReceiptNumber, &cell);
}

TEST_F(SessionStart, IsMadeWhereItIsNeededWithTheValuesOfTheLastOneAndKept) {
    Expect(Session(10, 3), 0, CommunicationInit, 4, 19200, 7);
    Expect("", 0, ClosePort);
    KomunikacjaInit = 0;
    os.calls.clear();
    int32_t number = 0;
    Expect(Session(10, 3) + "66<060700", 0, ReceiptNumber, &number);
    EXPECT_EQ(number, 7);
    ExpectOpening("open COM4; pause 100; apply 19200 8E1 cts w7 r7");
    Expect("66<060800", 0, ReceiptNumber, &number);
}

TEST_F(SessionStart, WithoutIdentificationNothingIsSent) {
    KontrolowacStanLiniiCTS = 0;
    Urzadzenie = 4;
    Expect("", 0, CommunicationInitInternal, uint8_t{6}, uint8_t{0});
    EXPECT_EQ(NrPortu, 6);
    EXPECT_EQ(KomunikacjaInit, 1);
    EXPECT_EQ(KontrolowacStanLiniiCTS, 1);
    EXPECT_EQ(Urzadzenie, KORAX_TYPE_OTHER);
}

TEST_F(SessionStart, ClearsTheReceiptBuffersButNotTheOpenReceipt) {
    Total[1] = Total[7] = 100;
    for (int slot = 1; slot <= kPlatnosci; ++slot) pFillPayment(slot, "Karta", 100, 5);
    for (int slot = 1; slot <= kLiniiDodatkowych; ++slot) xFillLines(slot, "Linia");
    for (int slot = 1; slot <= kPozycjiKontrolnych; ++slot) {
        Control[slot].text[0] = 'x';
        Control[slot].flag = 1;
    }
    pCurrencyPayment2(1, 2, 3, 4, 0);
    Urzadzenie = 10;
    pCurrencyPayment1("EUR", "4", 1, 2, 0);
    ParagonRozpoczety = FakturaRozpoczeta = 1;
    CommunicationInitInternal(1, 0);
    EXPECT_EQ(ReceiptState(), "open invoice");
    for (int slot = 1; slot <= kPlatnosci; ++slot) {
        EXPECT_STREQ(Payments[slot].name, "");
        EXPECT_EQ(Payments[slot].total, 0);
        EXPECT_EQ(Payments[slot].change, 0);
    }
    for (int slot = 1; slot <= kLiniiDodatkowych; ++slot) {
        EXPECT_EQ(AdditionalLines[slot].number, -1);
        EXPECT_STREQ(AdditionalLines[slot].text, "");
    }
    for (int slot = 1; slot <= kPozycjiKontrolnych; ++slot) {
        EXPECT_STREQ(Control[slot].text, "");
        EXPECT_EQ(Control[slot].flag, 0);
    }
    EXPECT_EQ(CP1.send, 0);
    EXPECT_EQ(CP2.send, 0);
}

TEST_F(SessionStart, ALaterFailureDoesNotEndTheSession) {
    int32_t number = 0;
    StartSession(10);
    Expect("66", KORAX_E_RECEIVE_TIMEOUT, ReceiptNumber, &number);
    EXPECT_EQ(LastError(), 0) << "read once";
    EXPECT_EQ(KomunikacjaInit, 1);
}

TEST_F(SessionStart, PortFunctionsActOnThePortAlone) {
    NumerBledu = KORAX_E_RECEIVE_TIMEOUT;  // of an older exchange: the line is set up all the same
    Expect("", 0, OpenPort, 258, 57600, 1, 9);
    EXPECT_EQ(NrPortu, 2) << "the port number is a byte";
    ExpectOpening("open COM2; pause 100; apply 57600 8E1 cts w1 r9");
    Expect("", 0, OpenPort, 3, 9600, 1, 1);  // the port before is closed first
    EXPECT_EQ(KomunikacjaInit, 0);
    StartSession(5);
    Expect("", 0, OptimizeTransmission);
    EXPECT_EQ(Optimize, 1);
    Expect("", 0, ClosePort);
    EXPECT_FALSE(os.line_open);
    EXPECT_EQ(Optimize, 0);
    EXPECT_EQ(KomunikacjaInit, 1);
    Expect("", KORAX_E_SEND_TIMEOUT, ReceiptNumber, nullptr);
    Expect("", 0, ClosePort);
}

}  // namespace
