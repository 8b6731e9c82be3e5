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

const UINT kNumber = RegisterWindowMessageA("driver and server");  // others are not broadcast
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
    // The outcome of an exchange while the server has suspended the driver, with a BREAK sent after
    // the time.
    static int ExchangeWhileSuspended(int break_after_ms) {
        FunkcjaWStanieUspienia = 1;
        std::promise<void> over;
        std::thread server([&] {
            const std::chrono::milliseconds time(break_after_ms);
            broken_ = over.get_future().wait_for(time) == std::future_status::timeout;
            if (broken_) Post('b');
        });
        NumerBledu = 0;
        PoslanieSekwencjiSterujacejBezRetransmisji(0x23, 1, 0, 0);
        over.set_value();
        server.join();
        return NumerBledu;
    }
    // The program's own loop finds that it has been told to quit, and with what.
    static void ExpectQuit(WPARAM code) {
        MSG message{};
        ASSERT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
        EXPECT_EQ(std::tuple(WM_QUIT, code), std::tuple(message.message, message.wParam));
        EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) << message.message;
    }

    static constexpr int kFarTooLateMs = 10'000;
    static inline bool broken_ = false;
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

// The broadcast reaches the windows of all processes, this one's among them.
TEST_F(Messages, AreBroadcastWithTheValueClipped) {
    const HWND window =
        CreateWindowA("STATIC", "", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    EXPECT_TRUE(MsgToServer_('C', 0x1000001));
    uint32_t process = 0, value = 0;
    char letter = 0;
    for (int tries = 0; tries < 1000 && letter == 0; ++tries, Sleep(10)) {
        letter = WinRcvMsg('S', &process, &value);
    }
    EXPECT_EQ(std::tuple('C', GetCurrentProcessId(), 0xFFFFFFu),
              std::tuple(letter, process, value));
    DestroyWindow(window);
}

TEST_F(Messages, ASuspendedDriverWaitsForTheServer) {
    EXPECT_EQ(56, ExchangeWhileSuspended(50));
    EXPECT_TRUE(broken_);
}

TEST_F(Messages, ASuspendedProgramThatIsToldToQuitGetsAway) {
    PostQuitMessage(5);
    EXPECT_EQ(56, ExchangeWhileSuspended(kFarTooLateMs));
    EXPECT_FALSE(broken_);
    ExpectQuit(5);
}

TEST_F(Messages, ASuspendedDriverServesEveryLetterThatIsQueued) {
    PostThreadMessageA(kThread, WM_APP, 0, 0);
    PostThreadMessageA(kThread, WM_APP, 0, 0);
    for (const char letter : {'c', 'l', 'b'}) Post(letter);
    call_recorder::Install();
    call_recorder::recorded = {};
    EXPECT_EQ(56, ExchangeWhileSuspended(kFarTooLateMs));
    EXPECT_FALSE(broken_);
    EXPECT_EQ("", call_recorder::Taken()) << "the wait is for messages that nobody has seen yet";
}
