// Raw frames: bytes that go out without Esc, command byte, acknowledgement and check sum.
#pragma once

#include <initializer_list>

#include "engine/commands.h"
#include "koraxdr/send_layout.h"
#include "port/wire_bytes.h"

class RawFrame {
  public:
    RawFrame& Bytes(std::initializer_list<int> bytes) {
        run_.Bytes(bytes);
        return *this;
    }
    RawFrame& Text(const char* text) {
        run_.Text(text, TextForm::kAsGiven);
        return *this;
    }
    RawFrame& Field(int width, const char* text) {
        run_.Field(width, text);
        return *this;
    }
    RawFrame& PrintableField(int width, const char* text) {
        run_.PrintableField(width, text);
        return *this;
    }

    // True when all of it went out. The length is carried in one byte and wraps for longer texts;
    // the buffer ends before that.
    bool Sent() const;
    // 0, or the error number of a failed send.
    int32_t Send() const;
    // The same, and takes the byte with which the device answers: NAK is its refusal (24), any
    // other byte is consent. The byte is taken whatever became of the send; a failed send's error
    // stands.
    int32_t SendForConsent() const;

  private:
    SendRun run_;
};
