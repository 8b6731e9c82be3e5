// The session: opening and closing the port, establishing who is on the line, and what the library
// says of itself.
#include <cstring>

#include "engine/sysproc.h"
#include "koraxdr/frame.h"
#include "koraxdr/session.h"
#include "port/opening.h"
#include "port/sysseria.h"

namespace {

constexpr char kWersja[] = "WIN 4.44 64-BIT (10.12.2013)";
constexpr char kAutor[] = "Korax driver maintainers";

int32_t KopiujNapis(char* buffer, const char* text) {
    return Funkcja([&]() -> int32_t {
        if (buffer == nullptr) return KORAX_E_NULL;
        std::strcpy(buffer, text);
        return KORAX_E_OK;
    });
}

}  // namespace

int32_t KORAX_CALL OpenPort(int32_t Port, int32_t BaudRate, int32_t WriteTimeout,
                            int32_t ReadTimeout) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function OpenPort: ", {{"1.Port: ", Port},
                                                       {"2.BaudRate: ", BaudRate},
                                                       {"3.WriteTimeout: ", WriteTimeout},
                                                       {"4.ReadTimeout: ", ReadTimeout}});
        return OtworzPort(static_cast<uint8_t>(Port), BaudRate, WriteTimeout, ReadTimeout);
    });
}

int32_t KORAX_CALL ClosePort(void) {
    return Funkcja([]() -> int32_t {
        Optimize = 0;
        CzyscPortSzeregowy();
        OdinicjujPortSzeregowy();
        return KORAX_E_OK;
    });
}

int32_t KORAX_CALL OptimizeTransmission(void) {
    return Funkcja([]() -> int32_t {
        Optimize = 1;
        return KORAX_E_OK;
    });
}

int32_t KORAX_CALL CommunicationInit(int32_t Port, int32_t BaudRate, int32_t Timeout) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function CommunicationInit: ",
                       {{"1.Port: ", Port}, {"2.BaudRate: ", BaudRate}, {"3.Timeout: ", Timeout}});
        SzybkTrans = BaudRate;
        Timeouty = Timeout;
        NumerPortuDrukarki = Port;
        const auto port = static_cast<uint8_t>(Port);
        // The session start refuses to run while the port in force is 0; naming a port ends that.
        if (NrPortu == 0) NrPortu = port;
        return ZacznijSesje(port, true);
    });
}

int32_t KORAX_CALL CommunicationInitInternal(uint8_t Port, uint8_t Identify) {
    return ZapamietajBlad(ZacznijSesje(Port, Identify != 0));
}

int32_t KORAX_CALL CommunicationEnd(void) {
    return Funkcja([]() -> int32_t {
        ZakonczSesje();
        return KORAX_E_OK;
    });
}

int32_t KORAX_CALL LastError(void) {
    const auto error = static_cast<int32_t>(ErrorLastError);
    ErrorLastError = 0;
    return error;
}

int32_t KORAX_CALL SetDebugMode(void) {
    return Funkcja([]() -> int32_t {
        DebugMode = 1;
        return KORAX_E_OK;
    });
}

int32_t KORAX_CALL ClearDebugMode(void) {
    return Funkcja([]() -> int32_t {
        DebugMode = 0;
        return KORAX_E_OK;
    });
}

int32_t KORAX_CALL pDllVersion(char* Buffer) {
    return KopiujNapis(Buffer, kWersja);
}

char* KORAX_CALL xDllVersion(void) {
    ZapamietajBlad(pDllVersion(ZmiennaDodatkowaDlaTypuX));
    return ZmiennaDodatkowaDlaTypuX;
}

int32_t KORAX_CALL pDllAuthor(char* Buffer) {
    return KopiujNapis(Buffer, kAutor);
}

char* KORAX_CALL xDllAuthor(void) {
    ZapamietajBlad(pDllAuthor(ZmiennaDodatkowaDlaTypuX));
    return ZmiennaDodatkowaDlaTypuX;
}
