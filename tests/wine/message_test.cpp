// The server link on a real message queue.
#include <windows.h>

#include <chrono>
#include <future>
#include <thread>
#include <tuple>

#include "engine/sysproc.h"
#include "gtest/gtest.h"
#include "links/msgqueue.h"
#include "wine/call_recorder.h"

namespace {

constexpr UINT kNumber = WM_APP + 1;
const DWORD kThread = GetCurrentThreadId();

class Messages : public testing::Test {
  protected:
    Messages() { InitMsgID_(kNumber); }
    ~Messages() override {
        MsgID = 0;
        FunkcjaWStanieUspienia = 0;
    }
    static void Post(char letter) {
        PostThreadMessageA(kThread, kNumber, GetCurrentProcessId(), letter);
    }
    // The outcome of an exchange while the server has suspended the driver, or "held" when only a
    // BREAK of this test ended it.
    static std::string ExchangeWhileSuspended() {
        FunkcjaWStanieUspienia = 1;
        std::promise<void> over;
        bool held = false;
        std::thread watch([&] {
            held =
                over.get_future().wait_for(std::chrono::seconds(10)) == std::future_status::timeout;
            if (held) Post('b');
        });
        NumerBledu = 0;
        PoslanieSekwencjiSterujacejBezRetransmisji(0x23, 1, 0, 0);
        over.set_value();
        watch.join();
        return held ? "held" : std::to_string(NumerBledu);
    }
    // The program's own loop finds that it has been told to quit, and with what.
    static void ExpectQuit(WPARAM code) {
        MSG message{};
        ASSERT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
        EXPECT_EQ(std::tuple(WM_QUIT, code), std::tuple(message.message, message.wParam));
        EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) << message.message;
    }
};

}  // namespace

TEST_F(Messages, TheWordToQuitIsLeftToTheProgram) {
    PostQuitMessage(3);
    EXPECT_EQ(0, MsgFromServer_());
    ExpectQuit(3);
    PostThreadMessageA(kThread, WM_QUIT, 4, 0);  // among the others, as another thread says it
    Post('c');
    const char first = MsgFromServer_();
    EXPECT_EQ('c', first != 0 ? first : MsgFromServer_()) << "at the second look at the latest";
    ExpectQuit(4);
}

TEST_F(Messages, ASuspendedProgramThatIsToldToQuitGetsAway) {
    PostQuitMessage(5);
    EXPECT_EQ("56", ExchangeWhileSuspended());
    EXPECT_EQ("56", ExchangeWhileSuspended()) << "nor does another exchange hold it";
    ExpectQuit(5);
}

TEST_F(Messages, ASuspendedDriverServesEveryLetterThatIsQueued) {
    PostThreadMessageA(kThread, WM_APP, 0, 0);
    PostThreadMessageA(kThread, WM_APP, 0, 0);
    for (const char letter : {'c', 'l', 'b'}) Post(letter);
    call_recorder::Install();
    call_recorder::recorded = {};
    EXPECT_EQ("56", ExchangeWhileSuspended());
    EXPECT_EQ("", call_recorder::Taken()) << "the wait is for messages that nobody has seen yet";
    EXPECT_EQ(0, MsgFromServer_());
}
