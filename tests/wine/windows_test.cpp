// What a user of Windows sees: the debug box, and a line with the settings that were asked for.
#include <windows.h>

#include "koraxdr.h"
#include "system/simulator_process.h"

namespace system_tests {

// Waits for the box, confirms it, and says what it showed.
static std::string Dismiss() {
    for (int tries = 0; tries < 3000; ++tries, Sleep(10)) {
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

TEST(Line, HasTheSettingsThatTheApplicationAsksFor) {
    const Simulator simulator(10);
    const std::string output = ScratchFolder() + "/stty";
    for (const std::string baud : {"1200", "115200"}) {
        ASSERT_EQ(0, CommunicationInit(kPort, std::stoi(baud), 5));
        Process stty({"/bin/stty", "-F", DeviceOf(kPort), "-a"}, output);
        EXPECT_EQ(0, stty.Wait());
        const std::string settings = Contents(output);
        EXPECT_EQ(0u, settings.find("speed " + baud + " baud;")) << settings;
        for (const char* setting :
             {" cs8", " -cstopb", " crtscts", " -ixon", " -ixoff", "-opost"}) {
            EXPECT_NE(std::string::npos, settings.find(setting)) << setting << '\n' << settings;
        }
    }
    CommunicationEnd();
}

}  // namespace system_tests
