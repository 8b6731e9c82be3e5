// Opening and closing the port, the session start, what the globals hold afterwards.
#include "support/driver_test.h"
#include "support/variables.h"

namespace {

// Taken before any test has run.
const std::string changed_as_loaded = ChangedVariables();
const int32_t last_line_as_loaded = AdditionalLines[6].number;

TEST(LoadedLibrary, HasItsDefaults) {
    EXPECT_EQ(changed_as_loaded, "");
    EXPECT_EQ(last_line_as_loaded, -1);
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
