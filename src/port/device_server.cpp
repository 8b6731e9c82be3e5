// The device server: its connections, and the commands that program its channel and speed.
#include <cstring>

#include "platform/socket.h"
#include "port/exchange_cells.h"
#include "port/sockpro.h"
#include "port/sysseria.h"

int32_t WyborSerweraUrzadzen = 0;
char AdresSerweraUrzadzen[64] = "";
int32_t PortTransmisjiSerweraUrzadzen = 1001;

namespace {

constexpr uint16_t kPortProgramowania = 65535;
constexpr uint8_t kZgoda = 'A';

// Shown as it is: the internal number 65 has no meaning of its own.
constexpr uint8_t kBladSerweraUrzadzen = 65;

platform::SocketHandle GniazdoTransmisji = platform::kNoSocket;
platform::SocketHandle GniazdoProgramowania = platform::kNoSocket;

uint32_t Milisekundy(int32_t sekundy) {
    constexpr int32_t najwiecej = 4000000;
    if (sekundy <= 0) return 0;
    return 1000u * static_cast<uint32_t>(sekundy < najwiecej ? sekundy : najwiecej);
}

// --- one connection; inert ones succeed without moving anything ----------------------------------

bool Bezczynne() {
    return WyborSerweraUrzadzen == 0;
}

bool Zamknieto(platform::SocketHandle& gniazdo) {
    if (gniazdo == platform::kNoSocket) return true;
    const bool zamknieto = platform::CloseSocket(gniazdo);
    gniazdo = platform::kNoSocket;
    return zamknieto;
}

bool Otwarto(platform::SocketHandle& gniazdo, const char* adres, uint16_t port, int32_t timeout) {
    if (Bezczynne()) return true;
    Zamknieto(gniazdo);
    gniazdo = platform::ConnectTcp(adres, port, Milisekundy(timeout));
    return gniazdo != platform::kNoSocket;
}

bool Wyslano(platform::SocketHandle gniazdo, const uint8_t* bajty, uint32_t ile, int32_t timeout) {
    if (Bezczynne()) return true;
    return gniazdo != platform::kNoSocket &&
           platform::SendAll(gniazdo, bajty, ile, Milisekundy(timeout));
}

bool Odebrano(platform::SocketHandle gniazdo, uint8_t& bajt, int32_t timeout) {
    bajt = 0;
    if (Bezczynne()) return true;
    return gniazdo != platform::kNoSocket &&
           platform::ReceiveByte(gniazdo, bajt, Milisekundy(timeout));
}

// --- programming ---------------------------------------------------------------------------------

struct ChannelCommands {
    int32_t channel;
    const char *first, *second;
};
constexpr ChannelCommands kRozkazyKanalow[] = {
    {1, "PS00", "PS11"}, {2, "PS00", "PS10"}, {3, "PS01", "PS11"}, {4, "PS01", "PS10"}};

struct SpeedCommand {
    int32_t baud;
    const char* command;
};
constexpr SpeedCommand kRozkazySzybkosci[] = {{150, "PBR8"},   {300, "PBR9"},   {600, "PBR10"},
                                              {1200, "PBR0"},  {2400, "PBR1"},  {4800, "PBR2"},
                                              {9600, "PBR3"},  {19200, "PBR4"}, {28800, "PBR11"},
                                              {38400, "PBR5"}, {57600, "PBR6"}, {115200, "PBR7"}};

bool WykonanoRozkaz(const char* rozkaz) {
    if (*rozkaz == '\0') return true;
    const auto* bajty = reinterpret_cast<const uint8_t*>(rozkaz);
    uint8_t odpowiedz = 0;
    return Wyslano(GniazdoProgramowania, bajty, static_cast<uint32_t>(std::strlen(rozkaz)),
                   TimeoutNadawania) &&
           Odebrano(GniazdoProgramowania, odpowiedz, TimeoutOdbierania) && odpowiedz == kZgoda;
}

bool UstawionoKanalTibbo(int32_t kanal) {
    for (const ChannelCommands& rozkazy : kRozkazyKanalow) {
        if (rozkazy.channel == kanal) return TibboWykonalo2Rozkazy(rozkazy.first, rozkazy.second);
    }
    return true;
}

bool UstawionoSzybkoscTibbo(int32_t szybkosc) {
    for (const SpeedCommand& rozkaz : kRozkazySzybkosci) {
        if (rozkaz.baud == szybkosc) return TibboWykonalo1Rozkaz(rozkaz.command);
    }
    return true;
}

bool BladSerwera() {
    if (WymianaUdana()) NumerBledu = kBladSerweraUrzadzen;
    return false;
}

}  // namespace

bool OtwartoGniazdoTransmisji() {
    return Otwarto(GniazdoTransmisji, AdresSerweraUrzadzen,
                   static_cast<uint16_t>(PortTransmisjiSerweraUrzadzen), TimeoutNadawania);
}

bool ZamknietoGniazdoTransmisji() {
    return Zamknieto(GniazdoTransmisji);
}

bool WyslanoPrzezGniazdo(const uint8_t* bajty, uint32_t ile) {
    return Wyslano(GniazdoTransmisji, bajty, ile, TimeoutNadawania);
}

bool OdebranoPrzezGniazdo(uint8_t& bajt) {
    return Odebrano(GniazdoTransmisji, bajt, TimeoutOdbierania);
}

bool TibboWykonalo3Rozkazy(const char* rozkaz1, const char* rozkaz2, const char* rozkaz3) {
    return (WykonanoRozkaz(rozkaz1) && WykonanoRozkaz(rozkaz2) && WykonanoRozkaz(rozkaz3)) ||
           BladSerwera();
}

bool TibboWykonalo2Rozkazy(const char* rozkaz1, const char* rozkaz2) {
    return TibboWykonalo3Rozkazy(rozkaz1, rozkaz2, "");
}

bool TibboWykonalo1Rozkaz(const char* rozkaz) {
    return TibboWykonalo3Rozkazy(rozkaz, "", "");
}

bool UstawionoSzybkoscLubKanalTibbo(const char* adres, int32_t kanal, int32_t szybkosc,
                                    bool ustawKanal) {
    if (!Otwarto(GniazdoProgramowania, adres, kPortProgramowania, TimeoutNadawania)) {
        return BladSerwera();
    }
    const bool wykonano = TibboWykonalo3Rozkazy("R", "PS11", "PS31") &&
                          (!ustawKanal || UstawionoKanalTibbo(kanal)) &&
                          UstawionoSzybkoscTibbo(szybkosc);
    const bool zamknieto = Zamknieto(GniazdoProgramowania);
    return (wykonano && zamknieto) || BladSerwera();
}
