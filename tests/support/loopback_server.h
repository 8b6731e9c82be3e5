// A TCP server on the loopback with a thread of its own.
#pragma once

#include <atomic>
#include <functional>
#include <thread>

#include "support/memory_platform.h"

class LoopbackServer {
  public:
    // What is answered to the bytes that came; the server hangs up on an empty answer.
    using Serve = std::function<Bytes(const Bytes&)>;

    LoopbackServer(const char* address, uint16_t wanted_port, Serve serve);  // port 0: any
    ~LoopbackServer();
    uint16_t port() const { return port_; }
    // Returns when that many answers lie at the client's end.
    void AwaitDelivered(int answers) const;

  private:
    void Run();

    Serve serve_;
    int listener_;
    uint16_t port_ = 0;
    std::atomic<int> connection_ = -1, answers_ = 0;
    std::thread thread_;
};
