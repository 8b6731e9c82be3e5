#include "platform/socket.h"

#include <winsock2.h>
#include <ws2tcpip.h>

#include "platform/clock.h"
#include "platform/socket_address.h"

namespace platform {
namespace {

bool NetworkStarted() {
    static bool started = false;
    WSADATA data;
    if (!started) started = WSAStartup(MAKEWORD(2, 2), &data) == 0;
    return started;
}

enum class Wanted { kRead, kWrite };

// A connection that failed shows among the exceptions, a broken one as readable.
bool WaitFor(SOCKET socket, Wanted wanted, uint32_t timeout_ms) {
    fd_set ready, failed;
    FD_ZERO(&ready);
    FD_ZERO(&failed);
    FD_SET(socket, &ready);
    FD_SET(socket, &failed);
    timeval limit = {static_cast<long>(timeout_ms / 1000),
                     static_cast<long>(timeout_ms % 1000 * 1000)};
    const int count = select(0, wanted == Wanted::kRead ? &ready : nullptr,
                             wanted == Wanted::kWrite ? &ready : nullptr, &failed, &limit);
    return count > 0 && FD_ISSET(socket, &ready);
}

uint64_t NowMs() {
    return MonotonicUs() / 1'000;
}

uint32_t Remaining(uint64_t until_ms) {
    const uint64_t now = NowMs();
    return now >= until_ms ? 0 : static_cast<uint32_t>(until_ms - now);
}

bool WouldBlock() {
    return WSAGetLastError() == WSAEWOULDBLOCK;
}

}  // namespace

bool IsIPv4Address(const char* text) {
    in_addr parsed;
    return NetworkStarted() && inet_pton(AF_INET, text, &parsed) == 1;
}

bool IsIPv6Address(const char* text) {
    in6_addr parsed;
    return NetworkStarted() && inet_pton(AF_INET6, text, &parsed) == 1;
}

SocketHandle ConnectTcp(const char* text, uint16_t port, uint32_t timeout_ms) {
    Address address;
    if (!NetworkStarted() || !ParseAddress(text, port, address)) return kNoSocket;
    const SOCKET socket = ::socket(address.any.sa_family, SOCK_STREAM, IPPROTO_TCP);
    if (socket == INVALID_SOCKET) return kNoSocket;
    u_long nonblocking = 1;
    ioctlsocket(socket, static_cast<long>(FIONBIO), &nonblocking);
    const bool connected = connect(socket, &address.any, address.length) == 0 ||
                           (WouldBlock() && WaitFor(socket, Wanted::kWrite, timeout_ms));
    if (!connected) {
        closesocket(socket);
        return kNoSocket;
    }
    const BOOL on = TRUE;  // a frame waits for its reply: nothing is gained by holding it back
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&on), sizeof on);
    return static_cast<SocketHandle>(socket);
}

bool SendAll(SocketHandle handle, const uint8_t* bytes, uint32_t count, uint32_t timeout_ms) {
    const auto socket = static_cast<SOCKET>(handle);
    const uint64_t until_ms = NowMs() + timeout_ms;
    uint32_t sent = 0;
    while (sent < count) {
        const int step = send(socket, reinterpret_cast<const char*>(bytes) + sent,
                              static_cast<int>(count - sent), 0);
        if (step > 0) {
            sent += static_cast<uint32_t>(step);
        } else if (!WouldBlock() || !WaitFor(socket, Wanted::kWrite, Remaining(until_ms))) {
            return false;
        }
    }
    return true;
}

uint32_t ReceiveSome(SocketHandle handle, uint8_t* bytes, uint32_t room, uint32_t timeout_ms) {
    const auto socket = static_cast<SOCKET>(handle);
    const uint64_t until_ms = NowMs() + timeout_ms;
    for (;;) {
        const int count = recv(socket, reinterpret_cast<char*>(bytes), static_cast<int>(room), 0);
        if (count > 0) return static_cast<uint32_t>(count);
        if (count == 0 || !WouldBlock()) return 0;
        if (!WaitFor(socket, Wanted::kRead, Remaining(until_ms))) return 0;
    }
}

void DiscardReceived(SocketHandle handle) {
    char discarded[4096];
    for (uint32_t total = 0; total < kMostDiscarded;) {
        const int count = recv(static_cast<SOCKET>(handle), discarded, sizeof discarded, 0);
        if (count <= 0) return;
        total += static_cast<uint32_t>(count);
    }
}

bool CloseSocket(SocketHandle handle) {
    return closesocket(static_cast<SOCKET>(handle)) == 0;
}

}  // namespace platform
