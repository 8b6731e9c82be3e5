#include "platform/socket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/deadline.h"
#include "platform/socket_address.h"

namespace platform {
namespace {

Deadline After(uint32_t timeout_ms) {
    return Deadline(MonotonicUs() + uint64_t{timeout_ms} * 1'000);
}

bool WaitFor(int descriptor, short event, const Deadline& deadline) {
    for (;;) {
        pollfd watched{descriptor, event, 0};
        const int ready = poll(&watched, 1, deadline.RemainingMs());
        if (ready > 0) return true;  // a broken connection shows in the transfer that follows
        if (ready < 0 && errno != EINTR) return false;
        if (deadline.HasPassed()) return false;
    }
}

bool Connected(int descriptor, const Address& address, uint32_t timeout_ms) {
    if (connect(descriptor, &address.any, address.length) == 0) return true;
    if (errno != EINPROGRESS && errno != EINTR) return false;
    if (!WaitFor(descriptor, POLLOUT, After(timeout_ms))) return false;
    int error = 0;
    socklen_t size = sizeof error;
    return getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
}

}  // namespace

bool IsIPv4Address(const char* text) {
    in_addr parsed;
    return inet_pton(AF_INET, text, &parsed) == 1;
}

bool IsIPv6Address(const char* text) {
    in6_addr parsed;
    return inet_pton(AF_INET6, text, &parsed) == 1;
}

SocketHandle ConnectTcp(const char* text, uint16_t port, uint32_t timeout_ms) {
    Address address;
    if (!ParseAddress(text, port, address)) return kNoSocket;
    const int descriptor =
        socket(address.any.sa_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (descriptor < 0) return kNoSocket;
    if (!Connected(descriptor, address, timeout_ms)) {
        close(descriptor);
        return kNoSocket;
    }
    const int on = 1;  // a frame waits for its reply: nothing is gained by holding it back
    setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    return descriptor;
}

bool SendAll(SocketHandle socket, const uint8_t* bytes, uint32_t count, uint32_t timeout_ms) {
    const Deadline deadline = After(timeout_ms);
    uint32_t sent = 0;
    while (sent < count) {
        const ssize_t step =
            send(static_cast<int>(socket), bytes + sent, count - sent, MSG_NOSIGNAL);
        if (step > 0) {
            sent += static_cast<uint32_t>(step);
        } else if (errno != EINTR && errno != EAGAIN) {
            return false;
        } else if (!WaitFor(static_cast<int>(socket), POLLOUT, deadline)) {
            return false;
        }
    }
    return true;
}

uint32_t ReceiveSome(SocketHandle socket, uint8_t* bytes, uint32_t room, uint32_t timeout_ms) {
    const Deadline deadline = After(timeout_ms);
    for (;;) {
        const ssize_t count = recv(static_cast<int>(socket), bytes, room, 0);
        if (count > 0) return static_cast<uint32_t>(count);
        if (count == 0 || (errno != EINTR && errno != EAGAIN)) return 0;
        if (!WaitFor(static_cast<int>(socket), POLLIN, deadline)) return 0;
    }
}

void DiscardReceived(SocketHandle socket) {
    uint8_t discarded[4096];
    for (uint32_t total = 0; total < kMostDiscarded;) {
        const ssize_t count = recv(static_cast<int>(socket), discarded, sizeof discarded, 0);
        if (count <= 0) return;
        total += static_cast<uint32_t>(count);
    }
}

bool CloseSocket(SocketHandle socket) {
    return close(static_cast<int>(socket)) == 0 || errno == EINTR;
}

}  // namespace platform
