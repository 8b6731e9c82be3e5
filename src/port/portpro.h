// The port layer: a table of port records and the operations on the record in force.
#pragma once

#include <cstdint>

#include "koraxdr.h"
#include "platform/serial.h"

struct PortRecord {
    platform::LineHandle handle = platform::kNoLine;
    platform::DeviceName name = "";
    uint8_t number = 0;
    uint8_t cts = 1;         // output flow control on CTS
    uint32_t baud = 0;       // 9600 and so on
    uint8_t parity = 0;      // 0 none, 1 odd, 2 even
    uint32_t stop_bits = 0;  // 0 = one stop bit
    uint32_t byte_size = 0;  // bits
    uint32_t write_timeout_s = 0;
    uint32_t read_timeout_s = 0;
};

inline constexpr int kLiczbaRekordowPortow = 2;
extern PortRecord TablicaPortow[kLiczbaRekordowPortow];
extern uint32_t PortSelector;  // index of the record in force, 1

inline constexpr uint32_t kBrakOtwartegoPortu =
    KORAX_E_PORT;  // result of an operation on a closed port

// 0 on success, else the system's error number.
uint32_t InitializePort(uint32_t port, uint32_t baud, int32_t write_timeout_s,
                        int32_t read_timeout_s);
uint32_t pInitializeLPTPort(uint32_t port, uint32_t baud, int32_t write_timeout_s,
                            int32_t read_timeout_s);
uint32_t UnInitializePort();
uint32_t SetSerialParameters();  // applies the record to the open port
uint32_t ClearPort();            // discards pending output, then pending input

bool ChangeParity(uint8_t parity);
bool WriteByte(uint8_t byte);
bool ReadByte(uint8_t& byte);
bool PoslanoCiagBajtow1(const uint8_t* buffer, uint32_t count);  // one write of all bytes

uint8_t ModemStatus();  // CTS 0x10, DSR 0x20, ring 0x40, carrier 0x80
bool SetDTRLine();
bool ClearDTRLine();
bool SetRTSLine();
bool ClearRTSLine();
void UstawCTS(uint8_t flag);
void CharSent();  // waits until the bytes have left and a character's time more
bool SerialPortPresent(uint32_t number);

// Inert: there is one port, and its number and handle are nobody's business.
uint32_t SetComSelector(uint32_t selector);
uint32_t GetComSelector();
uint32_t GetCOMNumber();
uint32_t GetCOMHandle();
uint32_t GetSpeed();
