// Receipt items: the three layouts, the checks, the value, the totals, and the device's last word.
#include <fmt/format.h>

#include "support/driver_test.h"

namespace {

// An item as the application passes it, with what most cases share: 1.500 kg at 2.50.
struct Goods {
    std::string name = "Chleb";
    int32_t rate = 1, communicate = 0, quantity = 1500, decimals = 3, price = 250, amount = 0,
            sale = 1;
    std::string unit = "kg";
};

class Item : public DriverTest {
  protected:
    int32_t Sell(const std::string& conversation, Goods& g) {
        return Call(conversation, pReceiptItem, g.sale, g.name.c_str(), g.rate, g.communicate,
                    g.quantity, g.decimals, g.unit.c_str(), g.price, &g.amount);
    }
    static bool AsksReason(int type) { return type >= 8 && type <= 12; }
    // What the driver asks before an item, and after one: did the device keep the receipt?
    static std::string Before(int type) { return AsksReason(type) ? "" : "95<EF "; }
    static std::string After(int type) { return AsksReason(type) ? " 50<0600" : " 95<EF"; }
    // The data of layouts S and L with a name field of this width; rate and value as sent.
    static std::string Data(const Goods& g, int width, int rate, int64_t value) {
        return fmt::format("{:02X},'{}'{},{:02X},#{},{:02X},'{}'4,#{},1B,{:02X},#{}",
                           g.sale == 1 ? 0x20 : 0x2D, g.name, width, 0x30 + g.communicate,
                           g.quantity, g.decimals, g.unit, g.price, rate, value);
    }
    static std::string Short(const Goods& g, int rate = 1, int64_t value = 375) {
        return "06>" + Data(g, 28, rate, value);
    }
};

TEST_F(Item, TheNameChoosesTheLayoutByType) {
    for (int type = 1; type <= 13; ++type) {
        for (int version : {1, 2}) {
            for (std::size_t length : {1u, 28u, 29u, 40u, 41u, 80u, 81u, 120u}) {
                SCOPED_TRACE(fmt::format("type {} version {}, name of {}", type, version, length));
                OpenReceipt(type, version);
                Prog = version;
                Goods g{.name = ""};
                for (std::size_t i = 0; i < length; ++i) g.name += static_cast<char>('a' + i % 23);
                std::string item = "05>" + Data(g, 40, 1, 375);
                if (length < 29 || type <= 4 || (type == 8 && version < 2)) {
                    item = Short(g);
                } else if (type == 7 || type == 9) {
                    // 49 bytes of command 6 although the long layout was filled in: meant.
                    item = fmt::format("06>20,'{}'40,30,#1500,03,'kg'", g.name);
                } else if (length > 40 && type != 8 && type != 12) {
                    item = "B0>'C',1B,B3<06 B0>'D" + g.name.substr(0, 40) +
                           "',00,'1.500 kg   * 2.50 =',0A0D,'" + g.name.substr(40, 40) +
                           (length > 80 ? "',0A0D,'" + g.name.substr(80, 40) : "") +
                           "',1B,B1,'a3.75',1B,B2,'A',1B,B3<06";
                }
                EXPECT_EQ(Sell(Before(type) + item + After(type), g), 0);
                EXPECT_EQ(ReceiptState(), "open lines=1 A=375");
                EXPECT_EQ(g.amount * OstatniaStawka, WyliczonaWartoscPoz);
            }
        }
    }
}

TEST_F(Item, TextsAreConvertedAndTheTextLayoutTakesTheCallersRate) {
    OpenReceipt(10, 3, 2);
    Goods g{std::string(130, '\xB9'), 7, 0, 7, 0, 5, 0, 0, "\xF3sztuki"};
    const std::string item =
        "B0>'D',86x40,00,'7 \xA2szt * 0.05 =',0A0D,86x40,0A0D,86x40,1B,B1,'a0.35',1B,B2,'G',1B,B3";
    Total[5] = 100;
    EXPECT_EQ(Sell("B0>'C',1B,B3<06 " + item + "<06 50<0600", g), 0);
    EXPECT_EQ(OstatniaStawka, 5);
    EXPECT_EQ(ReceiptState(), "open lines=1 E=65") << "a correction, at the rate as sent";
    EXPECT_EQ(Sell(item + "<06 50<0600", g), 0) << "only the first item opens";
    for (const auto& [answer, result] : {std::pair("<15", 21), {"<05", 23}, {"", 21}}) {
        EXPECT_EQ(Sell(item + answer, g), result) << "NAK reads as its own number here";
        PierwszaPozycjaSprzedazy = 1;
        EXPECT_EQ(Sell(std::string("B0>'C',1B,B3") + answer, g), result) << "a refused opening";
    }
    EXPECT_EQ(ReceiptState(), "open lines=2 E=30");
}

TEST_F(Item, ValueIsRoundedHalfUpAndCheckedAgainstTheCaller) {
    // Price, quantity, decimals, amount, way of rounding; the value sent (-1: none).
    for (const auto& [price, quantity, decimals, amount, method, sent, result, cell] :
         {std::tuple(333, 1, 1, 0, 0, 33, 0, 33),
          {5, 1, 1, 0, 0, 1, 0, 1},
          {250, 1500, 3, 376, 0, 376, 209, 376},
          {999999999, 1, 0, 0, 0, 999999999, 0, 999999999},
          // too large, also when it is so only before rounding
          {500000000, 2, 0, 0, 0, -1, 227, 1000000000},
          {999900009, 10001, 4, 0, 0, -1, 227, 999999999},
          // to tens, to whole units
          {995, 1, 0, 0, 1, 1000, 0, 1000},
          {350, 1, 0, 0, 2, 400, 0, 400}}) {
        SCOPED_TRACE(fmt::format("{} x {}, {} decimals", price, quantity, decimals));
        OpenReceipt(10);
        SposobZaokraglania = method;
        Goods g{.quantity = quantity, .decimals = decimals, .price = price, .amount = amount};
        EXPECT_EQ(Sell(sent < 0 ? "" : Short(g, 1, sent) + After(10), g), result);
        EXPECT_EQ(g.amount, cell);
        EXPECT_EQ(Total[1], result == 0 ? sent : 0);
        EXPECT_EQ(WydrukowanychLiniiPar, sent < 0 ? 0 : 1);
    }
}

TEST_F(Item, ChecksDoNotStopTheSendingAndTheLastOneWins) {
    const std::string all = "abcdefghijklm";
    // The types on which the check fails are letters, from a for type 1.
    for (const auto& [goods, rate, value, types, result] : {
             std::tuple(Goods{.rate = 5}, 6, 375, std::string("a"), 203),
             {{.rate = 7}, 5, 375, "", 0},
             {{.rate = 8}, 8, 375, "abcdhjklm", 203},
             {{.rate = 9}, 9, 375, "", 0},  // passes modulo 8
             {{.communicate = 8}, 1, 375, all, 204},
             {{.quantity = 0}, 1, 0, all, 205},
             {{.quantity = 1000000, .price = 1}, 1, 1000, "abcefgi", 205},
             {{.quantity = 100000000, .price = 1}, 1, 100000, all, 205},
             {{.quantity = 150000, .decimals = 5}, 1, 375, all, 206},
             {{.price = 0}, 1, 0, all, 208},
             {{.quantity = 1, .price = 1000000000}, 1, 1000000, all, 208},
             {{.rate = 8, .communicate = 9, .quantity = 0, .decimals = 5}, 8, 0, all, 206},
             {{.communicate = 9, .amount = 1}, 1, 1, all, 209},
         }) {
        for (int type = 1; type <= 13; ++type) {
            for (int32_t optimize : {0, 1}) {
                SCOPED_TRACE(fmt::format("{}, type {}, optimised {}", result, type, optimize));
                OpenReceipt(type);
                Optimize = optimize;
                Goods g = goods;
                const bool fails = types.find(static_cast<char>('a' + type - 1)) != types.npos;
                const bool asks = !optimize || AsksReason(type);
                // An older device that keeps the receipt has accepted the line, when it is asked.
                const bool forgiven = !AsksReason(type) && !optimize;
                const std::string item = Short(g, rate, value) + (asks ? After(type) : "");
                EXPECT_EQ(Sell((optimize ? "" : Before(type)) + item, g),
                          fails && !forgiven ? result : 0);
                const bool counted = !fails && rate >= 1 && rate <= 7;
                EXPECT_EQ(ReceiptState(),
                          "open lines=1" +
                              (counted ? fmt::format(" {:c}={}", 64 + rate, value) : "") +
                              (optimize ? " optimised" : ""));
                EXPECT_EQ(OstatniaStawka, rate);
            }
        }
    }
}

TEST_F(Item, CancellationsLinkFailuresAndCorrections) {
    Goods g{.communicate = 9};
    OpenReceipt(10);
    EXPECT_EQ(Sell(Short(g) + " 50<064B", g), 210) << "the device has cancelled the receipt";
    EXPECT_EQ(ReceiptState(), "lines=1");
    OpenReceipt(4);
    EXPECT_EQ(Sell("95<00 " + Short(g) + " 95<10", g), 204) << "older: the driver's own check";
    EXPECT_EQ(ReceiptState(), "lines=1");
    OpenReceipt(4);
    g = {};
    EXPECT_EQ(Sell("95", g), 21) << "the status before is asked once";
    EXPECT_EQ(ReceiptState(), "open first");
    EXPECT_EQ(Sell("95<00 " + Short(g) + " 95 95<00", g), 0) << "the status after is asked twice";
    EXPECT_EQ(Sell("95<00 " + Short(g) + " 95 95", g), 21);
    EXPECT_EQ(ReceiptState(), "open lines=2 A=750") << "the line was counted before";
    g = {.price = 251, .sale = 2};
    for (const char* state : {"open lines=3 A=373", "open lines=4"}) {
        EXPECT_EQ(Sell("95<00 " + Short(g, 1, 377) + " 95<00", g), 0);
        EXPECT_EQ(ReceiptState(), state) << "a correction never leaves a total below zero";
    }
    OpenReceipt(12);
    EXPECT_EQ(Sell(Short(g, 1, 377) + " 50<15", g), 24);
    EXPECT_EQ(ReceiptState(), "open lines=1");
}

}  // namespace
