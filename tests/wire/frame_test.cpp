// What all functions share: the debug box before everything else, then the session start and the
// open receipt.
#include <sstream>

#include "support/calls.h"
#include "support/contents.h"
#include "support/driver_test.h"

namespace {

using Frame = DriverTest;

struct Box {
    std::string call, lines;
};

std::vector<Box> ReadBoxes() {
    std::vector<Box> boxes;
    std::istringstream input(Contents(TESTS_DIR "/wire/boxes.txt"));
    for (std::string line; std::getline(input, line);) {
        if (line.starts_with("> ")) boxes.push_back({line.substr(2), ""});
        if (line.ends_with("|")) boxes.back().lines += line.substr(0, line.size() - 1) + "\n";
    }
    return boxes;
}

// What a call without a session shows in boxes and prints.
struct Shown {
    std::vector<std::string> boxes;
    std::string printed;
};

Shown ShownBy(const std::string& call, bool debug_mode) {
    ResetDriver();
    NrPortu = 0;
    DebugMode = debug_mode;
    testing::internal::CaptureStdout();
    CallByText(call);
    std::fflush(stdout);
    return {os.notices, testing::internal::GetCapturedStdout()};
}

TEST_F(Frame, FunctionsShowTheirArgumentsInDebugModeOnly) {
    for (const auto& [call, lines] : ReadBoxes()) {
        SCOPED_TRACE(call);
        const Shown off = ShownBy(call, false), on = ShownBy(call, true);
        EXPECT_EQ(off.boxes, std::vector<std::string>());
        EXPECT_EQ(on.boxes, lines.empty() ? std::vector<std::string>()
                                          : std::vector<std::string>{"DEBUG MODE\n" + lines});
        EXPECT_EQ(off.printed, "");
        EXPECT_EQ(on.printed, "");
    }
}

TEST_F(Frame, TheCashierCodeIsPrintedInsteadOfShown) {
    const std::string call = "pWriteECRCashierCode 1 'c'";
    EXPECT_EQ(ShownBy(call, false).printed, "");
    const Shown on = ShownBy(call, true);
    EXPECT_EQ(on.printed,
              "Sent to function pWriteECRCashierCode:\n1.ECRCode: 1\n1.CashierCode: c\n");
    EXPECT_EQ(on.boxes, std::vector<std::string>());
}

TEST_F(Frame, TheModeIsSwitchedOnAndOff) {
    EXPECT_EQ(SetDebugMode(), 0);
    OpenDrawer(4);
    EXPECT_EQ(os.notices.size(), 1u);
    EXPECT_EQ(ClearDebugMode(), 0);
    OpenDrawer(4);
    EXPECT_EQ(os.notices.size(), 1u);
}

TEST_F(Frame, ABoxHoldsTextsOfAnyLength) {
    DebugMode = 1;
    pFillPayment(1, std::string(9000, 'x').c_str(), 1, 2);
    pFillPayment(1, nullptr, 1, 2);
    ASSERT_EQ(os.notices.size(), 2u);
    EXPECT_LT(os.notices[0].size(), 4200u);
}

}  // namespace
