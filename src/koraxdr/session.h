// The session with the device: its start, its end, and the gate that a function passes before it
// talks to the device.
#pragma once

#include <cstdint>

// Opens the port with these settings (seconds); 0, or 2.
int32_t OtworzPort(uint8_t port, int32_t baud, int32_t write_timeout_s, int32_t read_timeout_s);

// The session start: port, cancellation of what the device has open, readiness to print, identity.
// Without `identify` the port alone is opened.
int32_t ZacznijSesje(uint8_t port, bool identify);
void ZakonczSesje();

// Starts a session when none is established; 0, or the session start's error.
int32_t RozpocznijSesje();
// The same, and 200 when a receipt is open.
int32_t RozpocznijSesjePozaParagonem();
