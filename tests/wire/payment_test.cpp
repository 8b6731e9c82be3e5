// Forms of payment, additional lines, currency payments.
#include "support/driver_test.h"

namespace {

using Payment = DriverTest;

TEST_F(Payment, SlotsAreFilledByNumberAndLinesInOrder) {
    EXPECT_EQ(pFillPayment(2, "12345678901234567890", 7, -6), 0);
    EXPECT_STREQ(Payments[2].name, "1234567890123");
    EXPECT_EQ(Payments[2].total * Payments[2].change, -42);
    for (int32_t number : {0, 5, -1, 258}) {
        Expect("", 215, pFillPayment, number, "Karta", 1, 1);
        Expect("", 215, pSendPayment, number, "Karta", 1, 1);  // before the device type
    }
    EXPECT_FALSE(ErasePayments() || Payments[2].name[0] || Payments[2].total);
    EXPECT_EQ(pSendPayment(1, "A", 1, 1), 20) << "starts no session: type 13, a closed port";

    int32_t free_slots = 0;
    for (int32_t slot = 1; slot <= 6; ++slot) {
        EXPECT_EQ(pFillLines(slot, "Linia", &free_slots), 0);
        EXPECT_EQ(free_slots, 6 - slot);
        EXPECT_EQ(AdditionalLines[slot].number, slot);
    }
    EXPECT_EQ(pFillLines(1, "x", &free_slots), 216);
    EXPECT_EQ(pFillLines(23, "x", &free_slots), 215) << "the number is checked first";
    EXPECT_EQ(xFillLines(1, "x"), 0);
    EXPECT_EQ(LastError(), 216);
    EXPECT_EQ(EraseLines(), 0);
    EXPECT_STREQ(AdditionalLines[3].text, "");
    EXPECT_EQ(xFillLines(22, "x"), 5);
    EXPECT_EQ(xFillLines(-7, "negative numbers pass"), 4);
    EXPECT_EQ(AdditionalLines[2].number, -7);
}

TEST_F(Payment, EachKindByDeviceType) {
    for (int type = 1; type <= 13; ++type) {
        StartSession(type);
        pFillPayment(1, "A", 1, 2);
        const int32_t payments = type == 4 || type >= 8 ? 0 : 213;
        Expect(payments ? "" : "81>01,'Got\xA2wka'13,#5000 82>01,'Got\xA2wka'13,#-1", payments,
               pSendPayment, 1, "Got\xF3wka", 5000, -1);
        EXPECT_EQ(Payments[1].total, 1) << "the slots are not touched";

        const int32_t first = type == 8 || (type >= 10 && type <= 12) ? 0 : 213,
                      second = type == 13 ? 0 : first;
        Expect(first ? "" : "83>'E\xA5'3,'1234567890',01,#-2", first, pCurrencyPayment1, "E\xB9",
               "1234567890123", 257, -2, 1);
        EXPECT_EQ(pCurrencyPayment1("EUR", "4", 1, 2, 0), first);
        EXPECT_EQ(CP1.send * CP1.subtotal, first ? 0 : 2) << "deferred";
        // The third field has the change unless the kind is 0, the fourth unless it is 1.
        for (const auto& [kind, changes] :
             {std::pair(0, "#0,#3"), {1, "#3,#0"}, {2, "#3,#3"}, {-1, "#3,#3"}})
            Expect(second ? "" : std::string("84>#1,#2,") + changes, second, pCurrencyPayment2, 1,
                   2, 3, kind, -1);
        EXPECT_EQ(pCurrencyPayment2(1, 2, 3, 1, 0), second);
        EXPECT_EQ(CP2.send * CP2.change, second ? 0 : 3);
    }
}

TEST_F(Payment, AdditionalCurrencyPaymentDoesNotStoreItsOutcome) {
    // The first version that has it, by type from 1.
    const int first[] = {99, 99, 99, 6, 99, 99, 0, 2, 0, 0, 0, 0, 0};
    for (int type = 1; type <= 13; ++type) {
        for (int version : {0, 1, 2, 5, 6, 9}) {
            SCOPED_TRACE(testing::Message() << type << " version " << version);
            StartSession(type, version);
            Prog = version;
            const int32_t result = version >= first[type - 1] ? 0 : 213;
            EXPECT_EQ(Call(result ? "" : "08>02,FF,'E\xB9R',#1,#42000,04,#420",
                           pAdditionalCurrencyPayment, 258, -1, "E\xB9RO", 1, 42000, 4, 420),
                      result);
            EXPECT_EQ(pAdditionalCurrencyPayment(1, 0, "EU", 1, 1, 1, 1), result == 0 ? 231 : 213);
            EXPECT_EQ(LastError(), result) << "a missing command is stored, a short name is not";
        }
    }
    os.writable_bytes = 0;
    EXPECT_EQ(pAdditionalCurrencyPayment(1, 0, "EUR", 1, 1, 1, 1), 20);
    EXPECT_EQ(LastError(), 0) << "nor is the engine's number";
}

}  // namespace
