// Opening and closing the port, the session start, what the globals hold afterwards.
#include "support/driver_test.h"

namespace {

// Taken before any test has run: variables that are not as they should be.
std::string Differing() {
    std::string names;
    const auto expect = [&](const char* name, int64_t value, int64_t expected) {
        if (value != expected) names += std::string(name) + " ";
    };
    expect("AdditionalLines[6].number", AdditionalLines[6].number, -1);
    expect("CodePage1250", CodePage1250, 0);
    expect("CoIleSygnalizowacLicznikPoslanychSekwencji", CoIleSygnalizowacLicznikPoslanychSekwencji,
           0);
    expect("DebugMode", DebugMode, 0);
    expect("DebugowacDzialanieFunkcji", DebugowacDzialanieFunkcji, 0);
    expect("DlaczegoNiemozliwaFunkcjaSpecjalna", DlaczegoNiemozliwaFunkcjaSpecjalna, 0);
    expect("FakturaRozpoczeta", FakturaRozpoczeta, 0);
    expect("KomunikacjaDlaNivy", KomunikacjaDlaNivy, 0);
    expect("KomunikacjaInit", KomunikacjaInit, 0);
    expect("LicznikZapisanychLiniiDoPlikuWyjsciowego", LicznikZapisanychLiniiDoPlikuWyjsciowego, 0);
    expect("NrPortu", NrPortu, 1);
    expect("NumerPortuDrukarki", NumerPortuDrukarki, 0);
    expect("Optimize", Optimize, 0);
    expect("ParagonRozpoczety", ParagonRozpoczety, 0);
    expect("ParzystoscTransmisji", ParzystoscTransmisji, 2);
    expect("PierwszaPozycjaSprzedazy", PierwszaPozycjaSprzedazy, 0);
    expect("PierwszaSekwencjaSterujaca", PierwszaSekwencjaSterujaca, 0);
    expect("Prog", Prog, 1);
    expect("RetransmitowacSekwencjeSterujaca", RetransmitowacSekwencjeSterujaca, 0);
    expect("SposobZaokraglania", SposobZaokraglania, 0);
    expect("SzybkTrans", SzybkTrans, 9600);
    expect("Timeouty", Timeouty, 5);
    expect("TimeoutNadawania", TimeoutNadawania, 3);
    expect("TimeoutOdbierania", TimeoutOdbierania, 3);
    expect("Urzadzenie", Urzadzenie, 13);
    expect("WydrukowanychLiniiPar", WydrukowanychLiniiPar, 0);
    expect("WymaganySprzetDoFunkcjiSpecjalnych", WymaganySprzetDoFunkcjiSpecjalnych, 1);
    return names;
}
const std::string differing_as_loaded = Differing();

TEST(LoadedLibrary, HasItsDefaults) {
    EXPECT_EQ(differing_as_loaded, "");
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
