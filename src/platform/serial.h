// The serial line as the port layer sees it. Three implementations meet this header at link time:
// win32/ (the Win32 serial calls), posix/ (termios) and the tests' line in memory.
#pragma once

#include <cstddef>
#include <cstdint>

namespace platform {

using LineHandle = std::intptr_t;
inline constexpr LineHandle kNoLine = -1;

// What fails gives the operating system's error number; the driver knows these two by their text.
inline constexpr uint32_t kErrorNoSuchDevice = 2;
inline constexpr uint32_t kErrorDeviceInUse = 5;

inline constexpr std::size_t kDeviceNameSize = 257;  // 256 characters and the terminator
using DeviceName = char[kDeviceNameSize];

enum class DeviceKind { kCom, kLpt };

struct LineSettings {
    uint32_t baud;
    uint8_t byte_size;         // bits, 8
    uint8_t parity;            // 0 none, 1 odd, 2 even
    uint8_t stop_bits;         // 0 one, 1 one and a half, 2 two
    bool cts_flow_control;     // output waits for CTS
    uint32_t write_timeout_s;  // one write call at most; see WriteBytes
    uint32_t read_timeout_s;   // one read call at most; 0 = what is there already
};

// Modem status bits, as the Win32 calls report them.
inline constexpr uint8_t kLineCts = 0x10;
inline constexpr uint8_t kLineDsr = 0x20;
inline constexpr uint8_t kLineRing = 0x40;
inline constexpr uint8_t kLineCarrier = 0x80;

// Writes the system's name of port `number`; false when there is no such name.
bool BuildDeviceName(DeviceKind kind, uint32_t number, DeviceName& name);

// Opens the device for this process alone; a connection in its place (platform/connection.h) within
// the time. kNoLine and `error` on failure.
LineHandle OpenLine(const char* name, uint32_t connect_timeout_s, uint32_t& error);

// Raw 8-bit line with these settings, no software flow control, DTR and RTS not driven by the
// system. 0, or the system's error.
uint32_t ApplySettings(LineHandle line, const LineSettings& settings);

// Lets written bytes leave (within the write time-out) and closes. 0, or the system's error.
uint32_t CloseLine(LineHandle line);

uint32_t PurgeOutput(LineHandle line);  // what a failed transfer left, nothing else
uint32_t PurgeInput(LineHandle line);

// Both return the count of bytes moved; less than `count` means that the time-out passed or that
// the line failed. A byte received with a parity or framing error is not moved: it is a failure.
uint32_t WriteBytes(LineHandle line, const uint8_t* bytes, uint32_t count);
uint32_t ReadBytes(LineHandle line, uint8_t* bytes, uint32_t count);

// Waits until the written bytes have left.
void FlushLine(LineHandle line);

bool SetDtr(LineHandle line, bool raised);
bool SetRts(LineHandle line, bool raised);
uint8_t ModemLines(LineHandle line);  // kLine... bits; 0 when the line cannot tell

}  // namespace platform
