// Orders, faults of the line, scripts: what a user writes, and what comes of it, as data files.
#include "sim/orders.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <sstream>

#include "sim/host.h"
#include "sim/script.h"
#include "sim/words.h"
#include "support/contents.h"

namespace sim_test {
namespace {

// A program whose paper has seven lines.
class Desk : public sim::Program {
  public:
    explicit Desk(int baud = 0) : station({}, baud) {}

    void WritePaper(const std::string&) override {}
    void CutPaper() override {}
    int PaperLines() override { return 7; }
    void Quit() override { ended = true; }

    std::string Obey(const std::string& order) { return sim::Obey(order, place); }

    sim::Station station;
    const sim::OrderPlace place{station, *this};
    bool ended = false;
};

std::vector<std::string> LinesOf(const std::string& file) {
    std::vector<std::string> lines;
    std::istringstream input(Contents(std::string(TESTS_DIR "/sim/") + file));
    for (std::string line; std::getline(input, line);)
        if (!line.empty() && !line.starts_with('#')) lines.push_back(line);
    return lines;
}

TEST(Orders, AreAnswered) {
    Desk desk;
    std::string order;
    std::string expected;
    const auto check = [&] {
        if (order.empty()) return;
        EXPECT_EQ(desk.Obey(order) + "\n", expected) << order;
        expected.clear();
    };
    for (const std::string& line : LinesOf("orders.txt")) {
        if (line.starts_with("> ")) {
            check();
            order = line.substr(2);
        } else {
            expected += line.substr(2) + "\n";
        }
    }
    check();
    EXPECT_TRUE(desk.ended);
}

Bytes FromHex(std::string_view hex) {
    Bytes bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes.push_back(
            static_cast<std::uint8_t>(std::stoi(std::string(hex.substr(i, 2)), {}, 16)));
    return bytes;
}

// Lets the time pass to when the next byte arrives, as long as one is on its way: a line for each
// arrival, in milliseconds.
std::string Received(sim::Station& station, const Bytes& sent, sim::LineTime now) {
    std::string text;
    const auto note = [&](const Bytes& bytes) {
        if (!bytes.empty())
            text += fmt::format("< {:g} {:02x}\n", static_cast<double>(now.count()) / 1000,
                                fmt::join(bytes, ""));
    };
    note(station.Run(sent, now));
    while (const auto next = station.line.next()) {
        now = std::max(now, *next);
        note(station.Run({}, now));
    }
    return text;
}

TEST(Faults, OfTheLineDoWhatTheySay) {
    std::optional<Desk> desk;
    std::string name;
    std::string expected;
    std::string received;
    const auto check = [&] { EXPECT_EQ(received, expected) << name; };
    for (const std::string& line : LinesOf("faults.txt")) {
        const auto words = sim::Words(line);
        if (words[0] == "=") {
            check();
            name = line;
            expected.clear();
            received.clear();
            desk.emplace();
        } else if (words[0] == "!") {
            EXPECT_EQ(desk->Obey(line.substr(2)), "ok") << line;
        } else if (words[0] == ">") {
            const std::chrono::milliseconds at{sim::NumberOf(words[1]).value_or(0)};
            received += Received(desk->station, FromHex(words[2]), at);
        } else {
            expected += line + "\n";
        }
    }
    check();
}

TEST(Line, KeepsItsPaceInBothDirections) {
    Desk desk(11'000);  // a byte takes a millisecond
    EXPECT_EQ(Received(desk.station, Esc(0xFF), 0us), "< 3 06\n< 4 2c\n");
    EXPECT_EQ(Received(desk.station, Esc(0xFF) + Esc(0xFE), 10ms),
              "< 13 06\n< 14 2c\n< 15 06\n< 16 80\n< 17 02\n< 18 00\n");
}

// What the trace shows is what went out, when it has gone.
TEST(Station, TellsAnExchangeOnceItsAnswerIsOff) {
    Desk desk;
    std::vector<Bytes> told;
    desk.station.on_exchange = [&](const sim::Exchange& exchange) {
        told.push_back(exchange.answered);
    };
    desk.Obey("answer delay 100");
    desk.Obey("answer drop 1");
    desk.station.Run(Esc(0xFF), 0us);
    EXPECT_EQ(told.size(), 0u);
    desk.Obey("silence on");
    desk.station.Run(Esc(0x5F), 50ms);
    desk.station.Run({}, 100ms);
    EXPECT_EQ(told, (std::vector<Bytes>{{0x06}, {}}));
}

TEST(Script, OrdersComeAtTheirTimeAndAtTheirExchange) {
    Desk desk;
    sim::Script script(
        "# a morning\n"
        "at 0.25s: paper out\n\n"
        "at 0.1s: state\n"
        "on begin-receipt #2: answer nak 1\n"
        "on identify #*: faults\n"
        "after end-receipt: quit\n");
    std::vector<std::string> answers;
    const sim::Script::Listener listen = [&](const std::string&, const std::string& answer) {
        answers.push_back(answer.substr(0, 8));
    };
    desk.station.device.OnCommand(
        [&](const sim::Exchange& exchange) { script.RunOn(exchange, desk.place, listen); });
    desk.station.on_exchange = [&](const sim::Exchange& exchange) {
        script.RunAfter(exchange, desk.place, listen);
    };
    EXPECT_EQ(desk.station.Run(kReceipt, 0us), (Bytes{kAck, kAck}));
    EXPECT_TRUE(desk.ended);
    EXPECT_EQ(desk.station.Run(kBegin, 1ms), Bytes{kNak}) << "the second";
    EXPECT_EQ(desk.station.Run(kBegin + kCancel, 2ms), (Bytes{kAck, kAck})) << "the third";
    desk.station.Run(Esc(0xFF) + Esc(0xFF), 3ms);
    EXPECT_EQ(script.next(), sim::LineTime{100ms});
    script.RunDue(260ms, desk.place, listen);
    EXPECT_EQ(answers, (std::vector<std::string>{"ok", "ok", "none", "none", "{\"type\":", "ok"}));
    EXPECT_TRUE(desk.station.device.faults().no_paper);
}

TEST(Script, AnErrorNamesItsLine) {
    const std::pair<const char*, const char*> kWrong[] = {
        {"paper out", "line 1: a line is \"at 3s: ORDER\""},
        {"\n# x\nat 3: paper out", "line 3: \"3\" is no time"},
        {"on beginning: paper out", "line 1: there is no exchange \"beginning\""},
        {"on item 2: paper out", "line 1: \"2\" after \"item\""},
        {"after item #0: paper out", "line 1: \"#0\" after \"item\""},
        {"at 1s: paper oot", "line 1: \"oot\" after \"paper\""},
    };
    for (const auto& [text, complaint] : kWrong) {
        try {
            const sim::Script script(text);
            ADD_FAILURE() << "taken: " << text;
        } catch (const sim::OrderError& error) {
            EXPECT_TRUE(std::string(error.what()).starts_with(complaint)) << error.what();
        }
    }
}

}  // namespace
}  // namespace sim_test
