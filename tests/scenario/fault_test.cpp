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
            ASSERT_EQ(ReceiptBegin(), 0);
            ASSERT_EQ(SellBread(), 0);
            test();
            ExpectReceipt();
        }
    }
    // A call while the device is silent.
    template <class Function, class... Arguments>
    int32_t InSilence(Function function, Arguments... arguments) {
        silent() = true;
        const int32_t result = function(arguments...);
        silent() = false;
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

TEST_F(Fault, AReceiptIsCancelledByTheApplication) {
    OnEveryType([&] {
        EXPECT_EQ(ReceiptCancel(), 0);
        EXPECT_TRUE(receipt().cancelled);
        EXPECT_EQ(Reason(), 32);
        EXPECT_EQ(ReceiptState(), "A=375");
    });
}

TEST_F(Fault, AReceiptIsCancelledByTheDeviceForANameItRefuses) {
    OnEveryType([&] {
        EXPECT_EQ(Sell("Zbyt drogie", 1, 2, 0, 900000000), KORAX_E_ITEM_VALUE);
        EXPECT_EQ(ReceiptState(), "open lines=1 A=375") << "not even sent";
        EXPECT_EQ(Sell("Ser", 1, 1, 0, 100), KORAX_E_RECEIPT_CANCELLED);
        EXPECT_EQ(Reason(), 66) << "too short a name";
        EXPECT_EQ(SellBread(), KORAX_E_NO_RECEIPT);
        EXPECT_EQ(ReceiptEnd(0), KORAX_E_NO_RECEIPT);
        EXPECT_EQ(ReceiptCancel(), KORAX_E_NO_RECEIPT);
    });
}

TEST_F(Fault, AReceiptIsCancelledByTheDeviceForATotalThatDiffers) {
    OnEveryType([&] {
        Total[1] += 1;
        EXPECT_EQ(ReceiptEnd(0), KORAX_E_REFUSED);
        EXPECT_EQ(Reason(), 55);
        EXPECT_EQ(device().receipt_counter(), 0);
        EXPECT_EQ(ParagonRozpoczety, 0);
    });
}

TEST_F(Fault, SilenceInAnItemKeepsBothTotalsEqual) {
    OnEveryType([&] {
        EXPECT_EQ(InSilence(SellBread), KORAX_E_RECEIVE_TIMEOUT);
        EXPECT_EQ(receipt().total, Total[1]) << "whether the item had been sent or not";
        EXPECT_EQ(ReceiptEnd(0), 0);
        EXPECT_EQ(device().receipt_counter(), 1);
    });
}

TEST_F(Fault, SilenceAtTheEndLeavesTheReceiptOpenForTheDriver) {
    OnEveryType([&] {
        EXPECT_EQ(InSilence(ReceiptEnd, 0), KORAX_E_RECEIVE_TIMEOUT);
        EXPECT_EQ(ReceiptState(), "open lines=1 A=375");
        EXPECT_FALSE(device().receipt_open()) << "the device has printed it";
        EXPECT_EQ(Connect(), 0);
        EXPECT_EQ(ParagonRozpoczety, 1) << "decided by the next receipt, not by a new session";
    });
}

TEST_F(Fault, PaperRunsOutInAReceiptThatIsThenPrintedOnce) {
    OnEveryType([&] {
        device().faults().no_paper = true;
        EXPECT_EQ(SellBread(), 0);
        EXPECT_EQ(ReceiptEnd(0), KORAX_E_NO_PAPER);
        EXPECT_EQ(ReceiptState(), "A=750") << "the receipt is closed all the same";
        EXPECT_EQ(ReceiptBegin(), KORAX_E_NO_PAPER);
        EXPECT_EQ(PrintResume(), KORAX_E_NO_PAPER);
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
            EXPECT_EQ(SellBread(), KORAX_E_SEND_TIMEOUT);
            os.vanished = true;
            EXPECT_EQ(ReceiptCancel(), KORAX_E_SEND_TIMEOUT);
            EXPECT_EQ(Connect(), KORAX_E_PORT);
            os.vanished = false;
            os.writable_bytes.reset();
            EXPECT_EQ(ReceiptBegin(), KORAX_E_PORT) << "only a new session ends that";
            EXPECT_EQ(Connect(), 0);
        });
    }
}

}  // namespace
