// The memory: what is kept of it and when, what a device makes of it later, what erases it.
#include <algorithm>

#include "sim/host.h"
#include "sim/storage.h"

namespace sim_test {
namespace {

// Keeps changes as a file would, and has room until it is told otherwise.
class Keeper : public sim::Storage {
  public:
    explicit Keeper(const sim::DeviceOptions& options) : kept(sim::NewMemory(options)) {}
    bool Save(sim::Point, const sim::Change& change) override {
        if (full) return false;
        sim::Apply(change, kept);
        return true;
    }
    bool HasRoom() const override { return !full; }

    sim::Memory kept;
    bool full = false;
};

const Bytes kRates =
    Esc(0xD5, {0x09, 0x60, 0x03, 0x20, 0x01, 0xF4, 0, 0, 0x80, 0, 0x80, 0, 0x40, 0});
const Bytes kCodes = Esc(0xB0, Text("J 12") + Text("Ewa", 21) + Bytes{0x1B, 0xB3});
const Bytes kConfiguration = Esc(0xDE, {7, 1, 2, 3});
const Bytes kUserLine = Esc(0x9C, Bytes{4, 0} + Text("Kasa", 40));
const Bytes kClock = Esc(0x36, {1, 1, 5});
const Bytes kDailyReport = Esc(0x25);

// What the device tells of its memory: clock, counters, totals, report number, rates, unique
// number, configuration, footer, an article, the reason of the last cancellation.
Bytes Told(Device& device) {
    return Send(device, Esc(0x40) + Esc(0x66) + Esc(0xB0, Text("LO4\033\xB3")) + Esc(0xDA) +
                            Esc(0xD9) + Esc(0xD1) + Esc(0x71) + Esc(0xDF, {7}) + Esc(0x38, {1}) +
                            Esc(0xEF, Text("CHLEB RAZOWY", 28)) + Esc(0x50));
}

void ExpectAlike(const Device& device, const Device& other) {
    EXPECT_EQ(device.footer(), other.footer());
    EXPECT_EQ(device.logo(), other.logo());
    EXPECT_EQ(device.user_lines(), other.user_lines());
    EXPECT_EQ(device.cashier_codes(), other.cashier_codes());
    EXPECT_EQ(device.articles().size(), other.articles().size());
}

TEST(Memory, WhatIsKeptMakesTheSameDeviceAgain) {
    const sim::DeviceOptions options;
    Keeper keeper(options);
    Device device(options, keeper.kept, keeper);
    const Bytes day = kRates + kClock + FooterLine(1, "Zapraszamy") + Logo(0xAA) + kCodes +
                      kConfiguration + kUserLine + kReceipt + kDailyReport + kReceipt + kBegin +
                      kBread + kCancel + kReceipt;
    const Bytes answers = Send(device, day);
    EXPECT_EQ(std::ranges::count(answers, kNak), 0);
    Device again(options, keeper.kept, keeper);
    EXPECT_EQ(Told(again), Told(device));
    ExpectAlike(again, device);
}

TEST(Memory, AnOpenReceiptIsVoidWhenTheDeviceIsOnAgain) {
    const sim::DeviceOptions options;
    Keeper keeper(options);
    Device device(options, keeper.kept, keeper);
    Send(device, kReceipt + kBegin + Sold({.name = "Mleko"}) + Total(700));
    const sim::Memory cut = keeper.kept;
    device.SwitchOff();
    device.SwitchOn();
    Keeper later(options);
    later.kept = cut;
    Device restarted(options, cut, later);
    for (Device* on : {&device, &restarted}) {
        EXPECT_FALSE(on->receipt_open());
        EXPECT_EQ(on->receipt_counter(), 1);
        EXPECT_EQ(on->cancelled_receipts(), 1);
        EXPECT_FALSE(on->articles().contains("Mleko"));
        EXPECT_NE(Paper(*on).find("PARAGON ANULOWANY"), std::string::npos);
        EXPECT_EQ(Send(*on, kReceipt), Bytes(2, kAck));
    }
    EXPECT_EQ(Told(restarted), Told(device));
}

const struct {
    const char* what;
    Bytes sent, answer;
    Bytes before{};  // while there was room
} kWithoutRoom[] = {
    {"begin", kBegin, {kNak}},
    {"end", kEnd, {kNak}, kBegin + kBread + Total(700)},
    {"daily report", kDailyReport, {kNak}, kReceipt},
    {"state report", Esc(0x26), {kNak}},
    {"rates", kRates, {kNak}},
    {"clock", kClock, {kNak}},
    {"codes", kCodes, {kNak}},
    {"configuration", kConfiguration, {kAck, kNak}},
    {"user line", kUserLine, {kAck, kNak}},
    {"footer", FooterLine(1, "Zapraszamy"), {kAck, kNak}},
    {"last row of the logo",
     Esc(0x2D, Bytes{63} + Bytes(25)),
     {kAck, kNak},
     [] {
         Bytes rows = Logo(0);
         rows.resize(rows.size() - 28);
         return rows;
     }()},
};

TEST(Memory, WithoutRoomACommandIsRefusedAndChangesNothing) {
    for (const auto& [what, sent, answer, before] : kWithoutRoom) {
        SCOPED_TRACE(what);
        const sim::DeviceOptions options;
        Keeper keeper(options);
        Device device(options, keeper.kept, keeper);
        Device untouched(options);
        Send(device, before);
        Send(untouched, before);
        const std::string paper = Paper(device);
        keeper.full = true;
        EXPECT_EQ(Send(device, sent), answer);
        EXPECT_EQ(Paper(device), paper);
        EXPECT_EQ(device.receipt_open(), untouched.receipt_open());
        EXPECT_EQ(device.receipt_counter(), untouched.receipt_counter());
        // Inside a receipt the questions would be out of place.
        if (!device.receipt_open()) {
            EXPECT_EQ(Told(device), Told(untouched));
        }
        ExpectAlike(device, untouched);
        keeper.full = false;
        EXPECT_EQ(std::ranges::count(Send(device, sent), kNak), 0) << "with room again";
    }
}

TEST(Memory, WithoutRoomForALineTheReceiptIsCancelled) {
    for (const Bytes& line : {kBread, Esc(0x1B, {10}), Esc(0x09, Text("1tekst\n")), Total(700)}) {
        const sim::DeviceOptions options;
        Keeper keeper(options);
        Device device(options, keeper.kept, keeper);
        Send(device, kBegin + kBread);
        keeper.full = true;
        Send(device, line);
        EXPECT_FALSE(device.receipt_open());
        EXPECT_EQ(device.cancellation_reason(), 68);
        Device again(options, keeper.kept, keeper);
        EXPECT_EQ(again.cancelled_receipts(), 1) << "as after a power cut";
    }
}

TEST(Memory, ArticlesAreRememberedWhenTheirReceiptEnds) {
    const Bytes dear = Sold({.name = "Serek"}), cheap = Sold({.name = "Serek", .rate = 2});
    Device device;
    Send(device, kBegin + dear + cheap);
    EXPECT_FALSE(device.articles().contains("Serek"));
    Send(device, kCancel + kBegin + dear + kCancel);
    EXPECT_TRUE(device.articles().empty()) << "cancelled";
    Send(device, kBegin + cheap + dear + Total(1400) + kEnd);
    EXPECT_EQ(device.articles().at("Serek").rate, 0);
    EXPECT_FALSE(device.articles().at("Serek").rate_lowered);
    Send(device, kBegin + cheap + dear);
    EXPECT_EQ(device.cancellation_reason(), 67) << "locked inside the receipt already";
    Send(device, kBegin + dear + Total(700) + kEnd);
    EXPECT_EQ(device.receipt_counter(), 2) << "the cancelled receipt has locked nothing";
    Send(device, kBegin + cheap + Total(700) + kEnd + kBegin + cheap + Total(700) + kEnd);
    Send(device, kBegin + dear);
    EXPECT_EQ(device.cancellation_reason(), 67) << "sold again, it stays locked";
    Send(device, kBegin + cheap + Total(700) + kEnd + kDailyReport + kRates);
    Send(device, kBegin + dear + Total(700) + kEnd);
    EXPECT_EQ(device.receipt_counter(), 1) << "new rates forget the articles";
}

}  // namespace
}  // namespace sim_test
