// A modem controller as the far end of the driver's line or of its TCP connection, written from the
// frame format alone: its coder and its check sum are its own.
#pragma once

#include <functional>
#include <optional>
#include <thread>

#include "support/memory_platform.h"

namespace modem {

// A frame on the line around its body: flags and what follows them.
Bytes Frame(const Bytes& body);
// The body of one whole frame; nothing when it is damaged.
std::optional<Bytes> Unframe(const Bytes& line);

using Device = std::function<Bytes(const Bytes&)>;  // what it says to bytes on a direct line

struct Controller : memory::Peer {
    explicit Controller(Device behind) : device(std::move(behind)) {}
    // What the controller says to bytes of the driver.
    Bytes Receive(const Bytes& bytes);
    void HostSent(const Bytes& bytes) override { memory::os.Answer(Receive(bytes)); }

    // Every n-th frame is damaged, those of both directions counted together; 0 none.
    unsigned every = 0;
    bool repeats = false;  // damaged answers come twice instead

  private:
    Bytes Answer(const Bytes& body);
    bool Fails() { return every != 0 && ++frames_ % every == 0; }
    Device device;
    Bytes received_, last_;
    unsigned frames_ = 0;
};

// A TCP server on the loopback; it hangs up when the device says nothing at all.
struct LoopbackServer {
    LoopbackServer(const char* address, uint16_t wanted, Device serve);  // port 0: any
    ~LoopbackServer();
    uint16_t port;
    int listener;
    std::thread thread;
};

}  // namespace modem
