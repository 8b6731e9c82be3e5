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

using SessionStart = DriverTest;

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

}  // namespace
