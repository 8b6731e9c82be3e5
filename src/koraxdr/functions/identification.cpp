// The device's type, name and code page, and whether it is ready to print.
#include <cstring>

#include "koraxdr/device.h"
#include "koraxdr/frame.h"
#include "koraxdr/print_unit.h"
#include "koraxdr/session.h"

int32_t KORAX_CALL DeviceType(int32_t* Type, int32_t* Version) {
    return Funkcja([&]() -> int32_t {
        if (Type == nullptr || Version == nullptr) return KORAX_E_NULL;
        return RozpoznajTyp(*Type, *Version);
    });
}

int32_t KORAX_CALL xDeviceType(void) {
    ZapamietajBlad(DeviceType(&Urzadzenie, &Prog));
    return Urzadzenie;
}

int32_t KORAX_CALL xProgramVersion(void) {
    ZapamietajBlad(DeviceType(&Urzadzenie, &Prog));
    return Prog;
}

int32_t KORAX_CALL pDeviceName(char* Buffer) {
    return Funkcja([&]() -> int32_t {
        if (Buffer == nullptr) return KORAX_E_NULL;
        if (const int32_t error = RozpocznijSesje()) return error;
        std::strcpy(Buffer, NazwaUrzadzenia(Urzadzenie));
        return KORAX_E_OK;
    });
}

char* KORAX_CALL xDeviceName(void) {
    ZapamietajBlad(pDeviceName(ZmiennaDodatkowaDlaTypuX));
    return ZmiennaDodatkowaDlaTypuX;
}

int32_t KORAX_CALL IsCodePage1250(int32_t* Result) {
    return Funkcja([&]() -> int32_t {
        if (Result == nullptr) return KORAX_E_NULL;
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        return OdczytajStroneKodowa(*Result);
    });
}

int32_t KORAX_CALL xIsCodePage1250(void) {
    int32_t result = 0;
    ZapamietajBlad(IsCodePage1250(&result));
    return result;
}

int32_t KORAX_CALL PrintControl(int32_t BeforePrinting) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function PrintControl: ", {{"1.BeforePrinting: ", BeforePrinting}});
        if (const int32_t error = RozpocznijSesje()) return error;
        return SprawdzGotowoscDrukowania(BeforePrinting);
    });
}
