#include "koraxdr/raw_frame.h"

#include "engine/sysproc.h"
#include "koraxdr/command.h"
#include "port/sysseria.h"

bool RawFrame::Sent() const {
    return PoslanoCiagBajtow(static_cast<uint8_t>(run_.length()));
}

// Oddity: A raw frame that was not sent gives the time-out's seconds. The value of the send
// time-out is taken for the engine's failure code; with a time-out of 0 a failure looks like
// success.
int32_t RawFrame::Send() const {
    UstawNumerBledu(Sent() ? 0 : TimeoutNadawania);
    return NumerBledu;
}

int32_t RawFrame::SendForConsent() const {
    const bool sent = Sent();
    uint8_t byte = 0;
    UstawNumerBledu(0);
    const int32_t received = OdbierzBajt(byte);
    if (!sent) return WartoscNumeruBledu(TimeoutNadawania);
    if (received != 0) return received;
    return byte == kNak ? KORAX_E_REFUSED : KORAX_E_OK;
}
