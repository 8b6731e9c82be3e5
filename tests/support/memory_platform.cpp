#include "support/memory_platform.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include "platform/clock.h"
#include "platform/message_box.h"

namespace memory {

Platform os;

std::string Platform::TakeCalls() {
    std::string joined;
    for (const std::string& call : calls) joined += (joined.empty() ? "" : "; ") + call;
    calls.clear();
    return joined;
}

void Platform::Wait(uint64_t ms) {
    now_ms += ms;
    if (peer != nullptr && !vanished) peer->TimePassed(static_cast<uint32_t>(ms));
}

}  // namespace memory

using memory::os;

namespace platform {

namespace {

constexpr LineHandle kTheLine = 7;
constexpr uint32_t kErrorDeviceGone = 22;

// The driver is to use a line only while it is open.
uint32_t Use(LineHandle line) {
    EXPECT_TRUE(line == kTheLine && os.line_open) << "on a line that is not open";
    return os.vanished ? kErrorDeviceGone : 0;
}

uint32_t Control(LineHandle line, const std::string& operation) {
    os.calls.push_back(operation);
    return Use(line);
}

}  // namespace

bool CanNameDevice(const char*) {
    return true;
}

bool BuildDefaultName(DeviceKind kind, uint32_t number, DeviceName& name) {
    std::snprintf(name, sizeof name, "%s%u", kind == DeviceKind::kCom ? "COM" : "LPT", number);
    return true;
}

LineHandle OpenLine(const char* name, uint32_t /*connect_timeout_s*/, uint32_t& error) {
    os.calls.push_back(std::string("open ") + name);
    error = os.vanished || std::string(name) == "COM0" ? kErrorNoSuchDevice : os.open_error;
    if (error == 0 && os.line_open) error = kErrorDeviceInUse;
    if (error != 0) return kNoLine;
    os.line_open = true;
    return kTheLine;
}

uint32_t ApplySettings(LineHandle line, const LineSettings& s) {
    os.settings = s;
    const uint32_t gone =
        Control(line, fmt::format("apply {} {}{}{}{} w{} r{}", s.baud, s.byte_size, "NOE"[s.parity],
                                  s.stop_bits + 1, s.cts_flow_control ? " cts" : "",
                                  s.write_timeout_s, s.read_timeout_s));
    return gone != 0 ? gone : os.settings_error;
}

uint32_t CloseLine(LineHandle line) {
    const uint32_t error = Control(line, "close");
    os.line_open = false;
    os.input.clear();
    return error;
}

uint32_t PurgeOutput(LineHandle line) {
    return Control(line, "purge out");
}

uint32_t PurgeInput(LineHandle line) {
    os.discarded_bytes += os.input.size();
    os.input.clear();
    return Control(line, "purge in");
}

uint32_t WriteBytes(LineHandle line, const uint8_t* bytes, uint32_t count) {
    if (Use(line) != 0) return 0;
    const uint32_t moved = std::min(count, os.writable_bytes.value_or(count));
    if (os.writable_bytes) *os.writable_bytes -= moved;
    os.writes.push_back(count);
    if (moved > 0 && os.peer != nullptr) os.peer->HostSent(Bytes(bytes, bytes + moved));
    if (moved < count) os.Wait(1000ull * os.settings.write_timeout_s);
    return moved;
}

uint32_t ReadBytes(LineHandle line, uint8_t* bytes, uint32_t count) {
    if (Use(line) != 0) return 0;
    const uint64_t deadline = os.now_ms + 1000ull * os.settings.read_timeout_s;
    // Time goes in small steps, so that a peer that answers late does it in time.
    while (os.input.size() < count && os.now_ms < deadline && !os.vanished)
        os.Wait(std::min<uint64_t>(100, deadline - os.now_ms));
    uint32_t moved = 0;
    for (; moved < count && !os.input.empty(); os.input.pop_front())
        bytes[moved++] = os.input.front();
    return moved;
}

void FlushLine(LineHandle line) {
    Control(line, "flush");
}

bool SetDtr(LineHandle line, bool raised) {
    return Control(line, raised ? "DTR on" : "DTR off") == 0;
}

bool SetRts(LineHandle line, bool raised) {
    os.rts = raised;
    return Control(line, raised ? "RTS on" : "RTS off") == 0;
}

uint8_t ModemLines(LineHandle line) {
    return Control(line, "modem lines") == 0 ? os.modem_lines[os.rts ? 1 : 0] : uint8_t{0};
}

void SleepMs(uint32_t ms) {
    os.calls.push_back("sleep " + std::to_string(ms));
    os.Wait(ms);
}

void PauseMs(uint32_t ms) {
    os.calls.push_back("pause " + std::to_string(ms));
    os.Wait(ms);
}

uint64_t MonotonicUs() {
    return os.now_ms * 1000;
}

int64_t SecondsSince1970() {
    return 1'769'860'800;  // 2026-01-31, noon
}

void ShowNotice(const char* caption, const char* text) {
    os.notices.push_back(std::string(caption) + "\n" + text);
}

uint32_t ProcessId() {
    return memory::kProcessId;
}

bool PostToAllWindows(const WindowMessage& message) {
    os.posted.push_back(message);
    return true;
}

bool TakeWindowMessage(uint32_t first, uint32_t last, WindowMessage& message) {
    const auto found =
        std::find_if(os.pending.begin(), os.pending.end(),
                     [=](const WindowMessage& m) { return m.number >= first && m.number <= last; });
    if (found == os.pending.end()) return false;
    message = *found;
    os.pending.erase(found);
    return true;
}

void DispatchOneWindowMessage(uint32_t first, uint32_t last) {
    WindowMessage message{};
    if (TakeWindowMessage(first, last, message)) os.dispatched.push_back(message.number);
}

bool WaitForWindowMessage() {
    os.calls.push_back("wait for message");
    if (!os.pending.empty()) return true;
    if (os.arriving.empty()) return false;
    os.pending.push_back(os.arriving.front());
    os.arriving.pop_front();
    return true;
}

}  // namespace platform
