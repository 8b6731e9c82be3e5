// What goes wrong at the counter, on every device type, and that the next receipt works.
#include "scenario/shop.h"

namespace {

class Fault : public Shop {
  protected:
    // On every type, a receipt with a loaf of bread in it; afterwards the next receipt has to work.
    void OnEveryType(const std::function<void()>& test) {
        for (int type = sim::kFirstType; type <= sim::kLastType; ++type) {
            SCOPED_TRACE(testing::Message() << "type " << type);
            Open(type);
            ASSERT_FALSE(ReceiptBegin() || SellBread());
            test();
            ExpectReceipt();
        }
    }
    // A call while the device is silent.
    template <class Function, class... Arguments>
    int32_t InSilence(Function function, Arguments... arguments) {
        device().faults().silent = true;
        const int32_t result = function(arguments...);
        device().faults().silent = false;
        return result;
    }
    static int32_t Reason() {
        int32_t code = -1;
        char text[256];
        EXPECT_EQ(CancellationReason(&code, text), 0);
        EXPECT_NE(text[0], '\0');
        return code;
    }
};

TEST_F(Fault, CancelledByTheApplicationOrTheDevice) {
    OnEveryType([&] {
        EXPECT_EQ(ReceiptCancel(), 0);
        EXPECT_TRUE(receipt().cancelled);
        EXPECT_EQ(Reason(), 32);
        EXPECT_EQ(ReceiptState(), "A=375");
    });
    OnEveryType([&] {
        EXPECT_EQ(Sell("Zbyt drogie", 1, 2, 0, 900000000), 227);
        EXPECT_EQ(ReceiptState(), "open lines=1 A=375") << "not even sent";
        EXPECT_EQ(Sell("Ser", 1, 1, 0, 100), 210);
        EXPECT_EQ(Reason(), 66) << "too short a name";
        EXPECT_EQ(SellBread() + ReceiptEnd(0) + ReceiptCancel(), 3 * 201);
    });
    OnEveryType([&] {
        Total[1] += 1;
        EXPECT_EQ(ReceiptEnd(0), 24);
        EXPECT_EQ(Reason(), 55) << "totals that differ";
        EXPECT_EQ(device().receipt_counter() + ParagonRozpoczety, 0);
    });
}

TEST_F(Fault, SilenceKeepsBothTotalsEqualAndLeavesAStaleFlagAtTheEnd) {
    OnEveryType([&] {
        EXPECT_EQ(InSilence(SellBread), 21);
        EXPECT_EQ(receipt().total, Total[1]) << "whether the item had been sent or not";
        EXPECT_EQ(ReceiptEnd(0), 0);
        EXPECT_EQ(device().receipt_counter(), 1);
    });
    OnEveryType([&] {
        EXPECT_EQ(InSilence(ReceiptEnd, 0), 21);
        EXPECT_EQ(ReceiptState(), "open lines=1 A=375");
        EXPECT_FALSE(device().receipt_open()) << "the device has printed it";
        EXPECT_EQ(Connect(), 0);
        EXPECT_EQ(ParagonRozpoczety, 1) << "decided by the next receipt, not by a new session";
    });
}

TEST_F(Fault, PaperRunsOut) {
    OnEveryType([&] {
        device().faults().no_paper = true;
        EXPECT_EQ(SellBread(), 0);
        EXPECT_EQ(ReceiptEnd(0), 109);
        EXPECT_EQ(ReceiptState(), "A=750") << "the receipt is closed all the same";
        EXPECT_EQ(ReceiptBegin() + PrintResume(), 2 * 109);
        device().faults().no_paper = false;
        EXPECT_EQ(PrintResume(), 0);
        EXPECT_EQ(device().receipt_counter(), 1);
    });
}

TEST_F(Fault, ThePortVanishesInTheMiddleOfAnItem) {
    for (bool optimize : {false, true}) {
        OnEveryType([&] {
            Optimize = optimize;
            os.writable_bytes = 25;
            EXPECT_EQ(SellBread(), 20);
            os.vanished = true;
            EXPECT_EQ(ReceiptCancel(), 20);
            EXPECT_EQ(Connect(), 2);
            os.vanished = false;
            os.writable_bytes.reset();
            EXPECT_EQ(ReceiptBegin(), 2) << "only a new session ends that";
            EXPECT_EQ(Connect(), 0);
        });
    }
}

}  // namespace
