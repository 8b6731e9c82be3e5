// The session: opening and closing the port, establishing who is on the line, and what the library
// says of itself.
#include <cstring>

#include "engine/sysproc.h"
#include "koraxdr/frame.h"
#include "port/opening.h"
#include "port/sysseria.h"

namespace {

constexpr ControlSequence kProbaUrzadzenia = {35};
constexpr int32_t kInneUrzadzenie = 13;

constexpr char kWersja[] = "WIN 4.44 64-BIT (10.12.2013)";
constexpr char kAutor[] = "Korax driver maintainers";

int32_t KopiujNapis(char* bufor, const char* napis) {
    return Funkcja([&]() -> int32_t {
        if (bufor == nullptr) return blad::kPustyBufor;
        std::strcpy(bufor, napis);
        return blad::kBrak;
    });
}

// The open receipt's flags are left alone: the receipt's own functions settle them with the device.
void WyczyscStanParagonu() {
    for (int i = 1; i <= kStawek; ++i) Total[i] = 0;
    for (int i = 1; i <= kPlatnosci; ++i) Payments[i] = {};
    for (int i = 1; i <= kLiniiDodatkowych; ++i) AdditionalLines[i] = {};
    for (int i = 1; i <= kPozycjiKontrolnych; ++i) Control[i] = {};
    CP1 = {};
    CP2 = {};
}

int32_t OtworzPortSesji(uint8_t port) {
    Urzadzenie = kInneUrzadzenie;
    KontrolowacStanLiniiCTS = 1;
    NrPortu = port;
    SzybkoscTransmisji = SzybkTrans;
    TimeoutNadawania = Timeouty;
    TimeoutOdbierania = Timeouty;
    InicjujKompletniePortSzeregowy();
    return ZainicjowanoPortSzeregowy ? blad::kBrak : blad::kPort;
}

int32_t RozpoznajUrzadzenie() {
    const int32_t proba = Wyslij(kProbaUrzadzenia);
    const bool odmowa = proba == blad::kNiepoprawnaOdpowiedz || proba == blad::kNak;
    if (proba != 0 && !odmowa) return proba;
    // A device that refuses the probe is still identified, without the print check.
    if (proba == 0) {
        if (const int32_t numer = SprawdzGotowoscDrukowania(0)) return numer;
    }
    return DeviceType(&Urzadzenie, &Prog);
}

}  // namespace

int32_t KORAX_CALL OpenPort(int32_t Port, int32_t BaudRate, int32_t WriteTimeout,
                            int32_t ReadTimeout) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function OpenPort: ", {{"1.Port: ", Port},
                                                       {"2.BaudRate: ", BaudRate},
                                                       {"3.WriteTimeout: ", WriteTimeout},
                                                       {"4.ReadTimeout: ", ReadTimeout}});
        OdinicjujPortSzeregowy();
        NrPortu = static_cast<uint8_t>(Port);
        SzybkoscTransmisji = BaudRate;
        TimeoutNadawania = WriteTimeout;
        TimeoutOdbierania = ReadTimeout;
        InicjujKompletniePortSzeregowy();
        return ZainicjowanoPortSzeregowy ? blad::kBrak : blad::kPort;
    });
}

int32_t KORAX_CALL ClosePort(void) {
    return Funkcja([]() -> int32_t {
        Optimize = 0;
        CzyscPortSzeregowy();
        OdinicjujPortSzeregowy();
        return blad::kBrak;
    });
}

int32_t KORAX_CALL OptimizeTransmission(void) {
    return Funkcja([]() -> int32_t {
        Optimize = 1;
        return blad::kBrak;
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
        return CommunicationInitInternal(port, 1);
    });
}

int32_t KORAX_CALL CommunicationInitInternal(uint8_t Port, uint8_t Identify) {
    // The port in force before this call is tested on purpose, not the argument: a function that
    // starts a session by itself after CommunicationEnd opens port 0, fails, and from then on says
    // that no port number is set.
    if (NrPortu == 0) return ZapamietajBlad(blad::kBrakNumeruPortu);
    KomunikacjaInit = 0;
    WyczyscStanParagonu();
    int32_t numer = OtworzPortSesji(Port);
    if (numer == 0 && Identify) numer = RozpoznajUrzadzenie();
    if (numer != 0) {
        CommunicationEnd();
    } else {
        KomunikacjaInit = 1;
    }
    return ZapamietajBlad(numer);
}

int32_t KORAX_CALL CommunicationEnd(void) {
    return Funkcja([]() -> int32_t {
        Optimize = 0;
        Urzadzenie = kInneUrzadzenie;
        CzyscPortSzeregowy();
        OdinicjujPortSzeregowy();
        KomunikacjaInit = 0;
        NumerPortuDrukarki = 0;
        return blad::kBrak;
    });
}

int32_t KORAX_CALL LastError(void) {
    const auto numer = static_cast<int32_t>(ErrorLastError);
    ErrorLastError = 0;
    return numer;
}

int32_t KORAX_CALL SetDebugMode(void) {
    return Funkcja([]() -> int32_t {
        DebugMode = 1;
        return blad::kBrak;
    });
}

int32_t KORAX_CALL ClearDebugMode(void) {
    return Funkcja([]() -> int32_t {
        DebugMode = 0;
        return blad::kBrak;
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
