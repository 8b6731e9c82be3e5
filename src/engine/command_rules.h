// What the command byte of a control sequence decides about its exchange, and what the bytes of the
// device's answers mean. Nothing here touches the line.
#pragma once

#include <cstdint>

// An answer that is a list of records, ended early by 0xFF where a record begins.
struct RecordList {
    bool is_list = false;
    uint8_t record_length = 0;  // 0: no early end
};
inline constexpr uint8_t kKoniecRekordow = 0xFF;

// The lengths are those of the exchange; `first_data_byte` is a sub-command of some commands.
RecordList ListaRekordow(uint8_t command, uint8_t ack_length, uint8_t data_length,
                         uint8_t answer_length, uint8_t first_data_byte, bool hungarian);

// The first byte answered is a datum and not the acknowledgement.
bool BezPotwierdzenia(uint8_t command);
// The status byte is not checked; or it is set aside and counts as success.
bool BezSprawdzaniaStatusu(uint8_t command);
bool ZeStatusemOdlozonym(uint8_t command);
// The status byte tells how many bytes follow it.
bool ZDlugosciaWStatusie(uint8_t command);
// In a frame, the first answer byte alone decides.
bool ZKrotkaOdpowiedzia(uint8_t command, uint8_t model);
// The acknowledgement byte stands in the place of status 0.
bool ZPotwierdzeniemWStatusie(uint8_t command, uint8_t model);

// Bytes that follow the status byte of a command ZDlugosciaWStatusie; -1 for a wrong status.
int DlugoscPoStatusie(uint8_t status, uint8_t model);

// The Hungarian variant of the device.
bool ModelWegierski(uint8_t model);

// Internal numbers of failures: for an acknowledgement that is none, and for a status byte other
// than 0. In a simple acknowledgement only NAK has a meaning of its own.
int32_t BladPotwierdzenia(uint8_t byte, bool simple);
int32_t BladStatusu(uint8_t status);
// Two more bytes follow this status on the line.
inline constexpr uint8_t kStatusDwochBajtow = 122;
