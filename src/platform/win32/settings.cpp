#include <algorithm>

#include "platform/connection.h"
#include "platform/win32/handle.h"

namespace platform {
namespace {

constexpr DWORD kInputQueue = 4096;
constexpr DWORD kOutputQueue = 2048;
constexpr DWORD kAllEvents = 0x1FF;  // the nine basic events

static_assert(sizeof(DCB) == 28);

void FillControlBlock(const LineSettings& settings, DCB& block) {
    block.DCBlength = 28;
    block.BaudRate = settings.baud;
    block.fBinary = TRUE;
    block.fParity = TRUE;
    block.fOutxCtsFlow = settings.cts_flow_control ? TRUE : FALSE;
    block.fOutxDsrFlow = FALSE;
    block.fDtrControl = DTR_CONTROL_DISABLE;
    block.fDsrSensitivity = FALSE;
    block.fTXContinueOnXoff = FALSE;
    block.fOutX = FALSE;
    block.fInX = FALSE;
    block.fErrorChar = FALSE;
    block.fNull = FALSE;
    block.fRtsControl = RTS_CONTROL_DISABLE;
    block.fAbortOnError = TRUE;
    block.XonLim = 0;
    block.XoffLim = 0;
    block.ByteSize = settings.byte_size;
    block.Parity = settings.parity;
    block.StopBits = settings.stop_bits;
    block.XonChar = 0;
    block.XoffChar = 0;
    block.ErrorChar = 0;
    block.EofChar = 0;
    block.EvtChar = 0;
}

BOOL SetControlBlock(HANDLE file, const LineSettings& settings) {
    DCB block{};
    block.DCBlength = sizeof block;
    if (!GetCommState(file, &block)) return FALSE;
    FillControlBlock(settings, block);
    return SetCommState(file, &block);
}

// Longer than any call waits, and short of the value that means something else.
constexpr uint32_t kLongestTimeoutS = 4'000'000;

DWORD Milliseconds(uint32_t seconds) {
    return std::min(seconds, kLongestTimeoutS) * 1000;
}

BOOL SetTimeouts(HANDLE file, const LineSettings& settings) {
    const DWORD read_ms = Milliseconds(settings.read_timeout_s);
    COMMTIMEOUTS timeouts{};
    if (!GetCommTimeouts(file, &timeouts)) return FALSE;
    // The greatest interval with no total time: a read returns at once with what is queued.
    timeouts.ReadIntervalTimeout = settings.read_timeout_s == 0 ? MAXDWORD : read_ms;
    timeouts.ReadTotalTimeoutMultiplier = 0;
    timeouts.ReadTotalTimeoutConstant = read_ms;
    timeouts.WriteTotalTimeoutConstant = Milliseconds(settings.write_timeout_s);
    return SetCommTimeouts(file, &timeouts);
}

BOOL ClearErrors(HANDLE file) {
    DWORD errors = 0;
    COMSTAT status{};
    return ClearCommError(file, &errors, &status);
}

}  // namespace

uint32_t ApplySettings(LineHandle line, const LineSettings& settings) {
    if (IsConnection(line)) return ApplyConnectionSettings(line, settings);
    const HANDLE file = FileOf(line);
    const bool applied = SetControlBlock(file, settings) &&
                         SetupComm(file, kInputQueue, kOutputQueue) &&
                         SetTimeouts(file, settings) && SetCommMask(file, kAllEvents) &&
                         ClearErrors(file) && GetFileType(file) == FILE_TYPE_CHAR;
    return ResultOf(applied);
}

}  // namespace platform
