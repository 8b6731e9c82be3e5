// What the POSIX side remembers about an open line, and the steps that its files share.
#pragma once

#include <cstdint>

#include "platform/posix/taken_input.h"
#include "platform/serial.h"

namespace platform {

struct Line {
    int descriptor = -1;  // -1: this entry is free
    bool pseudo_terminal = false;
    bool modem_lines_released = false;  // DTR and RTS were dropped after the open
    bool output_left_behind = false;    // a transfer failed; its bytes may still be queued
    uint64_t write_timeout_us = 0;      // of one write call
    uint64_t read_timeout_us = 0;       // of one read call
    uint64_t byte_time_us = 0;          // one byte on the wire; 0 where there is no wire
    uint64_t output_carried_at_us = 0;  // when the wire has carried what was written so far
    TakenInput input;
};

Line* FreeLine();  // an entry for a line that is to be opened; null when all are taken
LineHandle HandleOf(const Line& line);
Line* FindLine(LineHandle handle);  // null for a handle that names no open line

// Makes the line pass every byte as it is, with its present speed and format. 0, or errno.
int MakeRaw(int descriptor);

// Waits until the line has carried what was written: at most the time that the bytes need, and the
// write time-out on top. False when they are stuck.
bool WaitForOutputCarried(const Line& line);

// The driver's error number for errno; never 0.
uint32_t ErrorNumber(int error);

}  // namespace platform
