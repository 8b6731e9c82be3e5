// The host's end of the line, for the tests of the simulator: sequences as bytes, nothing more.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "sim/device.h"

namespace sim_test {

using namespace std::chrono_literals;
using sim::Bytes;
using sim::Device;

constexpr std::uint8_t kAck = 0x06, kNak = 0x15;

inline Bytes operator+(Bytes left, const Bytes& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

/// A text, blank-padded or cut to `width` bytes; 0 leaves it as it is.
inline Bytes Text(std::string_view text, std::size_t width = 0) {
    Bytes bytes(text.begin(), text.end());
    if (width > 0) bytes.resize(width, ' ');
    return bytes;
}

/// Four bytes, least significant first.
inline Bytes Long(std::int64_t number) {
    Bytes bytes;
    for (int i = 0; i < 4; ++i) bytes.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
    return bytes;
}

/// A control sequence: Esc, the command byte, the data.
inline Bytes Esc(int command, const Bytes& data = {}) {
    return Bytes{0x1B, static_cast<std::uint8_t>(command)} + data;
}

/// An item; what a test does not name is two loaves of bread.
struct Item {
    std::string sign = " ", name = "Chleb razowy";
    std::int64_t quantity = 2;
    std::uint8_t decimals = 0;
    std::string unit = "szt";
    std::int64_t price = 350;
    std::uint8_t rate = 1;
    std::int64_t value = 700;
    std::uint8_t marker = 0x1B;
    std::string message = "0";
};

/// The sequence that sells it, in the layout for names of 28 or 40 characters.
inline Bytes Sold(const Item& item, std::size_t width = 28) {
    return Esc(width == 28 ? 6 : 5) + Text(item.sign) + Text(item.name, width) +
           Text(item.message) + Long(item.quantity) + Bytes{item.decimals} + Text(item.unit, 4) +
           Long(item.price) + Bytes{item.marker, item.rate} + Long(item.value);
}

inline Bytes Total(std::int64_t total) {
    return Esc(0x07, Long(total));
}

const Bytes kBegin = Esc(0x21), kCancel = Esc(0x23), kEnd = Esc(0x24), kBread = Sold({});
const Bytes kCorrection = Sold({.sign = "-"}), kReceipt = kBegin + kBread + Total(700) + kEnd;

/// Sends bytes and returns all that the device answers.
inline Bytes Send(Device& device, const Bytes& bytes) {
    device.Receive(bytes);
    return device.TakeAnswer();
}

/// A line of the footer or a row of the logo with its check sum, perhaps a wrong one.
inline Bytes SetupLine(int command, std::uint8_t number, const Bytes& content,
                       bool damaged = false) {
    std::uint8_t sum = damaged ? 1 : 0;
    for (const std::uint8_t byte : content) sum ^= byte;
    return Esc(command, Bytes{number} + content + Bytes{sum});
}
inline Bytes FooterLine(std::uint8_t number, std::string_view text, bool damaged = false) {
    return SetupLine(0x2E, number, Text(text, 40), damaged);
}
inline Bytes LogoRow(std::uint8_t number, std::uint8_t dots, bool damaged = false) {
    return SetupLine(0x2D, number, Bytes(24, dots), damaged);
}
/// All rows of a logo.
inline Bytes Logo(std::uint8_t dots) {
    Bytes rows;
    for (std::uint8_t row = 0; row < 64; ++row) rows = rows + LogoRow(row, dots);
    return rows;
}

/// A part of a dialogue: what the host sends, what the device answers.
struct Step {
    const char* what;
    Bytes sent, answer{};
};

inline void Talk(Device& device, const std::vector<Step>& steps) {
    for (const Step& step : steps) EXPECT_EQ(Send(device, step.sent), step.answer) << step.what;
}

/// The paper as one text.
inline std::string Paper(const Device& device) {
    std::string text;
    for (const sim::PaperLine& line : device.paper()) text += line.text + "\n";
    return text;
}

}  // namespace sim_test
