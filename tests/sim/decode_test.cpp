// Recordings: what is written, and what is read out of it.
#include "sim/decode.h"

#include <algorithm>

#include "sim/host.h"
#include "support/contents.h"

namespace sim_test {
namespace {

// With sessions appended to a torn line, answers that lack bytes, and a torn last line.
TEST(Recording, IsDecoded) {
    const std::string folder = TESTS_DIR "/sim/";
    const auto exchanges = sim::Decode(sim::ReadRecording(Contents(folder + "recording.txt")), {});
    EXPECT_EQ(sim::DecodedText(exchanges), Contents(folder + "decoded.txt"));
    const std::string json = sim::DecodedJson({exchanges[1]});
    EXPECT_NE(json.find("\"at\": 0.01,"), std::string::npos) << json;
    EXPECT_NE(json.find("\"price\": \"3,50\""), std::string::npos) << json;
}

TEST(Recording, IsWrittenAsItIsRead) {
    std::string text;
    sim::Recorder recorder([&](std::string_view part) { text += part; }, {});
    sim::Line line(11'000);  // a byte takes a millisecond
    line.Listen(&recorder);
    line.Send(Esc(0xFF), 1s);
    line.Answer(Bytes{kAck}, 1, 1s + 2ms);
    while (line.Arrive(2s)) {
    }
    line.TakeCableOut(2s);
    EXPECT_EQ(text,
              "# korax line 1 1970-01-01T00:00:00\n1.001000 > 1b\n1.002000 > ff\n"
              "1.003000 < 06\n# hung up\n");
    EXPECT_EQ(sim::ReadRecording(text).at(0).size(), 4u);
}

TEST(Recording, AnErrorNamesItsLine) {
    EXPECT_THROW(sim::ReadRecording("hello"), sim::RecordingError);
    EXPECT_THROW(sim::ReadRecording("# korax line 2 2026-01-31T12:00:00\n"), sim::RecordingError);
    try {
        sim::ReadRecording("# korax line 1 2026-01-31T12:00:00\n0.000001 > 1b2\n0.000002 < 06\n");
        ADD_FAILURE() << "taken";
    } catch (const sim::RecordingError& error) {
        EXPECT_TRUE(std::string_view(error.what()).starts_with("line 2: ")) << error.what();
    }
}

}  // namespace
}  // namespace sim_test
