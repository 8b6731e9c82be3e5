#include "scenario/shop.h"

#include <iconv.h>

using memory::os;

std::string Cp1250(const std::string& utf8) {
    std::string in = utf8, out(utf8.size(), '\0');
    char *source = in.data(), *target = out.data();
    std::size_t source_left = in.size(), target_left = out.size();
    const iconv_t converter = iconv_open("CP1250", "UTF-8");
    iconv(converter, &source, &source_left, &target, &target_left);
    iconv_close(converter);
    out.resize(out.size() - target_left);
    return out;
}

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
    EXPECT_FALSE(ReceiptBegin() || SellBread() || ReceiptEnd(0));
    EXPECT_EQ(device().receipt_counter(), before + 1);
    EXPECT_EQ(receipt().total, 375);
    EXPECT_EQ(receipt().sales.size(), 1u);
}
