#include "sim/line.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace sim {
namespace {

constexpr int kBitsPerByte = 11;
constexpr std::uint8_t kTurnedBit = 0x01;
constexpr std::uint8_t kGarbage = 0x55;

bool Take(int& count) {
    if (count == 0) return false;
    --count;
    return true;
}

}  // namespace

Line::Line(int baud)
    : byte_time_(baud > 0 ? std::chrono::nanoseconds{std::chrono::seconds{kBitsPerByte}} / baud
                          : std::chrono::nanoseconds{}) {}

Line::Channel& Line::Of(Direction direction) {
    return direction == Direction::ToDevice ? to_device_ : from_device_;
}

void Line::Send(std::span<const std::uint8_t> bytes, LineTime now) {
    if (!connected_) return;
    for (const std::uint8_t byte : bytes) to_device_.bytes.push_back({now, byte, 0});
}

void Line::Answer(std::span<const std::uint8_t> bytes, int exchange, LineTime now) {
    if (bytes.empty() || !connected_) return;
    if (faults.silence) {
        std::string lost;
        for (const std::uint8_t byte : bytes) lost += fmt::format("{:02x}", byte);
        Remark(now, "not sent " + lost);
        return;
    }
    for (const std::uint8_t byte : Distort(bytes))
        from_device_.bytes.push_back({now + faults.answer_delay, byte, exchange});
}

// The faults of whole answers.
Bytes Line::Distort(std::span<const std::uint8_t> answer) {
    Bytes bytes(answer.begin(), answer.end());
    if (std::exchange(answering_, true)) return bytes;
    if (Take(faults.drop)) bytes.pop_back();
    if (Take(faults.flip) && !bytes.empty()) bytes.back() ^= kTurnedBit;
    if (Take(faults.garbage)) bytes.insert(bytes.begin(), kGarbage);
    return bytes;
}

std::optional<std::chrono::nanoseconds> Line::NextOf(Direction direction) const {
    const bool answers = direction == Direction::FromDevice;
    const Channel& channel = answers ? from_device_ : to_device_;
    if (channel.bytes.empty()) return std::nullopt;
    const std::chrono::nanoseconds earliest = channel.bytes.front().ready + byte_time_;
    if (!channel.last) return earliest;
    std::chrono::nanoseconds distance = byte_time_;
    if (answers) distance = std::max<std::chrono::nanoseconds>(distance, faults.answer_pieces);
    return std::max(earliest, *channel.last + distance);
}

std::optional<LineTime> Line::next() const {
    if (held_) return held_->at;
    const auto to_device = NextOf(Direction::ToDevice);
    const auto from_device = NextOf(Direction::FromDevice);
    if (!to_device && !from_device) return std::nullopt;
    const auto earlier = std::min(to_device.value_or(std::chrono::nanoseconds::max()),
                                  from_device.value_or(std::chrono::nanoseconds::max()));
    return std::chrono::ceil<LineTime>(earlier);
}

// Of two bytes at one time the answer comes first: it belongs to what was sent before.
std::optional<LineByte> Line::Arrive(LineTime now) {
    while (connected_) {
        if (const auto next_at = next(); !next_at || *next_at > now) return std::nullopt;
        std::optional<LineByte> arrived = std::exchange(held_, std::nullopt);
        if (!arrived) {
            const auto to_device = NextOf(Direction::ToDevice);
            const auto from_device = NextOf(Direction::FromDevice);
            const bool answer = from_device && (!to_device || *from_device <= *to_device);
            const Direction direction = answer ? Direction::FromDevice : Direction::ToDevice;
            Channel& channel = Of(direction);
            const Waiting waiting = channel.bytes.front();
            channel.bytes.pop_front();
            channel.last = answer ? from_device : to_device;
            arrived = {std::chrono::floor<LineTime>(*channel.last), direction, waiting.byte,
                       waiting.exchange};
            if (!Strike(*arrived)) continue;
        }
        if (arrived->direction == Direction::ToDevice) answering_ = false;
        if (tap_) tap_->Byte(*arrived);
        return arrived;
    }
    return std::nullopt;
}

// The faults that wait for a byte have come one byte nearer. Returns whether the byte survives.
bool Line::Strike(LineByte& byte) {
    std::vector<ByteFault> due;
    std::erase_if(faults.bytes, [&](AwaitedFault& awaited) {
        if (awaited.direction != byte.direction || --awaited.left > 0) return false;
        due.push_back(awaited.fault);
        return true;
    });
    std::optional<LineByte> before;
    bool lost = false;
    for (const ByteFault fault : due) {
        Remark(byte.at, fmt::format("fault: byte {} {}, byte {:02x}", NameOf(fault),
                                    NameOf(byte.direction), byte.byte));
        switch (fault) {
            case ByteFault::Drop:
                lost = true;
                break;
            case ByteFault::Flip:
                byte.byte ^= kTurnedBit;
                break;
            case ByteFault::Garbage:
                before = byte;
                before->byte = kGarbage;
                break;
            case ByteFault::Cut:
                TakeCableOut(byte.at);
                return false;
        }
    }
    if (!before) return !lost;
    if (!lost) held_ = byte;
    byte = *before;
    return true;
}

bool Line::Carries(int exchange) const {
    const bool held = held_ && held_->direction == Direction::FromDevice;
    if (held && held_->exchange <= exchange) return true;
    return !from_device_.bytes.empty() && from_device_.bytes.front().exchange <= exchange;
}

void Line::TakeCableOut(LineTime now) {
    if (!std::exchange(connected_, false)) return;
    to_device_.bytes.clear();
    from_device_.bytes.clear();
    held_.reset();
    Remark(now, "hung up");
}

void Line::PutCableIn(LineTime now) {
    if (!std::exchange(connected_, true)) Remark(now, "connected");
}

void Line::Remark(LineTime at, std::string_view text) {
    if (tap_) tap_->Remark(at, text);
}

}  // namespace sim
