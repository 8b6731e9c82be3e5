// A TCP connection in place of a serial port: the test listens as the device.
#include "platform/connection.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>
#include <utility>

#include "koraxdr.h"
#include "line/line_test.h"

namespace {

class Listener {
  public:
    Listener() {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        EXPECT_EQ(bind(listening, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(listening, 4), 0);
        socklen_t size = sizeof address;
        getsockname(listening, reinterpret_cast<sockaddr*>(&address), &size);
        port = ntohs(address.sin_port);
    }
    ~Listener() {
        HangUp();
        close(listening);
    }
    Listener(const Listener&) = delete;
    void Accept() { accepted = accept(listening, nullptr, nullptr); }
    void HangUp() { close(std::exchange(accepted, -1)); }
    void Send(const std::string& bytes) const {
        EXPECT_EQ(send(accepted, bytes.data(), bytes.size(), 0),
                  static_cast<ssize_t>(bytes.size()));
    }
    std::string Receive(std::size_t count) const {
        std::string bytes(count, '\0');
        const ssize_t taken = recv(accepted, bytes.data(), count, MSG_WAITALL);
        bytes.resize(taken > 0 ? static_cast<std::size_t>(taken) : 0);
        return bytes;
    }
    std::string Name(const char* host) const {
        return "tcp://" + std::string(host) + ":" + std::to_string(port);
    }

    int listening = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0), accepted = -1;
    uint16_t port = 0;
};

class Connection : public OpenLineTest {
  protected:
    void Open(const char* host, uint32_t timeout_s) {
        OpenNamed(device.Name(host), timeout_s);
        device.Accept();
    }
    Listener device;
};

TEST_F(Connection, CarriesEveryByteBothWays) {
    Open("localhost", 1);
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    EXPECT_EQ(Write(all), 256U);
    EXPECT_EQ(device.Receive(256), all);
    device.Send(all + all);
    EXPECT_EQ(Read(300).substr(0, 256), all);
}

TEST_F(Connection, APurgeDiscardsWhatHasComeTakenOrNot) {
    Open("127.0.0.1", 1);
    device.Send("ABC");
    EXPECT_EQ(Read(1), "A");
    device.Send("DEF");
    EXPECT_EQ(platform::PurgeOutput(line), 0U);
    usleep(20'000);
    EXPECT_EQ(platform::PurgeInput(line), 0U);
    device.Send("G");
    EXPECT_EQ(Read(1), "G");
}

TEST_F(Connection, TimesOutAndSeesAHangUpAtOnce) {
    Open("127.0.0.1", 1);
    EXPECT_EQ(Read(1), "");
    ExpectSeconds(1);
    device.Send("A");
    device.HangUp();
    EXPECT_EQ(Read(1), "A") << "what came before the end is served";
    EXPECT_EQ(Read(1), "");
    ExpectSeconds(0, 0.5);
    while (Write("B") != 0) usleep(1000);  // the first write may still be taken
}

TEST_F(Connection, HasNoModemLines) {
    Open("127.0.0.1", 0);
    EXPECT_FALSE(platform::SetDtr(line, true));
    EXPECT_FALSE(platform::SetRts(line, true));
    EXPECT_EQ(platform::ModemLines(line), 0);
    EXPECT_EQ(Read(1), "") << "with a time-out of 0 nothing is waited for";
}

TEST_F(Connection, HoldsNothingBack) {
    Open("127.0.0.1", 1);
    int on = 0;
    for (int descriptor = 3; descriptor < 64; ++descriptor) {
        sockaddr_in peer{};
        socklen_t size = sizeof peer;
        if (getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &size) != 0) continue;
        if (ntohs(peer.sin_port) != device.port) continue;  // not the driver's end
        size = sizeof on;
        EXPECT_EQ(getsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &on, &size), 0);
    }
    EXPECT_EQ(on, 1);
}

TEST(ConnectionName, IsAnAddressAndAPort) {
    const std::string long_zeros(300, '0');
    for (const char* right : {"127.0.0.1:1", "localhost:65535", "[::1]:9100", "[fe80::1]:9100"}) {
        EXPECT_EQ(SetPortDevice(7, (std::string("tcp://") + right).c_str()), 0) << right;
    }
    const std::string too_long = "127.0.0.1:" + long_zeros + "80";
    for (const char* wrong :
         {"", "127.0.0.1", "127.0.0.1:", "127.0.0.1:0", "127.0.0.1:65536", "127.0.0.1:99999999999",
          "127.0.0.1:+80", "127.0.0.1:80 ", "127.0.0.1:80/", "127.0.0:80", "printer:80", ":80",
          "::1:80", "[]:80", "[127.0.0.1]:80", "[::1:80", too_long.c_str()}) {
        const std::string name = std::string("tcp://") + wrong;
        EXPECT_EQ(SetPortDevice(7, name.c_str()), KORAX_E_OUT_OF_RANGE) << name;
    }
    EXPECT_EQ(SetPortDevice(7, ""), 0);
}

TEST(ConnectionName, WithNobodyBehindItIsNoDevice) {
    std::string name;
    {
        const Listener gone;
        name = gone.Name("127.0.0.1");
    }
    for (const char* nobody : {name.c_str(), "tcp://[::1]:1", "tcp://nobody:1"}) {
        uint32_t error = 0;
        EXPECT_EQ(platform::OpenLine(nobody, 1, error), platform::kNoLine) << nobody;
        EXPECT_EQ(error, platform::kErrorNoSuchDevice) << nobody;
    }
}

}  // namespace
