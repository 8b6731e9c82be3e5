#include "scenario/shop.h"

using memory::os;

void Shop::Open(const sim::DeviceOptions& options) {
    ResetDriver();
    line_.emplace(options);
    os.peer = &*line_;
    ASSERT_EQ(Connect(), 0);
    ASSERT_EQ(Urzadzenie, options.type);
}

int32_t Shop::Sell(const std::string& name, int32_t rate, int32_t quantity, int32_t decimals,
                   int32_t price, bool sale) {
    return pReceiptItemEx(sale ? 1 : 0, Cp1250(name).c_str(), rate, 0, quantity, decimals, "szt.",
                          price);
}

void Shop::ExpectReceipt() {
    const int before = device().receipt_counter();
    EXPECT_EQ(ReceiptBegin(), 0);
    EXPECT_EQ(SellBread(), 0);
    EXPECT_EQ(ReceiptEnd(0), 0);
    EXPECT_EQ(device().receipt_counter(), before + 1);
    EXPECT_EQ(receipt().total, 375);
    EXPECT_EQ(receipt().sales.size(), 1u);
}
