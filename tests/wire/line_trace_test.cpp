// The record of the line in the file that KORAXDR_TRACE names.
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>

#include "support/contents.h"
#include "support/driver_test.h"
#include "trace/line_trace.h"

namespace {

class LineTrace : public DriverTest {
  protected:
    LineTrace() { std::filesystem::current_path(mkdtemp(folder_)); }
    ~LineTrace() override {
        unsetenv("KORAXDR_TRACE");
        UstalZapisLinii();
        std::filesystem::current_path("/");
        std::filesystem::remove_all(folder_);
    }
    static void Record(const std::string& file) { setenv("KORAXDR_TRACE", file.c_str(), 1); }
    // A session with a device that answers nothing but a refusal of the cancellation.
    int32_t Session() {
        const int32_t result = Call("23<15 FF", CommunicationInit, 1, 9600, 2);
        ClosePort();
        return result;
    }

    char folder_[32] = "/tmp/korax-line-XXXXXX";
};

const std::string kSession =
    "# opened COM1 9600 2026-01-31T12:00:00Z\n"
    "0.351000 > 1b23\n"
    "0.351000 < 15\n"
    "0.351000 > 1bff\n"
    "# no byte\n"
    "# closed\n";

TEST_F(LineTrace, HasEveryByteWithItsTime) {
    Record("record");
    EXPECT_EQ(Session(), 21);
    EXPECT_EQ(Contents("record"), "# korax line 1 2026-01-31T12:00:00Z\n" + kSession);
    struct stat status {};
    ASSERT_EQ(stat("record", &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    os.now_ms += 5000;
    EXPECT_EQ(Session(), 21);
    EXPECT_EQ(Contents("record"), "# korax line 1 2026-01-31T12:00:00Z\n" + kSession + kSession)
        << "a session is appended and begins its seconds anew";
}

TEST_F(LineTrace, IsTakenUpAndLeftAtASessionStart) {
    EXPECT_EQ(Session(), 21);
    Record("first");
    EXPECT_EQ(Session(), 21);
    Record("second");
    EXPECT_EQ(Session(), 21);
    unsetenv("KORAXDR_TRACE");
    EXPECT_EQ(Session(), 21);
    for (const char* file : {"first", "second"}) {
        EXPECT_EQ(Contents(file), "# korax line 1 2026-01-31T12:00:00Z\n" + kSession) << file;
    }
}

TEST_F(LineTrace, SharesALineAmongBytesThatFollowAtOnce) {
    Record("record");
    StartSession(10);
    const std::string before = Contents("record");
    Expect("71<06'KRX13000042'", 0,
           [] { return xReadUniqueNumber() != nullptr ? LastError() : 1; });
    UstalZapisLinii();
    ClosePort();
    EXPECT_EQ(Contents("record").substr(before.size()),
              "0.351000 < 06800377\n"  // of the session start
              "0.351000 > 1b71\n"
              "0.351000 < 064b52583133303030303432\n"
              "# closed\n");
}

TEST_F(LineTrace, WhatCannotBeWrittenIsNoReasonNotToSell) {
    for (const std::string& file :
         {std::string("no-such-folder/record"), std::string("."), std::string(257, 'a'),
          std::string("/dev/full"), std::string()}) {
        Record(file);
        EXPECT_EQ(Session(), 21) << file;
        EXPECT_TRUE(std::filesystem::is_empty(".")) << file;
    }
    const std::string longest = "./" + std::string(254, 'a');
    Record(longest);
    EXPECT_EQ(Session(), 21);
    EXPECT_NE(Contents(longest), "");
}

}  // namespace
