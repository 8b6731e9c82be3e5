#include "links/msgqueue.h"

#include <algorithm>

#include "platform/window_messages.h"

uint32_t MsgID = 0;
uint32_t ProcessIDFromFile = 0;

namespace {

constexpr uint32_t kNajwiekszaWartosc = 0xFFFFFF;  // the message carries 24 bits
constexpr uint32_t kNajwyzszyNumer = 0xFFFFFFFF;

uint32_t IdSterownika() {
    return ProcessIDFromFile != 0 ? ProcessIDFromFile : GetPid_();
}

}  // namespace

void InitMsgID_(uint32_t id) {
    MsgID = id;
}

uint32_t GetMsgID_() {
    return MsgID;
}

uint32_t GetPid_() {
    return platform::ProcessId();
}

bool MsgToServer_(char letter, uint32_t value) {
    return WinSndMsg('D', 0, letter, value);
}

char MsgFromServer_() {
    return WinRcvMsg('D', nullptr, nullptr);
}

bool WinSndMsg(char kind, uint32_t wparam, char letter, uint32_t value) {
    if (MsgID == 0) return false;
    platform::WindowMessage message = {MsgID, 0, 0};
    if (kind == 'D' || kind == 'S') {
        message.wparam = kind == 'D' ? IdSterownika() : wparam;
        const uint32_t packed =
            static_cast<uint8_t>(letter) + (std::min(value, kNajwiekszaWartosc) << 8);
        message.lparam = static_cast<intptr_t>(packed);
    }
    return platform::PostToAllWindows(message);
}

char WinRcvMsg(char kind, uint32_t* wparam, uint32_t* value) {
    if (MsgID == 0) return 0;
    if (wparam != nullptr) *wparam = 0;
    if (value != nullptr) *value = 0;

    // The thread's other messages keep moving: one from below and one from above the link's number.
    // (0, 0 would mean all of them to the system, and there is nothing of use below number 1.)
    if (MsgID > 1) platform::DispatchOneWindowMessage(0, MsgID - 1);
    if (MsgID != kNajwyzszyNumer) platform::DispatchOneWindowMessage(MsgID + 1, kNajwyzszyNumer);

    platform::WindowMessage message;
    while (platform::TakeWindowMessage(MsgID, MsgID, message)) {
        const auto packed = static_cast<uint32_t>(message.lparam);
        const char letter = static_cast<char>(packed & 0xFF);
        const bool for_driver =
            kind == 'D' && message.wparam == IdSterownika() && letter >= 'a' && letter <= 'z';
        const bool for_server = kind == 'S' && letter >= 'A' && letter <= 'Z';
        if (!for_driver && !for_server) continue;
        if (for_server && wparam != nullptr) *wparam = static_cast<uint32_t>(message.wparam);
        if (value != nullptr) *value = packed >> 8;
        return letter;
    }
    return 0;
}
