#include "koraxdr/raw_frame.h"

#include "engine/sysproc.h"
#include "koraxdr/frame.h"
#include "port/sysseria.h"

bool RawFrame::Sent() const {
    return PoslanoCiagBajtow(static_cast<uint8_t>(run_.length()));
}

int32_t RawFrame::Send() const {
    UstawNumerBledu(Sent() ? 0 : TimeoutNadawania);
    return NumerBledu;
}

int32_t RawFrame::SendForConsent() const {
    const bool wyslano = Sent();
    uint8_t bajt = 0;
    UstawNumerBledu(0);
    const int32_t odebrano = OdbierzBajt(bajt);
    if (!wyslano) return WartoscNumeruBledu(TimeoutNadawania);
    if (odebrano != 0) return odebrano;
    return bajt == kNak ? blad::kNak : blad::kBrak;
}
