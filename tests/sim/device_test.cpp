// What is not part of selling: who the device is, and a dialogue for each family of commands.
#include <functional>
#include <numeric>

#include "sim/host.h"

namespace sim_test {
namespace {

using sim::CodePage;

const struct {
    int type;
    Bytes identify, further;
    std::size_t code_page_length;  // of the answer; 1 is a NAK
    int rates_command;             // the one of three that the type knows
    std::size_t rates_length;
} kIdentities[] = {
    {1, {kAck, 2}, {kNak}, 1, 0x70, 5},
    {2, {kAck, 17}, {kNak}, 1, 0xD0, 13},
    {3, {kAck, 44}, {kNak}, 1, 0xD0, 13},
    {4, {kAck, 44}, {kAck, 120, 6, 0}, 1, 0xD1, 15},
    {5, {kAck, 5}, {kNak}, 1, 0x70, 5},
    {6, {kAck, 18}, {kNak}, 1, 0xD0, 13},
    {7, {kAck, 18}, {kAck, 121, 1, 0}, 1, 0xD1, 15},
    {8, {kAck, 44}, {kAck, 124, 2, 0}, 4, 0xD1, 15},
    {9, {kAck, 18}, {kAck, 125, 1, 0}, 4, 0xD1, 15},
    {10, {kAck, 44}, {kAck, 128, 2, 0}, 4, 0xD1, 15},
    {11, {kAck, 44}, {kAck, 129, 2, 0}, 4, 0xD1, 15},
    {12, {kAck, 18}, {kAck, 130, 2, 0}, 4, 0xD1, 15},
    {13, {kAck, 60}, {kNak}, 1, 0xD1, 15},
};

TEST(Identity, EveryTypeAnswersAsItself) {
    for (const auto& expected : kIdentities) {
        SCOPED_TRACE(expected.type);
        Device device({.type = expected.type});
        EXPECT_EQ(Send(device, Esc(0xFF)), expected.identify);
        EXPECT_EQ(Send(device, Esc(0xFE)), expected.further);
        EXPECT_EQ(Send(device, Esc(0xC3)).size(), expected.code_page_length);
        for (const int command : {0xD1, 0xD0, 0x70})
            EXPECT_EQ(Send(device, Esc(command)).size(),
                      command == expected.rates_command ? expected.rates_length : 1);
    }
}

constexpr const char* k852 =
    "Za\xBE\xA2\x88\x86 g\xA9\x98l\xA5 ja\xAB\xE4 \xA4\x8F\xA8\x9D\xE3\xE0";
constexpr const char* k1250 =
    "Za\xBF\xF3\xB3\xE6 g\xEA\x9Cl\xB9 ja\x9F\xF1 \xA5\xC6\xCA\xA3\xD1\xD3";
constexpr const char* kMazovia =
    "Za\xA7\xA2\x92\x8D g\x91\x9El\x86 ja\xA6\xA4 \x8F\x95\x90\x9C\xA5\xA3";

const struct {
    int type;
    CodePage page;
    const char *name, *line;  // types 10 to 12 take additional lines in 852, whatever their page
} kCodePages[] = {
    {1, CodePage::Cp852, k852, k852},
    {8, CodePage::Cp1250, k1250, k1250},
    {10, CodePage::Cp1250, k1250, k852},
    {12, CodePage::Mazovia, kMazovia, k852},
};

TEST(Identity, TextsComeInTheCodePageOfTheDevice) {
    for (const auto& [type, page, name, line] : kCodePages) {
        SCOPED_TRACE(type);
        Device device({.type = type, .code_page = page});
        Send(device, kBegin + Sold({.name = name}) + Esc(9, Text("1") + Text(line) + Text("\n")));
        EXPECT_EQ(device.receipt().sales.at(0).name, "Zażółć gęślą jaźń ĄĆĘŁŃÓ");
        EXPECT_EQ(device.receipt().additional_lines.at(0), "Zażółć gęślą jaźń ĄĆĘŁŃÓ");
    }
}

Bytes Packages(const char* kind, std::uint8_t quantity) {
    return Esc(0x17, Text(kind) + Bytes{5, 1, quantity, 0} + Long(50));
}

TEST(Family, PackagesAndInvoices) {
    Device device({.type = 11});
    Talk(device, {{"begin", Esc(0x4D, Text("FV 7/2013", 20)), {kAck, 0}},
                  {"buyer", Esc(0x4E, Text("Jan \x9Dukasz", 240)), {0}},
                  {"tax number", Esc(0x4F, Text("123-456-32-18")), {0}},
                  {"sold", kBread + Packages(" S", 3), {kAck}},
                  {"more than were sold", Packages("-S", 4), {kNak}},
                  {"taken back", Packages("-S", 2), {kAck}},
                  {"after the total", Total(700) + Packages(" S", 1), {kNak}},
                  {"end", kEnd, {kAck}}});
    const char* head = "nr FV 7/2013\nNabywca:\nJan Łukasz\nNIP nabywcy: 123-456-32-18\n----";
    EXPECT_NE(Paper(device).find(head), std::string::npos);
    EXPECT_EQ(device.receipt().to_pay(), 750);
}

// One device on one day after another.
TEST(Family, ReportsAndClock) {
    const auto midnight = std::chrono::sys_days{std::chrono::year{2013} / 12 / 10};
    Device device(
        {.clock = midnight + 50min, .daily_reports = {{.number = 299, .made = midnight}}});
    Talk(device, {{"too far", Esc(0x36, {1, 6, 1}), {kAck}},
                  {"into the day before", Esc(0x36, {0, 6, 0}), {kAck}},
                  {"moved", Esc(0x40), {kAck, 1, 3, 1, 2, 0, 9, 2, 3, 5, 0, 0, 0}}});
    device.Advance(11min);
    Talk(device, {{"same day again", Esc(0x36, {1, 1, 0}), {kAck}},
                  {"still there", Esc(0x35), {kAck, 1, 3, 1, 2, 1, 0, 0, 0, 0, 1}}});
    device.Advance(24h * 25);
    Talk(device, {{"receipt", kReceipt, {kAck, kAck}},
                  {"rates after a sale", Esc(0xD5), {kNak}},
                  {"with receipts", Esc(0x36, {1, 1, 0}), {kAck}},
                  {"report", Esc(0x25), {kAck}},
                  {"next day", Esc(0x36, {0, 1, 0}), {kAck}},
                  {"moved once", Esc(0x35), {kAck, 1, 4, 0, 1, 0, 3, 2, 3, 5, 1}},
                  {"month", Esc(0x31, {2, 1, 3, 1, 2}), {kAck, 0}},
                  {"wrong month", Esc(0x31, {5, 1, 3, 1, 3}), {kAck, 1}},
                  {"this month", Esc(0x31, {2, 1, 4, 0, 1}), {kAck, 4}},
                  {"beyond the memory", Esc(0x31, Bytes{1, 0x2C, 1, 0x2D, 1}), {kAck, 3}},
                  {"no day", Esc(0x28, {1, 3, 0, 2, 3, 0, 1, 3, 1, 1, 3, 0}), {kAck}}});
    EXPECT_NE(Paper(device).find("Błędne daty raportu"), std::string::npos);
}

// A line of footer or logo with its check sum.
Bytes Line(int command, std::uint8_t number, const Bytes& content, std::uint8_t damage = 0) {
    const int sum = std::accumulate(content.begin(), content.end(), int{damage}, std::bit_xor<>());
    return Esc(command, Bytes{number} + content + Bytes{static_cast<std::uint8_t>(sum)});
}

Bytes FooterLine(std::uint8_t number, const char* text, std::uint8_t damage = 0) {
    return Line(0x2E, number, Text(text, 40), damage);
}

TEST(Family, FooterAndLogoAreRefusedWithAReason) {
    Device device({.type = 8});
    Talk(device, {{"taken", FooterLine(0, "Zapraszamy"), {kAck, 0}},
                  {"unchanged", FooterLine(0, "Zapraszamy"), {kAck, 202}},
                  {"in Polish", FooterLine(2, "do p\xA2\xAB"), {kAck, 0}},
                  {"control character", FooterLine(1, "a\tb"), {kAck, 106}},
                  {"no such line", FooterLine(3, "zbyt wiele"), {kAck, 108}},
                  {"check sum", FooterLine(1, "suma", 1), {kAck, 200}}});
    device.Receive(Esc(0x2E, {1, 'a'}));
    device.Advance(2001ms);
    Talk(device, {{"pause", {}, {kAck, 201}},
                  {"receipt", kReceipt, {kAck, kAck}},
                  {"first change", FooterLine(0, "pierwsza zmiana"), {kAck, 0}},
                  {"second change", FooterLine(0, "druga zmiana"), {kAck, 203}},
                  {"first row", Line(0x2D, 0, Bytes(24)), {kAck, 0}},
                  {"row out of order", Line(0x2D, 2, Bytes(24)), {kAck, 201}}});
    EXPECT_EQ(device.footer(), (std::array<std::string, 3>{"pierwsza zmiana", "", "do póź"}));
}

TEST(Family, DisplaysShowTheFramesOfTheirKind) {
    const auto check = [](int type, int kind, const char* frames, const char* shown) {
        Device device({.type = type});
        EXPECT_EQ(Send(device, Esc(0x56)).at(1), kind);
        Send(device, Esc(0x52, Text(frames)));
        EXPECT_EQ(device.display_text(), shown);
        Send(device, Esc(0x75));
        EXPECT_EQ(device.display_text(), "") << "cleared";
    };
    check(1, 1, "W\1W\2W\n\033S", "W W W");
    check(2, 4, "\v2Witamy!\n\033S\033R\v9Razem 12345\n\033S\033R\v:x\n\033S",
          "2: Witamy! | 9: Razem 123");
    check(3, 2, "\x19Witamy!\n\033S\033R\fPolecamy\n\033S", "Witamy! | Polecamy");
}

}  // namespace
}  // namespace sim_test
