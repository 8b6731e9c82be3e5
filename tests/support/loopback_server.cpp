#include "support/loopback_server.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <linux/sockios.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

LoopbackServer::LoopbackServer(const char* address, uint16_t wanted_port, Serve serve)
    : serve_(std::move(serve)), listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in name{AF_INET, htons(wanted_port), {inet_addr(address)}, {}};
    socklen_t size = sizeof name;
    auto* any = reinterpret_cast<sockaddr*>(&name);
    const int on = 1;
    setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    EXPECT_EQ(bind(listener_, any, size), 0) << address << ":" << wanted_port;
    EXPECT_EQ(listen(listener_, 1), 0);
    EXPECT_EQ(getsockname(listener_, any, &size), 0);
    port_ = ntohs(name.sin_port);
    thread_ = std::thread([this] { Run(); });
}

// The thread serves until the driver hangs up, and then finds the listener closed.
LoopbackServer::~LoopbackServer() {
    shutdown(listener_, SHUT_RDWR);
    thread_.join();
    close(listener_);
}

void LoopbackServer::Run() {
    while ((connection_ = accept(listener_, nullptr, nullptr)) >= 0) {
        Bytes buffer(512);
        for (long count; (count = recv(connection_, buffer.data(), buffer.size(), 0)) > 0;) {
            const Bytes answer = serve_(Bytes(buffer.begin(), buffer.begin() + count));
            if (answer.empty()) break;
            send(connection_, answer.data(), answer.size(), MSG_NOSIGNAL);
            ++answers_;
        }
        close(connection_);
    }
}

// What the other end has received it has confirmed.
void LoopbackServer::AwaitDelivered(int answers) const {
    const auto delivered = [&] {
        int unconfirmed = 0;
        return answers_ >= answers && ioctl(connection_, SIOCOUTQ, &unconfirmed) == 0 &&
               unconfirmed == 0;
    };
    while (!delivered()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
}
