// The debug notice without a message box.
#include "platform/message_box.h"

#include "line/line_test.h"

namespace {

// Shows a notice with these as standard input and error; -1 is a closed stream.
void ShowNotice(int input, int error) {
    const int given[] = {input, error}, kept[] = {dup(STDIN_FILENO), dup(STDERR_FILENO)};
    const int streams[] = {STDIN_FILENO, STDERR_FILENO};
    for (int i : {0, 1}) given[i] < 0 ? close(streams[i]) : dup2(given[i], streams[i]);
    platform::ShowNotice("DEBUG MODE", "Sent to function f:\n1.Name: Za\xBF\xF3\xB3\xE6 \x81\n");
    for (int i : {0, 1}) dup2(kept[i], streams[i]), close(kept[i]);
}

TEST(Notice, IsAFrameInUtf8AndNobodyIsWaitedForWithoutATerminal) {
    int output[2];
    ASSERT_EQ(pipe(output), 0);
    const int nothing = open("/dev/null", O_RDWR);
    ShowNotice(nothing, output[1]);
    char text[1024] = "";
    EXPECT_GT(read(output[0], text, sizeof text - 1), 0);
    EXPECT_STREQ(text,
                 "+-DEBUG MODE----------+\n"
                 "| Sent to function f: |\n"
                 "| 1.Name: Zażółć ?    |\n"
                 "+---------------------+\n");

    close(output[0]);  // nobody reads it any more
    ShowNotice(nothing, output[1]);
    ShowNotice(-1, -1);
    close(output[1]);
    close(nothing);
}

TEST(Notice, WaitsForEnterOnATerminal) {
    const PseudoTerminal keyboard;
    const int input = open(keyboard.name, O_RDWR | O_NOCTTY);
    keyboard.Send("well\nnext\n");
    ShowNotice(input, -1);
    char buffer[16];
    EXPECT_EQ(read(input, buffer, sizeof buffer), 5);  // "next" is left for the application
    close(input);
}

}  // namespace
