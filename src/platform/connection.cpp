#include "platform/connection.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include "platform/clock.h"
#include "platform/socket.h"

namespace platform {
namespace {

constexpr char kScheme[] = "tcp://";
constexpr char kLocalHost[] = "localhost";
constexpr std::size_t kHostSize = 64;  // the longest numeric address, and the terminator

// What a name says.
struct Target {
    char host[kHostSize];
    uint16_t port;
};

struct Connection {
    SocketHandle socket = kNoSocket;  // kNoSocket: this entry is free
    uint32_t write_timeout_ms = 0;
    uint32_t read_timeout_ms = 0;
    // What one receiving took, served one by one.
    uint8_t taken[256]{};
    uint32_t next = 0;
    uint32_t count = 0;
};

// One for the session and one for the look whether another port is present.
constinit Connection connections[2]{};

constexpr LineHandle kFirstHandle = kNoLine - 1;

Connection* FindConnection(LineHandle line) {
    const LineHandle index = kFirstHandle - line;
    if (index < 0 || index >= static_cast<LineHandle>(std::size(connections))) return nullptr;
    Connection& connection = connections[index];
    return connection.socket == kNoSocket ? nullptr : &connection;
}

// Digits alone, up to the end of the text.
bool ReadPort(const char* text, uint16_t& port) {
    unsigned value = 0;
    if (*text == '\0') return false;
    for (; *text != '\0'; ++text) {
        if (*text < '0' || *text > '9') return false;
        value = value * 10 + static_cast<unsigned>(*text - '0');
        if (value > 65535) return false;
    }
    port = static_cast<uint16_t>(value);
    return value != 0;
}

bool CopyHost(const char* first, const char* end, char (&host)[kHostSize]) {
    const auto length = static_cast<std::size_t>(end - first);
    if (length == 0 || length >= kHostSize) return false;
    std::memcpy(host, first, length);
    host[length] = '\0';
    return true;
}

// An IPv6 address stands in brackets, and nothing else does.
bool ReadHost(const char* first, const char* end, char (&host)[kHostSize]) {
    if (*first != '[') {
        return CopyHost(first, end, host) &&
               (std::strcmp(host, kLocalHost) == 0 || IsIPv4Address(host));
    }
    return end - first > 2 && end[-1] == ']' && CopyHost(first + 1, end - 1, host) &&
           IsIPv6Address(host);
}

bool ReadTarget(const char* name, Target& target) {
    if (!MeansConnection(name)) return false;
    const char* host = name + sizeof kScheme - 1;
    const char* colon = std::strrchr(host, ':');
    return colon != nullptr && ReadPort(colon + 1, target.port) &&
           ReadHost(host, colon, target.host);
}

uint32_t Milliseconds(uint32_t seconds) {
    constexpr uint32_t kLongestS = 4'000'000;
    return std::min(seconds, kLongestS) * 1000;
}

// A local host listens on either address; both have one time between them.
SocketHandle Connect(const Target& target, uint32_t timeout_ms) {
    if (std::strcmp(target.host, kLocalHost) != 0) {
        return ConnectTcp(target.host, target.port, timeout_ms);
    }
    const uint64_t start_us = MonotonicUs();
    const SocketHandle socket = ConnectTcp("127.0.0.1", target.port, timeout_ms);
    if (socket != kNoSocket) return socket;
    const uint64_t passed_ms = (MonotonicUs() - start_us) / 1'000;
    return passed_ms < timeout_ms
               ? ConnectTcp("::1", target.port, timeout_ms - static_cast<uint32_t>(passed_ms))
               : kNoSocket;
}

}  // namespace

bool MeansConnection(const char* name) {
    return std::strncmp(name, kScheme, sizeof kScheme - 1) == 0;
}

bool NamesConnection(const char* name) {
    Target target{};
    return ReadTarget(name, target);
}

LineHandle OpenConnection(const char* name, uint32_t timeout_s, uint32_t& error) {
    error = kErrorNoSuchDevice;
    Target target{};
    if (!ReadTarget(name, target)) return kNoLine;
    for (Connection& connection : connections) {
        if (connection.socket != kNoSocket) continue;
        connection = Connection{};
        connection.socket = Connect(target, Milliseconds(timeout_s));
        if (connection.socket == kNoSocket) return kNoLine;
        error = 0;
        return kFirstHandle - (&connection - connections);
    }
    return kNoLine;
}

uint32_t CloseConnection(LineHandle line) {
    Connection* connection = FindConnection(line);
    if (connection == nullptr) return kErrorNoSuchDevice;
    const bool closed = CloseSocket(connection->socket);
    connection->socket = kNoSocket;
    return closed ? 0 : kErrorNoSuchDevice;
}

uint32_t ApplyConnectionSettings(LineHandle line, const LineSettings& settings) {
    Connection* connection = FindConnection(line);
    if (connection == nullptr) return kErrorNoSuchDevice;
    connection->write_timeout_ms = Milliseconds(settings.write_timeout_s);
    connection->read_timeout_ms = Milliseconds(settings.read_timeout_s);
    return 0;
}

uint32_t WriteToConnection(LineHandle line, const uint8_t* bytes, uint32_t count) {
    const Connection* connection = FindConnection(line);
    if (connection == nullptr) return 0;
    const bool sent = SendAll(connection->socket, bytes, count, connection->write_timeout_ms);
    return sent ? count : 0;
}

uint32_t ReadFromConnection(LineHandle line, uint8_t* bytes, uint32_t count) {
    Connection* connection = FindConnection(line);
    if (connection == nullptr) return 0;
    uint32_t moved = 0;
    while (moved < count) {
        if (connection->next == connection->count) {
            connection->next = 0;
            connection->count = ReceiveSome(connection->socket, connection->taken,
                                            sizeof connection->taken, connection->read_timeout_ms);
            if (connection->count == 0) break;
        }
        bytes[moved++] = connection->taken[connection->next++];
    }
    return moved;
}

uint32_t PurgeConnectionInput(LineHandle line) {
    Connection* connection = FindConnection(line);
    if (connection == nullptr) return kErrorNoSuchDevice;
    connection->next = connection->count = 0;
    DiscardReceived(connection->socket);
    return 0;
}

}  // namespace platform
