// The record of what passes on the line, where KORAXDR_TRACE names a file for it. Without the variable
// it costs a look at the environment when the port is opened, and a flag at each transfer.
#pragma once

#include <cstdint>

extern uint8_t ZapisywacLinie;  // the line is recorded

// Looks at the environment, once for each opening of the port: takes the file up, or leaves it.
void UstalZapisLinii();

// An opening begins the record's seconds anew.
void ZapiszOtwarcieLinii(const char* device_name, uint32_t baud);
void ZapiszZamkniecieLinii();

void ZapiszBajtyWyslane(const uint8_t* bytes, uint32_t count);
void ZapiszBajtyOdebrane(const uint8_t* bytes, uint32_t count);
// Brings what has passed into the file; the first of them only what has been sent, for the wait that
// begins then may be the last thing that the process does.
void OproznijZapisWyslanych();
void OproznijZapisLinii();

// A remark of what became of the line ("purged").
void ZapiszUwageOLinii(const char* remark);
