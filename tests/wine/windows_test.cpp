// What only Windows programs meet: the debug box, the version resource, and a line whose settings
// the other side can see.
#include <windows.h>

#include <regex>
#include <thread>

#include "koraxdr.h"
#include "system/simulator_process.h"

namespace {

using system_tests::Contents;
using system_tests::kPort;

// Waits for the box, confirms it, and says what it showed.
std::string Dismiss() {
    for (int tries = 0; tries < 1000; ++tries, Sleep(10)) {
        const HWND box = FindWindowA(nullptr, "DEBUG MODE");
        if (box == nullptr) continue;
        char text[512] = "";
        for (HWND part = nullptr; (part = FindWindowExA(box, part, "Static", nullptr)) != nullptr;)
            if (text[0] == '\0') GetWindowTextA(part, text, sizeof text);
        PostMessageA(box, WM_COMMAND, IDOK, 0);
        return text;
    }
    return "no box";
}

}  // namespace

TEST(DebugBox, ShowsTheArgumentsAndWaitsForTheUser) {
    char text[256] = "";
    std::string shown;
    std::thread user([&] { shown = Dismiss(); });
    EXPECT_EQ(0, SetDebugMode());
    EXPECT_EQ(0, pErrMessage(213, text));
    user.join();
    EXPECT_EQ("Sent to function pErrMessage:\n1.ErrNo: 213\n", shown);
    EXPECT_EQ(0, ClearDebugMode());
    EXPECT_EQ(0, pErrMessage(213, text)) << "and no box any more";
}

TEST(Dll, TellsItsVersion) {
    DWORD ignored = 0;
    std::vector<char> resource(GetFileVersionInfoSizeA("koraxdr.dll", &ignored));
    ASSERT_FALSE(resource.empty());
    ASSERT_TRUE(GetFileVersionInfoA("koraxdr.dll", 0, static_cast<DWORD>(resource.size()),
                                    resource.data()));
    void* value = nullptr;
    UINT size = 0;
    ASSERT_TRUE(VerQueryValueA(resource.data(), "\\StringFileInfo\\040904B0\\ProductVersion",
                               &value, &size));
    const std::string version = static_cast<const char*>(value);
    EXPECT_EQ(KORAXDR_VERSION, version);
    EXPECT_NE(std::string::npos, std::string(xDllVersion()).find(version.substr(0, 4)));
}

TEST(Line, HasTheSettingsThatTheApplicationAsksFor) {
    const system_tests::Simulator simulator(10);
    for (const int32_t baud : {1200, 9600, 115200}) {
        ASSERT_EQ(0, CommunicationInit(kPort, baud, 5));
        const std::string output = system_tests::ScratchFolder() + "/stty";
        system_tests::Process({"/bin/stty", "-F", system_tests::DeviceOf(kPort), "-a"}, output)
            .Wait();
        const std::string settings = Contents(output);
        EXPECT_EQ(0u, settings.find("speed " + std::to_string(baud) + " baud;")) << settings;
        for (const char* flag : {"cs8", "-cstopb", "crtscts", "-ixon", "-ixoff", "-icanon", "-echo",
                                 "-icrnl", "-opost"}) {
            EXPECT_TRUE(
                std::regex_search(settings, std::regex(std::string("\\s") + flag + "[\\s;]")))
                << flag << '\n'
                << settings;
        }
    }
    CommunicationEnd();
}
