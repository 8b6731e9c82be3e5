// A receipt from its opening to its end or cancellation.

#include "support/driver_test.h"

namespace {

class Receipt : public DriverTest {
  protected:
    // A receipt in which the device has printed lines of 10.05 at rate A.
    void OpenWithLines(int type, int lines = 1, int invoice = 0) {
        OpenReceipt(type);
        Total[1] = 1005;
        WydrukowanychLiniiPar = static_cast<uint8_t>(lines);
        FakturaRozpoczeta = static_cast<uint8_t>(invoice);
    }
    // A function without arguments: its number, also as the last error, and the state it leaves.
    void Expect(int32_t (*function)(), const std::string& conversation, int32_t result,
                const char* state) {
        DriverTest::Expect(conversation, result, function);
        EXPECT_EQ(ReceiptState(), state) << conversation;
    }
};

const std::string kRates = "D1<06,08FC,8000,8000,8000,8000,8000,4000 ";

TEST_F(Receipt, BeginThatFailsOrFindsAReceipt) {
    const std::string refused = CodePage(10, 3, 0) + "21<15 ", good = "94<00 95<00 96<00 F5<0600 ";
    for (const auto& [stale, conversation, result, state] : {
             std::tuple(1, "5F<0602" + std::string(), 200, "open first"),
             {1, "5F<15", 200, "open first"},  // the device does not say
             {1, "5F<06FD " + Begin(10, 3, 0), 0, "open first"},
             {1, "5F<0600 FF<01", 101, "first"},
             {0, refused + "9B<02 " + good, 100, "first"},
             {0, refused + "9B<03 " + good + kRates + kReady, 24, "first"},  // for no reason
         }) {
        StartSession(10);
        ParagonRozpoczety = static_cast<uint8_t>(stale);
        Expect(ReceiptBegin, conversation, result, state);
    }
    StartSession(10);
    Total[7] = WydrukowanychLiniiPar = 5;
    OptimizeTransmission();
    Expect(ReceiptBegin, "21<06", 0, "open first optimised");
}

TEST_F(Receipt, ConditionsAreTestedInTheirOrder) {
    const std::string good = "9B<03 94<27 95<00 96<BF F5<15 ",
                      no_paper = "9B<03 94<00 95<02 96<00 F5<0601 ";
    for (const auto& [type, conversation, result] : {
             std::tuple(5, "9B<04 94<D8 95<06 96<40 F5<0600" + std::string(), 100),
             {5, "9B<05 94<D8 95<06 96<40 F5<0600", 107},
             {5, "9B<05 94<C8 95<06 96<40 F5<0600", 101},
             {5, "9B<05 94<C8 95<06 96<00 F5<0600", 102},
             {5, "9B<05 94<48 95<06 96<00 F5<0600", 103},
             {5, "9B<05 94<48 95<02 96<00 F5<0600", 104},
             {5, "9B<07 94<48 95<02 96<00 F5<0600", 105},
             {5, "9B<03 94<48 95<02 96<00 F5<0600", 106},
             {5, "9B<03 94<08 95<02 96<00 F5<0600", 108},
             {10, no_paper + "D1<06,8000,8000,8000,8000,8000,8000,8000", 113},
             {5, no_paper + kRates, 109},
             {5, good + kRates, 224},
             {6, good + kRates, 224},
             {9, good + kRates, 224},
             {8, good + kRates + "95<00 95<00 94<02 95<00", 112},
             {10, good + kRates + kReady, 0},
             {10, "9B<03 94<00 95<00 96<00 F5<01", 101},
         }) {
        StartSession(type);
        Expect(ReceiptConditions, conversation, result, "");
    }
    ParagonRozpoczety = 1;
    Expect(ReceiptConditions, "", 200, "open");
}

TEST_F(Receipt, EndComputesTheTotalToPay) {
    for (const auto& [a, b, g, value, kind, conversation] : {
             std::tuple(1005, 0, 1, 0, 0, "07>#1006"),
             {1005, 0, 0, 100, 0, "07>#1005"},
             {1005, 0, 0, -5, 0, "07>#1005"},
             {1005, 0, 0, 10, 0, "1B>0A 07>#904"},  // an exact half rounds down
             {49, 0, 0, 1, 0, "1B>01 07>#49"},      // 0.51 rounds up
             {INT32_MAX, 0, 0, 10, 0, "1B>0A 07>#1932735282"},
             {1005, 0, 0, 150, 1, "19>'-'#150 07>#855"},
             {1005, 0, 0, 150, 2, "19>' '#150 07>#1155"},
         }) {
        for (int32_t optimize : {0, 1}) {
            OpenWithLines(10, 1, 1);
            Total[1] = a, Total[2] = b, Total[7] = g;
            Optimize = optimize;
            const std::string end = std::string(conversation) + " 24<06 " + kReady;
            EXPECT_EQ(Call(end, ReceiptEndEx, value, kind), 0) << conversation;
            std::fill(Total, Total + 8, 0);
            EXPECT_EQ(ReceiptState(), "");
        }
    }
    Optimize = 1;
    EXPECT_EQ(ReceiptEnd(0), 201);
    EXPECT_EQ(Optimize, 0) << "cleared on every way out";
}

TEST_F(Receipt, EndSendsWhatWasStoredInItsOrder) {
    OpenWithLines(11);
    CodePage1250 = 1;
    pFillPayment(3, "Bon \xB9", 500, 0);
    pFillPayment(2, "", 1005, 7);  // an empty name is a used slot
    pFillPayment(1, "Got\xF3wka i wi\xEAksza", 2000, 995);
    EXPECT_EQ(xFillLines(-1, "never sent"), 5);
    EXPECT_EQ(xFillLines(0, "Dzi\xEAkujemy"), 5) << "into the same slot, which stayed free";
    xFillLines(12, "");
    pCurrencyPayment2(1, 2, 3, 1, 0);
    pCurrencyPayment1("EUR", "4.1234", 1, 99, 0);
    // Lines go out in code page 852 on this type, whatever its own page is.
    const std::string conversation =
        "1B>0A 83>'EUR','4.1234'10,01,#99 84>#1,#2,#3,#0 07>#904 "
        "81>01,'Got\xF3wka i wi\xEA'13,#2000 82>01,'Got\xF3wka i wi\xEA'13,#995 "
        "81>02,''13,#1005 82>02,''13,#7 81>03,'Bon \xB9'13,#500 82>03,'Bon \xB9'13,#0 "
        "09>'0Dzi\xA9kujemy',0A 09>'<',0A 24<06 ";
    EXPECT_EQ(Call(conversation + kReady, ReceiptEndEx, 10, 0), 0);
    EXPECT_EQ(CodePage1250, 1);
    EXPECT_EQ(Payments[1].name[0] + Payments[1].total + Payments[3].total + CP1.send + CP2.send, 0);
    EXPECT_EQ(AdditionalLines[1].number + AdditionalLines[1].text[0], -1);
    OpenWithLines(10);
    xFillLines(22, std::string(400, 'x').c_str());
    // A line fits its length byte.
    EXPECT_EQ(Call("07>#1005 09>'F',78x253,0A 24<06 " + kReady, ReceiptEnd, 0), 0);
}

TEST_F(Receipt, EndThatFailsKeepsWhatWasNotSent) {
    for (const auto& [answer, lines, result, state] : {
             std::tuple("<15", 0, 0, "A=1005"),  // the device has no receipt, nothing was printed
             {"<15", 1, 24, "lines=1 A=1005"},
             {"", 0, 0, "open A=1005"},
             {"", 2, 21, "open lines=2 A=1005"},
         }) {
        OpenWithLines(1, lines, 1);
        Optimize = 1;
        Expect([] { return ReceiptEnd(0); }, std::string("07>#1005 24") + answer, result, state);
    }
    // How many bytes leave; what is left of the currency payment, payments 1 and 4, the line.
    for (const auto& [bytes, kept] : {std::pair(5u, "c14l"),
                                      {20u + 3, "14l"},        // in the total
                                      {26u + 3, "14l"},        // in the first payment
                                      {26u + 21, "14l"},       // in its change
                                      {26u + 40, "4l"},        // in the second payment
                                      {26u + 80 + 3, "l"}}) {  // in the line
        OpenWithLines(10);
        pFillPayment(1, "A", 1, 0);
        pFillPayment(4, "B", 2, 0);
        xFillLines(1, "xyz");
        pCurrencyPayment1("EUR", "4", 1, 9, 0);
        os.peer = nullptr;
        os.writable_bytes = bytes;
        EXPECT_EQ(ReceiptEnd(0), 20);
        EXPECT_EQ(ReceiptState(), "open first lines=1 A=1005");
        std::string left = CP1.send ? "c" : "";
        for (int slot : {1, 4}) left += Payments[slot].name[0] ? std::to_string(slot) : "";
        EXPECT_EQ(left + (AdditionalLines[1].number != -1 ? "l" : ""), kept);
    }
}

TEST_F(Receipt, CancelByTypeAndState) {
    const std::string sum = "95<EF 07>#1005 ", direct = "95<EF 84>6162636465666768696A6B6C6D6E6F70";
    for (const auto& [type, lines, invoice, conversation, result, state] : {
             std::tuple(4, 1, 1, sum + "23<06 " + kReady, 0, "A=1005"),
             {4, 0, 0, sum + "23<15 " + kReady, 0, "A=1005"},  // refused, but nothing was printed
             {4, 1, 0, sum + "23<15", 24, "open lines=1 A=1005"},
             {12, 0, 0, sum + "23<06 " + kReady, 0, "A=1005"},
             {10, 1, 1, "95<EF 23<55", 0, "open invoice lines=1 A=1005"},  // unexpected is success
             {10, 0, 0, direct + "<06 " + kReady, 0, "A=1005"},
             {11, 0, 0, direct + "<55", 0, "open A=1005"},
             {11, 0, 0, direct + "<15", 21, "open A=1005"},     // NAK reads as its own number
             {10, 1, 1, "95<10", 210, "first lines=1 A=1005"},  // the device has done it already
         }) {
        OpenWithLines(type, lines, invoice);
        for (int i = 1; i <= 16; ++i) BajtyDoPoslania[i] = static_cast<uint8_t>(0x60 + i);
        Expect(ReceiptCancel, conversation, result, state);
    }
}

TEST_F(Receipt, ReasonNumberAndResume) {
    StartSession(10);
    ParagonRozpoczety = 1;
    char reason[256] = "before";
    int32_t code = -1, number = -1;
    for (const auto& [expected, text] : {
             std::pair(0x20, "Paragon uniewa\xBFniony programowo (sekwecj\xB9 ESC, 23H)"),
             {0x34, "Przekroczona maksymalna d\xB3ugo\x9C\xE6 paragonu"},
             {0xFF, ""},
         }) {
        const std::string conversation = "50<06" + Hex({static_cast<uint8_t>(expected)});
        DriverTest::Expect(conversation, 0, CancellationReason, &code,
                           reason);  // in a receipt, too
        EXPECT_EQ(code, expected);
        EXPECT_STREQ(reason, text);
    }
    DriverTest::Expect("50<0631", 225, CancellationReason, &code, nullptr);
    EXPECT_EQ(code, 49) << "stored before the buffer is looked at";

    EXPECT_EQ(ReceiptNumber(&number) + PrintResume(), 400) << "barred inside a receipt";
    ParagonRozpoczety = 0;
    EXPECT_EQ(Call("66<06FEFF", ReceiptNumber, &number), 0);
    EXPECT_EQ(number, 65534);
    Expect(PrintResume, "95<FD 2A<06 " + kReady, 0, "");
    Expect(PrintResume, "95<00 2A<15", 24, "");
}

}  // namespace
