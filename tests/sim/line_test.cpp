// The line: faults, time-outs, the trace, and hosts that send anything at all.
#include <algorithm>
#include <numeric>
#include <random>

#include "sim/code_page.h"
#include "sim/host.h"

namespace sim_test {
namespace {

const Bytes kIdentify = Esc(0xFF), kIdentity = {kAck, 44};

TEST(Line, PausesEndSequences) {
    Device device;
    for (const Bytes& beginning : {Bytes{0x1B}, Esc(0x2E, {1, 'a'}), Esc(0xB0, {'D'})}) {
        device.Receive(beginning);
        device.Advance(2001ms);
        device.TakeAnswer();
        EXPECT_EQ(Send(device, kIdentify), kIdentity) << "after a pause inside a sequence";
    }
}

TEST(Line, ExchangesAreDecodedForPeople) {
    Device device;
    std::string trace;
    device.OnExchange([&](const sim::Exchange& exchange) { trace += FormatExchange(exchange); });
    device.Advance(1500ms);
    Send(device, kBegin + Esc(0x19, Text("-") + Long(1250)));
    EXPECT_EQ(trace, R"(     1.500 begin receipt
            host: 1B 21
          device: 06
     1.500 amount discount on the receipt
            host: 1B 19 2D E2 04 00 00
                  sign: "-", amount: 12,50
                  receipt cancelled, reason 87
)");
}

// Commands and what a receipt is made of, so that random bytes get somewhere.
Bytes Fragment(std::mt19937& random) {
    const auto byte = [&] { return static_cast<std::uint8_t>(random()); };
    const Bytes fragments[] = {
        kReceipt, kBread + kCorrection, Sold({.rate = 2}, 40) + kCancel, Esc(byte()),
        Text("\033\xB0qBI:N1:10:30:12\033\xB3") + Esc(0x73, Text("0712linia")) + Esc(0x51)};
    Bytes bytes = fragments[random() % std::size(fragments)];
    if (random() % 8 == 0) bytes[random() % bytes.size()] = byte();
    if (random() % 8 == 0) bytes.resize(random() % bytes.size() + 1);
    if (random() % 4 == 0)
        for (auto i = random() % 40; i > 0; --i) bytes.push_back(byte());
    return bytes;
}

void ExpectSane(const Device& device) {
    const sim::Receipt& receipt = device.receipt();
    EXPECT_EQ(receipt.total,
              std::accumulate(receipt.totals.begin(), receipt.totals.end(), std::int64_t{0}));
    EXPECT_GE(receipt.total, 0);
    EXPECT_LE(receipt.total, 999'999'999);
    for (const sim::PaperLine& line : device.paper()) {
        EXPECT_LE(sim::Width(line.text), static_cast<std::size_t>(sim::kPaperColumns));
        EXPECT_TRUE(std::ranges::none_of(line.text, [](char c) { return c >= 0 && c < ' '; }));
    }
}

TEST(Line, NoBytesUpsetTheDevice) {
    int receipts = 0;
    for (int type = sim::kFirstType; type <= sim::kLastType; ++type) {
        SCOPED_TRACE(type);
        std::mt19937 random(static_cast<std::mt19937::result_type>(type));
        Device device({.type = type});
        device.OnExchange([](const sim::Exchange& exchange) { FormatExchange(exchange); });
        for (int i = 0; i < 3000; ++i) {
            device.Receive(Fragment(random));
            if (random() % 16 == 0) device.Advance(std::chrono::milliseconds(random() % 3000));
            if (random() % 64 == 0) device.faults().no_paper = random() % 2 == 0;
            if (i % 100 == 0) {
                ExpectSane(device);
                device.TearOffPaper();
            }
            device.TakeAnswer();
        }
        receipts += device.receipt_counter();
        device.Advance(1min);
        EXPECT_EQ(Send(device, kIdentify).size(), 2u);
    }
    EXPECT_GT(receipts, 0) << "the bytes never made a receipt";
}

}  // namespace
}  // namespace sim_test
