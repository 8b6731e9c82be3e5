#include "support/modem_controller.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <unistd.h>

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

// The sequence goes as on a direct line: the data follow a good acknowledgement only.
Bytes Controller::Answer(const Bytes& body) {
    const uint8_t flags = body[0];
    if ((flags & 0x20) == 0) return last_;  // a control code: the driver asks for a repeat
    const Bytes data = Slice(body, 6);
    Bytes answer = device(Slice(body, 4, 2));
    const bool accepted = (flags & 0x10) == 0 || (!answer.empty() && answer[0] == 6);
    if (accepted && !data.empty()) answer = answer + device(data);
    if (answer.empty() && body[1] + body[2] > 0) return {6};
    return Bytes{0} + answer;
}

Bytes Controller::Receive(const Bytes& bytes) {
    received_ = received_ + bytes;
    const auto body = Unframe(received_);
    if (!body) return {};  // the rest is still to come
    received_.clear();
    last_ = Fails() && !repeats ? Bytes{1} : Answer(*body);
    Bytes line = Frame(last_);
    if (!Fails()) return line;
    line[7] ^= repeats ? 0 : 0x11;
    return repeats ? line + line : line;
}

LoopbackServer::LoopbackServer(const char* address, uint16_t wanted, Device serve)
    : listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in name{AF_INET, htons(wanted), {inet_addr(address)}, {}};
    socklen_t size = sizeof name;
    auto* any = reinterpret_cast<sockaddr*>(&name);
    const int on = 1;
    setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    EXPECT_EQ(bind(listener, any, size) + listen(listener, 1), 0) << address << ":" << wanted;
    EXPECT_EQ(getsockname(listener, any, &size), 0);
    port = ntohs(name.sin_port);
    thread = std::thread([this, serve] {
        for (int line; (line = accept(listener, nullptr, nullptr)) >= 0; close(line)) {
            Bytes bytes(512);
            for (long count; (count = recv(line, bytes.data(), bytes.size(), 0)) > 0;) {
                const Bytes reply = serve(Slice(bytes, 0, static_cast<std::size_t>(count)));
                if (reply.empty()) break;
                send(line, reply.data(), reply.size(), MSG_NOSIGNAL);
            }
        }
    });
}

// The thread serves until the driver hangs up, and then finds the listener closed.
LoopbackServer::~LoopbackServer() {
    shutdown(listener, SHUT_RDWR);
    thread.join();
    close(listener);
}

}  // namespace modem
