// What the driver asks of Windows, call by call.
#include <filesystem>

#include "gtest/gtest.h"
#include "koraxdr.h"
#include "platform/clock.h"
#include "port/portpro.h"
#include "port/sysseria.h"
#include "system/simulator_process.h"
#include "trace/message.h"
#include "wine/call_recorder.h"

namespace {

using call_recorder::recorded;
using call_recorder::Taken;

class Win32Calls : public testing::Test {
  protected:
    static void SetUpTestSuite() { call_recorder::Install(); }
    void SetUp() override { recorded = {}; }
    void TearDown() override {
        recorded = {};
        UnInitializePort();
    }
    static void Open() {
        ASSERT_EQ(0u, InitializePort(7, 4800, 2, 3));
        ClearPort();  // of what a test before this one left
        Taken();
    }
    // The byte that was read, or kNothing.
    static int Read() {
        uint8_t byte = 0;
        return ReadByte(byte) ? byte : kNothing;
    }
    static std::string CallsOfAPurge() {
        Taken();
        ClearPort();
        return Taken();
    }

    static constexpr int kNothing = -1;
};

const std::string kOpened =
    "CreateFileA \\\\.\\COM7 C0000000 0 0 3 80 0\nWaitForSingleObject 100\n";
// Binary, parity checked, output on CTS, abort on error; nothing else is left of the line's past.
const std::string kApplied =
    "GetCommState 28\nSetCommState 28 4800 4007 xon0 xoff0 820 chars00000\nSetupComm 4096 2048\n"
    "GetCommTimeouts\nSetCommTimeouts BB8 0 3000 7070707 2000\nSetCommMask 1FF\nClearCommError\n"
    "GetFileType\n";

}  // namespace

TEST_F(Win32Calls, OpenALineWithExactlyTheseSettings) {
    UstawCTS(0);  // has no effect: output waits for CTS on every line that is opened
    EXPECT_EQ(0u, InitializePort(7, 4800, 2, 3));
    EXPECT_EQ(kOpened + kApplied + "WaitForSingleObject 100\n", Taken());
    EXPECT_EQ(0u, UnInitializePort());
    EXPECT_EQ("CloseHandle\n", Taken());

    // No time-out for reading: what is queued, at once.
    EXPECT_EQ(0u, pInitializeLPTPort(2, 19200, 0, 0));
    const std::string calls = Taken();
    EXPECT_EQ(0u, calls.find("CreateFileA \\\\.\\LPT2 C0000000 0 0 3 80 0\n"));
    EXPECT_NE(std::string::npos, calls.find("SetCommTimeouts FFFFFFFF 0 0 7070707 0\n")) << calls;
}

TEST_F(Win32Calls, ThatFailCloseTheLineAndGiveTheirError) {
    const std::string calls = kOpened + kApplied;
    for (const std::string failing :
         {"CreateFileA", "GetCommState", "SetCommState", "SetupComm", "GetCommTimeouts",
          "SetCommTimeouts", "SetCommMask", "ClearCommError", "GetFileType"}) {
        recorded.failing = failing;
        SetLastError(call_recorder::kFailure);
        EXPECT_EQ(call_recorder::kFailure, InitializePort(7, 4800, 2, 3)) << failing;
        const std::string made = calls.substr(0, calls.find('\n', calls.find(failing)) + 1);
        EXPECT_EQ(failing == "CreateFileA" ? made : made + "CloseHandle\n", Taken()) << failing;
    }
}

TEST_F(Win32Calls, MoveBytesAllOrNot) {
    Open();
    const uint8_t bytes[] = {0x1B, 0x23};
    EXPECT_TRUE(PoslanoCiagBajtow1(bytes, 2));
    EXPECT_EQ("WriteFile 2 1B\n", Taken());
    EXPECT_TRUE(WriteByte(0x06));
    EXPECT_EQ("WriteFile 1 06\n", Taken());
    EXPECT_EQ(0x5A, Read());
    EXPECT_EQ("ReadFile 1\n", Taken());
    recorded.moved = {{"WriteFile", 1}, {"ReadFile", 0}};
    EXPECT_FALSE(PoslanoCiagBajtow1(bytes, 2)) << "the time-out has passed";
    EXPECT_EQ(kNothing, Read()) << "the time-out has passed";
    recorded.moved = {};
    recorded.failing = "WriteFile";
    EXPECT_FALSE(WriteByte(1));
    recorded.failing = "ReadFile";
    EXPECT_EQ(kNothing, Read());
    recorded.failing = "PurgeComm";
    Taken();
    EXPECT_EQ(call_recorder::kFailure, ClearPort());
    EXPECT_EQ("PurgeComm 5\n", Taken());
}

TEST_F(Win32Calls, ADamagedByteFailsOneTransferOnly) {
    Open();
    recorded.aborting = true;
    EXPECT_EQ(kNothing, Read());
    EXPECT_EQ(0x5A, Read());
    recorded.aborting = true;
    EXPECT_FALSE(WriteByte(1));
    EXPECT_TRUE(WriteByte(1));
}

// Clearing the output would throw away what an adapter has taken but the line has not carried yet.
TEST_F(Win32Calls, ClearOutputOnlyBehindATransferThatFailed) {
    Open();
    EXPECT_TRUE(WriteByte(1));
    EXPECT_EQ(0x5A, Read());
    EXPECT_EQ("PurgeComm 10\n", CallsOfAPurge());
    recorded.moved = {{"WriteFile", 0}, {"ReadFile", 0}};
    for (const bool writing : {true, false}) {
        SCOPED_TRACE(writing ? "write" : "read");
        EXPECT_FALSE(writing ? WriteByte(1) : Read() != kNothing);
        EXPECT_EQ("PurgeComm 5\nPurgeComm 10\n", CallsOfAPurge());
        EXPECT_EQ("PurgeComm 10\n", CallsOfAPurge());
    }
}

TEST_F(Win32Calls, OfTheOtherOperationsOfAPort) {
    const struct {
        const char* calls;
        bool (*operation)();
    } rows[] = {
        {"EscapeCommFunction 5\n", SetDTRLine},
        {"EscapeCommFunction 6\n", ClearDTRLine},
        {"EscapeCommFunction 3\n", SetRTSLine},
        {"EscapeCommFunction 4\n", ClearRTSLine},
        {"GetCommModemStatus\n", [] { return ModemStatus() == 0xF0; }},
        {"FlushFileBuffers\nWaitForSingleObject 4\n", [] { return CharSent(), true; }},
        {"SleepEx 12 0\n", [] { return platform::SleepMs(12), true; }},
        {"CreateFileA \\\\.\\COM12 C0000000 0 0 3 80 0\nCloseHandle\n",
         [] { return SerialPortPresent(12); }},
        {"MessageBoxA 0 'Sent to function pErrMessage:\n1.ErrNo: 5\n' 'DEBUG MODE' 64\n",
         [] {
             char text[256];
             SetDebugMode();
             const bool shown = pErrMessage(5, text) == 0;
             ClearDebugMode();
             return shown;
         }},
    };
    Open();
    for (const auto& row : rows) {
        EXPECT_TRUE(row.operation()) << row.calls;
        EXPECT_EQ(row.calls, Taken());
    }
    EXPECT_TRUE(ChangeParity(1));
    std::string odd = kApplied;
    EXPECT_EQ("PurgeComm 10\nWaitForSingleObject 50\n" + odd.replace(odd.find("820"), 3, "810") +
                  "WaitForSingleObject 100\n",
              Taken());
}

TEST(Trace, AppendsItsLinesInTheSystemsTextFormat) {
    const auto folder = std::filesystem::current_path();
    std::filesystem::current_path(system_tests::ScratchFolder());
    Printf(0, "abc");
    Printf(0, "n=%d3;", 7);
    std::filesystem::current_path(folder);
    EXPECT_EQ("***DEBUG*abc\r\n***DEBUG*n=007;\r\n\r\n",
              Contents(system_tests::ScratchFolder() + "/debug.txt"));
}
