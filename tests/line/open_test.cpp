// Names of devices, opening, refusals, and the settings as the kernel has them afterwards.
#include <asm/termbits.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <filesystem>

#include "koraxdr.h"
#include "line/line_test.h"

namespace {

using platform::DeviceKind;

std::string NameOf(DeviceKind kind, int32_t number) {
    platform::DeviceName name = "";
    return platform::BuildDeviceName(kind, static_cast<uint32_t>(number), name) ? name : "none";
}

TEST(DeviceNames, FollowTheNumberUnlessNamedOtherwise) {
    const std::string longest(256, 'p'), too_long(257, 'q');
    for (const auto& [port, path, result, name] : {
             std::tuple(1, "", 0, std::string("/dev/ttyS0")),
             {255, "/dev/ttyUSB0", 0, "/dev/ttyUSB0"},
             {255, "", 0, "/dev/ttyS254"},
             {7, longest.c_str(), 0, longest},
             {7, too_long.c_str(), 215, longest},
             {7, nullptr, 225, longest},
             {0, nullptr, 225, "none"},
             {0, "/dev/x", 215, "none"},
             {256, "", 215, "none"},
             {-1, "", 215, "none"},
         }) {
        EXPECT_EQ(SetPortDevice(port, path), result) << port;
        EXPECT_EQ(LastError(), result) << port;
        EXPECT_EQ(NameOf(DeviceKind::kCom, port), name);
    }
    EXPECT_EQ(NameOf(DeviceKind::kLpt, 3), "/dev/lp2");
    EXPECT_EQ(NameOf(DeviceKind::kLpt, 0), "none");
}

uint32_t OpenError(const std::string& name) {
    uint32_t error = 0;
    const platform::LineHandle line = platform::OpenLine(name.c_str(), 1, error);
    if (error == 0) platform::CloseLine(line);
    return error;
}

std::ptrdiff_t OpenDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

using Opening = LineTest;

TEST_F(Opening, WhatIsNoFreeTerminalIsRefusedAndLeftAlone) {
    const int other = open(terminal.name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_EQ(flock(other, LOCK_EX | LOCK_NB), 0);
    std::string file = testing::TempDir() + "no-terminal-XXXXXX";
    close(mkstemp(file.data()));
    const auto before = OpenDescriptors();
    EXPECT_EQ(OpenError(terminal.name), platform::kErrorDeviceInUse);
    for (const std::string& name : {file + "-absent", file, file + "/below", testing::TempDir(),
                                    std::string("/dev/null"), std::string(256, 'x')})
        EXPECT_EQ(OpenError(name), platform::kErrorNoSuchDevice) << name;
    EXPECT_EQ(OpenDescriptors(), before);
    close(other);
    unlink(file.c_str());

    Open(1);  // the line has one owner until it is closed
    EXPECT_EQ(OpenError(terminal.name), platform::kErrorDeviceInUse);
    EXPECT_EQ(Write("x"), 1U) << "the refused opener did no harm";
    Close();
    EXPECT_EQ(OpenError(terminal.name), 0U);
}

// An application that dies with the line open must find the line free when it is started again.
TEST_F(Opening, AnOwnerThatEndedWithoutClosingLeavesTheLineFree) {
    chmod(terminal.name, 0666);
    const auto open_as_somebody = [&](bool close_it) {
        if (geteuid() == 0 && setuid(65534) != 0) _exit(99);
        uint32_t error = 0;
        line = platform::OpenLine(terminal.name, 1, error);
        if (close_it) Close();
        _exit(static_cast<int>(error));
    };
    EXPECT_EXIT(open_as_somebody(false), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(open_as_somebody(true), testing::ExitedWithCode(0), "");
}

TEST_F(Opening, ALineNeverTakesTheNumberOfAStandardStreamAndIsRawAtOnce) {
    const int kept = dup(STDIN_FILENO);
    close(STDIN_FILENO);
    const auto before = OpenDescriptors();
    uint32_t error = 0;
    line = platform::OpenLine(terminal.name, 1, error);
    EXPECT_EQ(fcntl(STDIN_FILENO, F_GETFD), -1);
    EXPECT_EQ(OpenDescriptors(), before + 1);
    dup2(kept, STDIN_FILENO);
    close(kept);
    // What arrives between the open and the settings must not be sent back to the device.
    terminal.Send("a\r\n");
    EXPECT_EQ(terminal.Receive(1), "");
}

TEST_F(Opening, TwoLinesKeepToThemselves) {
    Open(1);
    const PseudoTerminal other;
    uint32_t error = 0;
    const platform::LineHandle second = platform::OpenLine(other.name, 1, error);
    ASSERT_EQ(error, 0U);
    const uint8_t byte = 'A';
    EXPECT_EQ(platform::WriteBytes(second, &byte, 1), 1U);
    EXPECT_EQ(other.Receive(1), "A");
    EXPECT_EQ(platform::CloseLine(second), 0U);
    EXPECT_EQ(platform::WriteBytes(second, &byte, 1), 0U)
        << "nothing goes to a line that is closed";
    EXPECT_NE(platform::CloseLine(second), 0U) << "nor is it closed again";
    EXPECT_EQ(Write("B"), 1U) << "the first stays open";
    EXPECT_EQ(terminal.Receive(1), "B");
}

TEST_F(Opening, SettingsReachTheTerminalOrAreRefused) {
    using platform::LineSettings;  // baud, bits, parity, stop bits, CTS, time-outs
    Open(0);
    // A pseudo-terminal keeps everything but the parity switch and the size.
    for (const auto& [settings, set] : {std::pair(LineSettings{9600, 8, 2, 0, true, 0, 0}, CRTSCTS),
                                        {{300, 8, 1, 0, true, 0, 0}, CRTSCTS | PARODD},
                                        {{12345, 8, 0, 2, false, 0, 0}, CSTOPB},
                                        {{4'000'000, 8, 2, 0, false, 0, 0}, 0}}) {
        termios2 modes{};
        EXPECT_EQ(platform::ApplySettings(line, settings), 0U);
        EXPECT_EQ(ioctl(terminal.master, TCGETS2, &modes), 0);
        EXPECT_EQ(modes.c_ospeed, settings.baud);
        EXPECT_EQ(modes.c_cflag & (CSTOPB | PARODD | CRTSCTS | CLOCAL | CREAD | HUPCL),
                  set | CLOCAL | CREAD);
    }
    for (const LineSettings& refused : {
             LineSettings{0, 8, 2, 0, true, 0, 0}, LineSettings{4'000'001, 8, 2, 0, true, 0, 0},
             LineSettings{9600, 8, 3, 0, true, 0, 0}, LineSettings{9600, 8, 0, 3, true, 0, 0},
             LineSettings{9600, 4, 0, 0, true, 0, 0}, LineSettings{9600, 9, 0, 0, true, 0, 0},
             LineSettings{9600, 8, 2, 1, true, 0, 0},  // one and a half need five data bits
             LineSettings{9600, 7, 2, 0, true, 0, 0},  // lost here: more than the parity
         })
        EXPECT_NE(platform::ApplySettings(line, refused), 0U) << testing::PrintToString(refused);
    EXPECT_FALSE(platform::SetDtr(line, true)) << "it has none";
    EXPECT_FALSE(platform::SetRts(line, false)) << "it has none";
    EXPECT_EQ(platform::ModemLines(line), 0);
}

}  // namespace
