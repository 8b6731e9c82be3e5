// The debug box and the trace log.
#include <algorithm>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>

#include "links/msgqueue.h"
#include "support/driver_test.h"
#include "trace/message.h"

namespace {

using Action = std::function<void()>;
using DebugBox = DriverTest;

TEST_F(DebugBox, ShowsTheArgumentsOfEachFunction) {
    int32_t cell = 77, amount = -3;
    // The misspelt words are meant.
    for (const auto& [call, text] : std::initializer_list<std::pair<Action, std::string>>{
             {[] { OpenPort(1, 9600, 2, 3); },
              "function OpenPort: |1.Port: 1|2.BaudRate: 9600|3.WriteTimeout: 2|4.ReadTimeout: 3|"},
             {[] { SetVAT(7, 1, 2, 3, 4, 5, 6, 8); },
              "function SetVAT:|1.QuantityOfRates: 7|2.A: 1|3.B: 2|4.C: 3|5.D: 4|6.E: 5|7.F: "
              "6|8.G: 8|"},
             {[] { ReceiptEndEx(10, 2); },
              "function ReceiptEndEx: |1.DiscountSurcharge: 10|2.TypeOfDiscountSurcharge: 2|"},
             {[&] { pReceiptItem(1, "Chleb", 2, 3, 4, 5, "kg", 6, &amount); },
              "function pReceiptItem: |1.Sale: 1|2.Name: Chleb|3.TaxRate: 2|4.Communicate: 3|"
              "5.Quantity: 4|6.QAC: 5|7.Unit: kg|8.Price: 6|9.Amount: -3|"},
             {[] { pFillPayment(9, "Karta", 1, 2); },
              "function pFillPayment: |1.PaymentNo: 9|2.PamentName: Karta|3.Total: 1|4.Change: 2|"},
             {[&] { pFillLines(23, "x", &cell); }, "functon pFillLines:|1.Number: 23|2.Line: x|"},
             {[] { pCurrencyPayment1("EUR", "4.2", 1, 2, 0); },
              "function pCurrencyPayment1: |1.CurrencyName: EUR|2.Rate: 4.2|3.Qantity: 1|"
              "4.Subtotal: 2|5.Send: 0|"},
             {[] { pAdditionalCurrencyPayment(1, 2, "", 3, 4, 5, 6); },
              "function pAdditionalCurrencyPayment: |1.Number: 1|2.IsChange: 2|3.Name: |"
              "4.PaidInForeignCurrency: 3|5.ExchangeRate: 4|6.QAC: 5|7.PaidInBaseCurrency: 6|"}}) {
        Fresh();
        SetDebugMode();
        call();
        ClearDebugMode();
        call();
        ASSERT_EQ(os.notices.size(), 1u) << text;
        std::ranges::replace(os.notices[0], '\n', '|');
        EXPECT_EQ(os.notices[0], "DEBUG MODE|Sent to " + text);
    }
    StartSession(7);
    SetDebugMode();
    Call(Identify(7, 3), IsCodePage1250, &cell);
    EXPECT_TRUE(os.notices.empty()) << "asked by every receipt it shows nothing";
    pFillPayment(1, std::string(9000, 'x').c_str(), 1, 2);  // fits
}

class Trace : public DriverTest {
  protected:
    Trace() { std::filesystem::current_path(mkdtemp(folder_)); }
    ~Trace() override {
        std::filesystem::current_path("/");
        std::filesystem::remove_all(folder_);
    }
    static void Input(const char* text) {
        std::ofstream("input") << text;
        ASSERT_NE(std::freopen("input", "r", stdin), nullptr);
    }
    static std::string Printed(const Action& call) {
        testing::internal::CaptureStdout();
        call();
        return testing::internal::GetCapturedStdout();
    }
    // The log, which is then removed.
    static std::string File(const char* name) {
        std::string text;
        std::getline(std::ifstream(name), text, '\0');
        std::filesystem::remove(name);
        return text;
    }

  private:
    char folder_[32] = "/tmp/korax-trace-XXXXXX";
};

TEST_F(Trace, FormatsByItsOwnRules) {
    const char* eighteen = "%d%d%d%d%d%d%d%d%d%d%d%d%d%d%d%d%d%d";
    for (const auto& [call, line] : std::initializer_list<std::pair<Action, std::string>>{
             {[] { Printf(1, "n=%d3;", 7); }, "n=007;"},
             {[] { Printf(0, "%d%s|%d", -7, "text", 0); }, "-7text|0"},
             {[] { Printf(0, "%d20.%d01.", 7, 7); }, "07.0000000007."},  // units first
             {[] { Printf(0, "a%Fdropped%sx", "X", "b"); }, "abx"},      // into debug.txtX
             {[] { Printf(0, "a%qdropped%d", 5); }, "a5"},
             {[] { Printf(0, "%s-12345678901234567890", "x"); }, "x-12345678901234567"},
             {[=] { Printf(0, eighteen, 1, 2, 3, 4, 5, 6, 7, 8, 9, 1, 2, 3, 4, 5, 6, 7, 8, 9); },
              "123456789123456789"},
         }) {
        Input("xy");
        EXPECT_EQ(Printed(call), "***DEBUG*" + line);
        EXPECT_EQ(File(line == "abx" ? "debug.txtX" : "debug.txt"), "***DEBUG*" + line + "\n\n");
        EXPECT_EQ(std::getchar(), 'y') << "one character was waited for";
    }
    Input("a");
    EXPECT_EQ(Printed([] { Printf(0, "abc"); }), "***DEBUG*abc");
    EXPECT_EQ(File("debug.txt"), "***DEBUG*abc\n");
    EXPECT_EQ(std::getchar(), 'a') << "without a directive it does not wait";
    // The text before is a segment too.
    EXPECT_EQ(Printed([&] { Printf(0, (std::string("text") + eighteen).c_str()); }),
              "ERROR: funkcji Printf, za duzo parametrow !!!");
    EXPECT_FALSE(std::filesystem::exists("debug.txt"));
    EXPECT_EXIT(Printf(0, "%c", 'x'), testing::KilledBySignal(SIGILL), "");
}

TEST_F(Trace, ServerCommandsAreTraced) {
    InicjujKompletniePortSzeregowy();
    InitMsgID_(0xC123);
    DebugowacDzialanieFunkcji = 1;
    CoIleSygnalizowacLicznikPoslanychSekwencji = 2;
    std::strcpy(NazwaFunkcji, "sklep");
    for (const auto& [letter, tail] : {std::pair('l', " wykonal rozkaz LINES Serwera ###\n"),
                                       {'x', " odebral nieznany rozkaz Serwera ###\n"},
                                       {'b', " wykonal rozkaz BREAK Serwera ###\n"},
                                       {'\0', " poslal komunikat COUNTER do Serwera ###\n"}}) {
        if (letter != 0) os.pending = {{0xC123, memory::kProcessId, letter}};
        device.Play(letter == 'l' || letter == 0 ? "23<06" : "");
        EXPECT_EQ(Printed([] { PoslanieSekwencjiSterujacej(0x23, 1, 0, 0); }),
                  std::string("***DEBUG*###DRIVER: sklep, PID=4321") + tail);
    }
}

}  // namespace
