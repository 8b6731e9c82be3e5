// The bytes of a fuzzer's input, taken one after the other; behind their end there are zeros.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "support/memory_platform.h"
#include "support/modem_frame.h"

class Input {
  public:
    Input(const uint8_t* bytes, std::size_t count) : next_(bytes), end_(bytes + count) {}

    bool Empty() const { return next_ == end_; }
    uint8_t Byte() { return Empty() ? uint8_t{0} : *next_++; }
    uint32_t Word() {
        uint32_t word = 0;
        for (int i = 0; i < 4; ++i) word = word << 8 | Byte();
        return word;
    }
    Bytes Take(std::size_t count) {
        const auto taken = std::min(count, static_cast<std::size_t>(end_ - next_));
        next_ += taken;
        return {next_ - taken, next_};
    }

    // What a hostile controller says at once: whole frames, damaged ones, and bytes of any kind.
    Bytes Line() {
        const uint8_t kind = Byte();
        if (kind >= 0xC0) return Take(kind & 0x3F);
        const uint8_t flags = Byte();
        const std::size_t length = kind < 0x40 ? kind & 7u : Byte();
        Bytes body = Bytes{flags} + Take(length);
        if (body.size() > 216) body.resize(216);
        Bytes line = modem::Frame(body);
        if (kind >= 0x80) {
            uint8_t& damaged = line[Byte() % line.size()];
            damaged ^= Byte();
        }
        return line;
    }

  private:
    const uint8_t* next_;
    const uint8_t* end_;
};

// Ends the run as a sanitizer does when what has to hold does not.
inline void Require(bool right, const char* what) {
    if (right) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

// The frame that ends at the end of the line, by the tests' own decoder: its flags, or -1.
inline int FlagsOfLastFrame(const Bytes& line) {
    for (std::size_t size = 10; size <= std::min<std::size_t>(256, line.size()); ++size) {
        Bytes frame(line.end() - static_cast<long>(size), line.end());
        frame[0] = 'K';  // the first byte of a sync is not compared again
        if (!std::equal(frame.begin(), frame.begin() + 5, "KORAX")) continue;
        if (const auto body = modem::Unframe(frame)) return body->front();
    }
    return -1;
}
