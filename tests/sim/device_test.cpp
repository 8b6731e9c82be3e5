// What is not part of selling: who the device is, and a dialogue for each family of commands.
#include <algorithm>
#include <functional>

#include "sim/host.h"

namespace sim_test {
namespace {

constexpr std::uint8_t kIdentities[] = {2, 17, 44, 44, 5, 18, 18, 44, 18, 44, 44, 18, 60};
constexpr int kVersions[] = {-1, -1, -1, 6, -1, -1, 1, 2, 1, 2, 2, 2, -1};  // -1: not told

TEST(Identity, EveryTypeAnswersAsItselfAndKnowsOneTableOfRates) {
    for (int type = sim::kFirstType; type <= sim::kLastType; ++type) {
        SCOPED_TRACE(type);
        Device device({.type = type});
        EXPECT_EQ(Send(device, Esc(0xFF)), (Bytes{kAck, kIdentities[type - sim::kFirstType]}));
        const Bytes further = Send(device, Esc(0xFE));
        EXPECT_EQ(further.size() == 4 ? further[2] : -1, kVersions[type - sim::kFirstType]);
        const Bytes rates = Send(device, Esc(0x70) + Esc(0xD0) + Esc(0xD1));
        EXPECT_EQ(std::ranges::count(rates, kNak), 2) << "to the tables of other types";
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
    EXPECT_EQ(device.day_totals(), sim::RateAmounts{}) << "the report has closed the day";
}

TEST(Family, FooterAndLogoAreRefusedWithAReason) {
    Device device({.type = 8});
    Talk(device, {{"taken", FooterLine(0, "Zapraszamy"), {kAck, 0}},
                  {"in Polish", FooterLine(2, "do p\xA2\xAB"), {kAck, 0}},
                  {"control character", FooterLine(1, "a\tb"), {kAck, 106}},
                  {"no such line", FooterLine(3, "zbyt wiele"), {kAck, 108}},
                  {"check sum", FooterLine(1, "suma", true), {kAck, 200}}});
    device.Receive(Esc(0x2E, {1, 'a'}));
    device.Advance(2001ms);
    Talk(device, {{"pause", {}, {kAck, 201}},
                  {"receipt", kReceipt, {kAck, kAck}},
                  {"first change", FooterLine(0, "pierwsza zmiana"), {kAck, 0}},
                  {"second change", FooterLine(0, "druga zmiana"), {kAck, 203}},
                  {"first row", LogoRow(0, 0), {kAck, 0}},
                  {"row out of order", LogoRow(2, 0), {kAck, 201}}});
    EXPECT_EQ(device.footer(), (std::array<std::string, 3>{"pierwsza zmiana", "", "do póź"}));
}

TEST(Family, ANumberedDisplayShowsShortTexts) {
    Device device({.type = 2});
    Send(device, Esc(0x52, Text("\v2Witamy!\n\033S\033R\v9Razem 12345\n\033S\033R\v:x\n\033S")));
    EXPECT_EQ(device.display_text(), "2: Witamy! | 9: Razem 123");
    Send(device, Esc(0x75));
    EXPECT_EQ(device.display_text(), "");
}

}  // namespace
}  // namespace sim_test
