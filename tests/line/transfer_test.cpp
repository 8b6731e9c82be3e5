// Moving bytes: time-outs, purges, damaged bytes, lines that block or vanish.
#include <signal.h>
#include <sys/time.h>
#include <termios.h>

#include <cerrno>
#include <numeric>

#include "line/line_test.h"

namespace {

using std::string_literals::operator""s;

using Transfer = LineTest;

const std::string kFlood(1 << 20, 'f');  // more than any queue takes

TEST_F(Transfer, TimeoutZeroTakesWhatIsThereAndAPurgeForgetsIt) {
    Open(0);
    EXPECT_EQ(Read(1), "");
    terminal.Send("stale");
    EXPECT_EQ(Read(1), "s");
    terminal.Send("more");
    EXPECT_EQ(platform::PurgeInput(line), 0U);
    EXPECT_EQ(Read(1), "") << "what was taken from the line is lost as well";
    terminal.Send("new");
    EXPECT_EQ(Read(9), "new");
    ExpectSeconds(0);
}

TEST_F(Transfer, EveryByteValuePassesUnchangedBothWays) {
    Open(0);
    std::string block(10'240, '\0');
    std::iota(block.begin(), block.end(), '\0');
    const std::string all = block.substr(0, 256);
    terminal.Send(all);
    EXPECT_EQ(Read(256), all);
    EXPECT_EQ(Write(block), block.size());
    EXPECT_EQ(Read(1), "") << "with time-out 0 no news is no failure";
    EXPECT_EQ(platform::PurgeOutput(line), 0U);
    EXPECT_EQ(platform::PurgeInput(line), 0U);
    EXPECT_EQ(terminal.Receive(block.size()), block) << "what was written survives a purge";
}

TEST_F(Transfer, ADamagedByteIsAFailedReadAndIsGone) {
    Open(0);
    // From here on the line delivers the device's bytes unmarked, so that they can be marks.
    termios modes{};
    ASSERT_EQ(tcgetattr(terminal.master, &modes), 0);
    modes.c_iflag &= ~static_cast<tcflag_t>(PARMRK);
    ASSERT_EQ(tcsetattr(terminal.master, TCSANOW, &modes), 0);
    // What is sent, and one-byte reads, of which '-' is a failed one.
    for (const auto& [sent, reads] : {
             std::pair("a\xFF\x00xb"s, "a-b"s),    // parity or framing error
             {"\xFF\x00\x00z"s, "-z"s},            // break
             {"\xFF\xFFq"s, "\xFFq"s},             // a byte 0xFF
             {"\xFF\xFF\x00x"s, "\xFF\x00x"s},     // 0xFF and then 0: no mark
             {"\xFF\x00\xFF\xFF\xFF"s, "-\xFF"s},  // a damaged 0xFF, then a good one
         }) {
        terminal.Send(sent);
        for (const char expected : reads)
            EXPECT_EQ(Read(1), expected == '-' ? "" : std::string(1, expected)) << sent;
        EXPECT_EQ(Read(1), "");
    }
    terminal.Send("ab\xFF\x00xcd"s);
    EXPECT_EQ(Read(5), "ab") << "the count says where it broke off";
    EXPECT_EQ(Read(5), "cd");
    for (const std::string& piece : {"\xFF"s, "\x00"s, "x."s}) {
        EXPECT_EQ(Read(1), "") << "a mark may arrive in pieces";
        terminal.Send(piece);
    }
    EXPECT_EQ(Read(1), "");
    EXPECT_EQ(Read(1), ".");
}

TEST_F(Transfer, ABlockedLineEndsWithTheTimeoutAndItsRestNeverLeaves) {
    for (const uint32_t timeout_s : {0U, 1U}) {
        Open(timeout_s);
        const uint32_t moved = Write(kFlood);
        EXPECT_LT(moved, kFlood.size());
        ExpectSeconds(timeout_s, 0.5);
        if (timeout_s == 0) platform::PurgeOutput(line);
        EXPECT_EQ(Write("."), 1U) << "with no purge before it, the write itself makes room";
        const std::string received = terminal.Receive(kFlood.size());
        EXPECT_LT(received.size(), moved);
        EXPECT_EQ(received.back(), '.');
        Write(kFlood);
        ExpectSeconds(timeout_s);
        Close();
        ExpectSeconds(0);
        terminal.Receive(kFlood.size());
    }

    Open(5);
    std::thread device([&] { EXPECT_EQ(terminal.Receive(100'000, 5'000).size(), 100'000U); });
    EXPECT_EQ(Write(kFlood.substr(0, 100'000)), 100'000U) << "it moves again and takes the rest";
    device.join();
}

TEST_F(Transfer, AHangUpFailsItAtOnce) {
    Open(5);
    terminal.Send("a");
    std::thread device([&] {
        terminal.AwaitReady([](int ready) { return ready == 0; });
        terminal.HangUp();
    });
    const clock_t processor_before = clock();
    EXPECT_EQ(Read(2), "a");  // in the middle of an answer
    errno = EAGAIN;           // left by whatever the application called before
    EXPECT_EQ(Read(1), "");
    EXPECT_EQ(Write("x"), 0U);
    EXPECT_NE(platform::PurgeInput(line), 0U);
    EXPECT_NE(platform::ApplySettings(line, {9600, 8, 2, 0, true, 5, 5}), 0U);
    Close();
    ExpectSeconds(0);
    EXPECT_LT(clock() - processor_before, CLOCKS_PER_SEC / 4);
    device.join();
}

TEST_F(Transfer, SignalsNeitherEndNorProlongIt) {
    Open(1);
    struct sigaction action = {}, previous = {};
    action.sa_handler = [](int) {};  // without SA_RESTART: every call is interrupted
    sigaction(SIGALRM, &action, &previous);
    const itimerval often{{0, 500}, {0, 500}}, never{};
    setitimer(ITIMER_REAL, &often, nullptr);

    const std::string question(10'000, 'q');
    EXPECT_EQ(Write(question), question.size());
    ExpectSeconds(0);
    EXPECT_EQ(Read(1), "");
    ExpectSeconds(1);
    // The read failed: what nobody has taken by then is not sent later.
    EXPECT_EQ(platform::PurgeOutput(line), 0U);
    EXPECT_EQ(Write("!"), 1U);
    const std::string received = terminal.Receive(question.size());
    EXPECT_LT(received.size(), question.size());
    EXPECT_EQ(received.back(), '!');
    ExpectSeconds(0);
    EXPECT_LT(Write(kFlood), kFlood.size());
    ExpectSeconds(1);

    setitimer(ITIMER_REAL, &never, nullptr);
    sigaction(SIGALRM, &previous, nullptr);
}

}  // namespace
