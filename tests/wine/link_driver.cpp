// A driver under a server: makes exchanges on a port that is not there until the server breaks it.
#include <windows.h>

#include "engine/sysproc.h"
#include "links/msgqueue.h"
#include "port/sysseria.h"

int main() {
    // The window through which broadcast messages reach this thread's queue.
    CreateWindowA("STATIC", "", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    LicznikOdczytanychLiniiZPlikuWejsciowego = 0x1000001;
    LicznikZapisanychLiniiDoPlikuWyjsciowego = 8;
    NrPortu = 250;  // what RESUME opens; it is not there
    InitMsgID_(RegisterWindowMessageA("driver and server"));
    MsgToServer_('A', 0);
    for (int exchange = 0; exchange < 2000; ++exchange, Sleep(5)) {
        PoslanieSekwencjiSterujacej(0x23, 1, 0, 0);
        if (NumerBledu != kBladTimeoutNadawania) return NumerBledu;
    }
}
