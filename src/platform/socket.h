// A TCP connection as the device-server link needs it.
#pragma once

#include <cstdint>

namespace platform {

using SocketHandle = std::intptr_t;
inline constexpr SocketHandle kNoSocket = -1;

// Bytes that one discarding takes at most: more than a connection holds, so that a far end that
// never stops sending cannot hold the driver.
inline constexpr uint32_t kMostDiscarded = 16 * 1024 * 1024;

bool IsIPv4Address(const char* text);
bool IsIPv6Address(const char* text);

// Connects to a numeric address ("192.168.1.100" or "::1"); kNoSocket when that does not succeed
// within the time.
SocketHandle ConnectTcp(const char* address, uint16_t port, uint32_t timeout_ms);

// True only when every byte was handed over within the time.
bool SendAll(SocketHandle socket, const uint8_t* bytes, uint32_t count, uint32_t timeout_ms);

// Takes what has arrived, up to `room` bytes, after waiting for the first of them; 0 when none came
// within the time (0 = what is there already) or the connection is gone.
uint32_t ReceiveSome(SocketHandle socket, uint8_t* bytes, uint32_t room, uint32_t timeout_ms);

// Discards what has arrived, without waiting for more. A connection that is gone is left for the
// next transfer to find.
void DiscardReceived(SocketHandle socket);

bool CloseSocket(SocketHandle socket);

}  // namespace platform
