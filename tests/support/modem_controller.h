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

enum class Damage { kCorrupt, kDelay, kSplit, kRepeat };
using Device = std::function<Bytes(const Bytes&)>;  // what it says to bytes on a direct line
using Said = std::vector<std::pair<Bytes, uint32_t>>;

struct Controller : memory::Peer {
    explicit Controller(Device behind) : device(std::move(behind)) {}
    // What the controller says to bytes of the driver, each with the time it takes in milliseconds.
    Said Receive(const Bytes& bytes);
    void HostSent(const Bytes& bytes) override;

    // Every n-th frame fails this way, those of both directions counted together; 0 none.
    unsigned every = 0;
    Damage damage = Damage::kCorrupt;
    unsigned damaged = 0;    // frames so far
    Bytes replies;           // flags that are answered first, instead of carrying out
    std::size_t part = 250;  // longest payload; a longer answer goes in two parts
    std::string codes;       // control codes received, "36"

  private:
    Bytes Answer(const Bytes& body);
    bool Fails() { return every != 0 && ++frames_ % every == 0 && ++damaged != 0; }
    Device device;
    Bytes received_, last_, rest_;
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
