// The trace log.
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "links/msgqueue.h"
#include "support/contents.h"
#include "support/driver_test.h"
#include "trace/message.h"

namespace {

using Action = std::function<void()>;

class Trace : public DriverTest {
  protected:
    Trace() { std::filesystem::current_path(mkdtemp(folder_)); }
    ~Trace() override {
        std::filesystem::current_path("/");
        std::filesystem::remove_all(folder_);
    }
    // What a call prints, what it leaves in the log, and the input "xy" from where it stopped.
    static std::string Traced(const Action& call, const char* log = "debug.txt") {
        std::ofstream("input") << "xy";
        EXPECT_NE(std::freopen("input", "r", stdin), nullptr);
        testing::internal::CaptureStdout();
        call();
        const std::string printed = testing::internal::GetCapturedStdout(), text = Contents(log);
        std::filesystem::remove(log);
        return printed + "|" + text + "|" + static_cast<char>(std::getchar());
    }

  private:
    char folder_[32] = "/tmp/korax-trace-XXXXXX";
};

TEST_F(Trace, FormatsByItsOwnRules) {
    const char* eighteen = "%d%d%d%d%d%d%d%d%d%d%d%d%d%d%d%d%d%d";
    for (const auto& [call, text] : std::initializer_list<std::pair<Action, std::string>>{
             {[] { Printf(1, "n=%d3;", 7); }, "n=007;"},
             {[] { Printf(0, "%d%s|%d", -7, "text", 0); }, "-7text|0"},
             {[] { Printf(0, "%d20.%d01.", 7, 7); }, "07.0000000007."},  // units first
             {[] { Printf(0, "a%qdropped%d", 5); }, "a5"},
             {[] { Printf(0, "%s-12345678901234567890", "x"); }, "x-12345678901234567"},
             {[=] { Printf(0, eighteen, 1, 2, 3, 4, 5, 6, 7, 8, 9, 1, 2, 3, 4, 5, 6, 7, 8, 9); },
              "123456789123456789"},
         }) {
        const std::string line = "***DEBUG*" + text;
        EXPECT_EQ(Traced(call), line + "|" + line + "\n\n|y") << "one character was waited for";
    }
    EXPECT_EQ(Traced([] { Printf(0, "a%Fdropped%sx", "X", "b"); }, "debug.txtX"),
              "***DEBUG*abx|***DEBUG*abx\n\n|y");
    EXPECT_EQ(Traced([] { Printf(0, "abc"); }), "***DEBUG*abc|***DEBUG*abc\n|x");
    // The text before is a segment too.
    EXPECT_EQ(Traced([&] { Printf(0, (std::string("text") + eighteen).c_str()); }),
              "ERROR: funkcji Printf, za duzo parametrow !!!||x");
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
        const std::string line = std::string("***DEBUG*###DRIVER: sklep, PID=4321") + tail;
        EXPECT_EQ(Traced([] { PoslanieSekwencjiSterujacej(0x23, 1, 0, 0); }),
                  line + "|" + line + "\n\n|y");
    }
    DebugowacDzialanieFunkcji = 0;
    os.pending = {{0xC123, memory::kProcessId, 'b'}};
    EXPECT_EQ(Traced([] { PoslanieSekwencjiSterujacej(0x23, 1, 0, 0); }), "||x") << "not asked for";
}

}  // namespace
