// The server message link: posted window messages between the driver and a controlling server
// process. Inactive while the message number is 0, which is the driver's state.
#pragma once

#include <cstdint>

extern uint32_t MsgID;              // window-message number shared with the server; 0 = inactive
extern uint32_t ProcessIDFromFile;  // process id to use instead of the own one when not 0

void InitMsgID_(uint32_t id);
uint32_t GetMsgID_();
uint32_t GetPid_();

bool MsgToServer_(char letter, uint32_t value);  // letters 'A' to 'Z'
char MsgFromServer_();                           // 'a' to 'z', or 0 when none is waiting

// Kind 'D' speaks as the driver, 'S' as the server. A value above 0xFFFFFF is sent as 0xFFFFFF.
bool WinSndMsg(char kind, uint32_t wparam, char letter, uint32_t value);
char WinRcvMsg(char kind, uint32_t* wparam, uint32_t* value);
