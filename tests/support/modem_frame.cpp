#include "support/modem_frame.h"

#include <algorithm>

#include "support/script.h"

namespace modem {

namespace {

const Bytes kSync = FromText("'KORAX'");

unsigned CheckSum(const Bytes& bytes) {
    unsigned sum = 0;
    for (const uint8_t byte : bytes) {
        sum ^= byte;
        for (int bit = 0; bit < 8; ++bit) sum = sum % 2 != 0 ? sum / 2 ^ 0xA001u : sum / 2;
    }
    return sum;
}

// Groups of eight line bytes, the first of which has the top bits of the others.
Bytes Decode(const Bytes& line) {
    Bytes body;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const int top = line[i - i % 8] << i % 8 & 0x80;
        if (i % 8 != 0) body.push_back(static_cast<uint8_t>((line[i] & 0x7F) | top));
    }
    return body;
}

Bytes Slice(const Bytes& bytes, std::size_t from, std::size_t count = 9999) {
    const auto first = bytes.begin() + static_cast<long>(std::min(from, bytes.size()));
    return {first, first + std::min(static_cast<long>(count), bytes.end() - first)};
}

}  // namespace

Bytes Frame(const Bytes& body) {
    const std::size_t size = body.size() + 3;
    Bytes raw = Bytes{static_cast<uint8_t>(size + (size + 6) / 7)} + body;
    const unsigned sum = CheckSum(raw);
    raw = raw + Bytes{static_cast<uint8_t>(sum % 256), static_cast<uint8_t>(sum / 256)};
    Bytes line = kSync;
    for (std::size_t at = 0; at < raw.size(); at += 7) {
        Bytes group = {0x80};
        for (const uint8_t byte : Slice(raw, at, 7)) {
            group.push_back(byte | 0x80);
            group[0] |= static_cast<uint8_t>((byte & 0x80) >> (group.size() - 1));
        }
        line = line + group;
    }
    return line;
}

std::optional<Bytes> Unframe(const Bytes& line) {
    const Bytes raw = Decode(Slice(line, kSync.size()));
    const bool good = raw.size() >= 4 && raw[0] + kSync.size() == line.size() && CheckSum(raw) == 0;
    return good ? std::optional(Slice(raw, 1, raw.size() - 3)) : std::nullopt;
}

}  // namespace modem
