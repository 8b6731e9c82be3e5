// The simulator's program and its link.
#include <sys/stat.h>

#include <filesystem>

#include "koraxdr.h"
#include "system/simulator_process.h"

namespace system_tests {

namespace fs = std::filesystem;

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
    EXPECT_EQ("kept", Contents(file));
}

TEST(Koraxsim, ObeysLinesOfInput) {
    const std::string panel = ScratchFolder() + "/panel", output = ScratchFolder() + "/switched";
    ASSERT_EQ(0, mkfifo(panel.c_str(), 0600));
    std::fstream input(panel);  // for both directions, so that neither end waits for the other
    Process process({"/bin/sh", "-c", R"(exec "$0" --link "$1" <"$2" 2>&1)", KORAXSIM_PROGRAM,
                     DeviceOf(kPort), panel},
                    output);
    EXPECT_TRUE(Shows(output, "/dev/pts/"));
    NamePort(kPort);
    ASSERT_EQ(0, CommunicationInit(kPort, 9600, 5));
    input << "paper out\nfaults" << std::endl;
    EXPECT_TRUE(Shows(output, "\nok\npaper out\n"));
    EXPECT_EQ(109, PrintControl(1));
    input << "paper in\nfaults" << std::endl;
    EXPECT_TRUE(Shows(output, "\nok\nnone\n"));
    EXPECT_EQ(0, PrintControl(1));
    CommunicationEnd();
    input << "quit" << std::endl;
    EXPECT_EQ(0, process.Wait());
}

// The host that has the port open meets a hang-up, and the next session works.
TEST(Koraxsim, HangsUpAndReturnsUnderItsName) {
    const std::string panel = ScratchFolder() + "/cable", output = ScratchFolder() + "/hung-up";
    ASSERT_EQ(0, mkfifo(panel.c_str(), 0600));
    std::fstream input(panel);
    Process process({"/bin/sh", "-c", R"(exec "$0" --link "$1" <"$2" 2>&1)", KORAXSIM_PROGRAM,
                     DeviceOf(kPort), panel},
                    output);
    EXPECT_TRUE(Shows(output, "/dev/pts/"));
    NamePort(kPort);
    ASSERT_EQ(0, CommunicationInit(kPort, 9600, 2));
    input << "cable out\nfaults" << std::endl;
    EXPECT_TRUE(Shows(output, "cable out\n"));
    EXPECT_NE(0, ReceiptBegin());
    EXPECT_FALSE(fs::is_symlink(DeviceOf(kPort)));
    input << "cable in\nfaults" << std::endl;
    EXPECT_TRUE(Shows(output, "none\n"));
    EXPECT_EQ(0, CommunicationInit(kPort, 9600, 2));
    EXPECT_EQ(0, ReceiptBegin());
    CommunicationEnd();
    EXPECT_EQ(0, process.Stop(SIGTERM));
}

TEST(Koraxsim, WritesThePaperAsTheEndingSays) {
    const struct {
        std::string ending, content;
    } files[] = {{".txt", "S U M A   P L N"},
                 {".svg", "</svg>\n"},
                 {".png", "\x89PNG\r\n"},
                 {".pdf", "%PDF-"}};
    for (const auto& [ending, content] : files) {
        SCOPED_TRACE(ending);
        const std::string paper = ScratchFolder() + "/sheet" + ending;
        std::ofstream(paper) << "of an older run";
        Simulator simulator(10, {"--paper", paper});
        EXPECT_EQ("", Contents(paper)) << "begun anew";
        EXPECT_EQ(0, RunExample("receipt", kPort, ScratchFolder() + "/said"));
        if (ending == ".txt") {
            EXPECT_TRUE(Shows(paper, content)) << "grows by the line";
        }
        EXPECT_EQ(0, simulator.Stop());
        EXPECT_NE(std::string::npos, Contents(paper).find(content));
    }
}

TEST(Koraxsim, RefusesPaperThatItCannotWrite) {
    for (const std::string name : {"paper.doc", "paper", "/nowhere/at/all/paper.svg"}) {
        const std::string said = ScratchFolder() + "/refused";
        Process process({KORAXSIM_PROGRAM, "--paper", name}, said);
        EXPECT_EQ(1, process.Wait()) << name;
    }
}

TEST(Koraxsim, DoesNotStartWithAScriptThatIsWrong) {
    const std::string script = ScratchFolder() + "/script", output = ScratchFolder() + "/refused";
    std::ofstream(script) << "# of the morning\nat 1s: paper oot\n";
    Process process({"/bin/sh", "-c", R"(exec "$0" --script "$1" 2>&1)", KORAXSIM_PROGRAM, script},
                    output);
    EXPECT_EQ(1, process.Wait());
    EXPECT_NE(std::string::npos, Contents(output).find("line 2: ")) << Contents(output);
}

}  // namespace system_tests
