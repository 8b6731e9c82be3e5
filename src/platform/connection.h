// A TCP connection in place of a serial port: the line of a simulated device, or of a converter that
// passes bytes as they are. The serial calls of each system hand the handles of connections on to
// these; what a serial line has and a connection lacks (settings, modem lines) is missing here.
#pragma once

#include <cstdint>

#include "platform/serial.h"

namespace platform {

// "tcp://HOST:PORT": HOST is an IPv4 address, an IPv6 address in brackets, or localhost; PORT 1 to
// 65535. The first asks whether a name means a connection at all, the second whether it is right.
bool MeansConnection(const char* name);
bool NamesConnection(const char* name);

// Handles of connections lie below those of lines.
inline bool IsConnection(LineHandle line) {
    return line < kNoLine;
}

// Connects within the time. kNoLine and `error` on failure.
LineHandle OpenConnection(const char* name, uint32_t timeout_s, uint32_t& error);
uint32_t CloseConnection(LineHandle line);

// Of the settings a connection keeps the time-outs.
uint32_t ApplyConnectionSettings(LineHandle line, const LineSettings& settings);

uint32_t WriteToConnection(LineHandle line, const uint8_t* bytes, uint32_t count);
uint32_t ReadFromConnection(LineHandle line, uint8_t* bytes, uint32_t count);
uint32_t PurgeConnectionInput(LineHandle line);

}  // namespace platform
