// The simulator's program, and the names of ports, which only this system lets an application
// choose.
#include <sys/stat.h>

#include <filesystem>

#include "koraxdr.h"
#include "system/simulator_process.h"

namespace fs = std::filesystem;
using system_tests::DeviceOf;
using system_tests::kPort;
using system_tests::Process;
using system_tests::ScratchFolder;
using system_tests::Simulator;

TEST(Koraxsim, EndsCleanlyAndLeavesNoLink) {
    for (const int signal : {SIGINT, SIGTERM}) {
        Simulator simulator(4);
        EXPECT_EQ(0, simulator.Stop(signal));
        EXPECT_FALSE(fs::is_symlink(DeviceOf(kPort)));
    }
}

// A killed run's link may lead to another's terminal by the time of the next.
TEST(Koraxsim, TakesOverTheLinkOfAKilledRunOnly) {
    const Simulator other(4, {}, kPort + 1);
    Simulator(4).Stop(SIGKILL);
    fs::remove(DeviceOf(kPort));
    fs::copy_symlink(DeviceOf(kPort + 1), DeviceOf(kPort));
    const Simulator next(4);
    const fs::path device = fs::read_symlink(DeviceOf(kPort));
    EXPECT_NE(fs::read_symlink(DeviceOf(kPort + 1)), device);

    Process late({KORAXSIM_PROGRAM, "--link", DeviceOf(kPort)}, ScratchFolder() + "/late");
    EXPECT_EQ(1, late.Wait());
    EXPECT_EQ(device, fs::read_symlink(DeviceOf(kPort)));
    const std::string file = ScratchFolder() + "/not-a-link";
    std::ofstream(file) << "kept";
    EXPECT_EQ(1, Process({KORAXSIM_PROGRAM, "--link", file}, ScratchFolder() + "/late").Wait());
    EXPECT_EQ("kept", system_tests::Contents(file));
}

TEST(PortDevice, IsJudgedWhenItIsNamedAndWhenItIsOpened) {
    ASSERT_EQ(0, SetPortDevice(kPort, "/nowhere/at/all"));
    EXPECT_EQ(2, CommunicationInit(kPort, 9600, 1));
    EXPECT_EQ(2, OpenPort(kPort, 9600, 1, 1));
    EXPECT_EQ(225, SetPortDevice(kPort, nullptr));
    EXPECT_EQ(215, SetPortDevice(0, "/dev/null"));
    EXPECT_EQ(215, SetPortDevice(256, "/dev/null"));
    EXPECT_EQ(215, SetPortDevice(kPort, std::string(257, 'x').c_str()));
    EXPECT_EQ(215, LastError());
    ASSERT_EQ(0, SetPortDevice(kPort, "/dev/null"));
    EXPECT_EQ(2, CommunicationInit(kPort, 9600, 1));
}
