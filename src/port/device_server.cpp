#include "port/device_server.h"

#include <algorithm>
#include <cstring>

#include "platform/socket.h"
#include "port/exchange_cells.h"
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

uint32_t Milisekundy(int32_t timeout_s) {
    constexpr int32_t most_s = 4000000;
    return 1000u * static_cast<uint32_t>(std::clamp(timeout_s, 0, most_s));
}

// --- one connection; inert ones succeed without moving anything ----------------------------------

bool Bezczynne() {
    return WyborSerweraUrzadzen == 0;
}

bool Zamknieto(platform::SocketHandle& socket) {
    if (socket == platform::kNoSocket) return true;
    const bool closed = platform::CloseSocket(socket);
    socket = platform::kNoSocket;
    return closed;
}

bool Otwarto(platform::SocketHandle& socket, const char* address, uint16_t port,
             int32_t timeout_s) {
    if (Bezczynne()) return true;
    Zamknieto(socket);
    socket = platform::ConnectTcp(address, port, Milisekundy(timeout_s));
    return socket != platform::kNoSocket;
}

bool Wyslano(platform::SocketHandle socket, const uint8_t* bytes, uint32_t count,
             int32_t timeout_s) {
    if (Bezczynne()) return true;
    return socket != platform::kNoSocket &&
           platform::SendAll(socket, bytes, count, Milisekundy(timeout_s));
}

bool Odebrano(platform::SocketHandle socket, uint8_t& byte, int32_t timeout_s) {
    byte = 0;
    if (Bezczynne()) return true;
    return socket != platform::kNoSocket &&
           platform::ReceiveSome(socket, &byte, 1, Milisekundy(timeout_s)) == 1;
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

bool WykonanoRozkaz(const char* command) {
    if (*command == '\0') return true;
    const auto* bytes = reinterpret_cast<const uint8_t*>(command);
    uint8_t answer = 0;
    return Wyslano(GniazdoProgramowania, bytes, static_cast<uint32_t>(std::strlen(command)),
                   TimeoutNadawania) &&
           Odebrano(GniazdoProgramowania, answer, TimeoutOdbierania) && answer == kZgoda;
}

bool UstawionoKanalTibbo(int32_t channel) {
    for (const ChannelCommands& commands : kRozkazyKanalow) {
        if (commands.channel == channel)
            return TibboWykonalo2Rozkazy(commands.first, commands.second);
    }
    return true;
}

bool UstawionoSzybkoscTibbo(int32_t baud) {
    for (const SpeedCommand& speed : kRozkazySzybkosci) {
        if (speed.baud == baud) return TibboWykonalo1Rozkaz(speed.command);
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

bool WyslanoPrzezGniazdo(const uint8_t* bytes, uint32_t count) {
    return Wyslano(GniazdoTransmisji, bytes, count, TimeoutNadawania);
}

bool OdebranoPrzezGniazdo(uint8_t& byte) {
    return Odebrano(GniazdoTransmisji, byte, TimeoutOdbierania);
}

void OproznijGniazdoTransmisji() {
    if (!Bezczynne() && GniazdoTransmisji != platform::kNoSocket) {
        platform::DiscardReceived(GniazdoTransmisji);
    }
}

bool TibboWykonalo3Rozkazy(const char* command1, const char* command2, const char* command3) {
    return (WykonanoRozkaz(command1) && WykonanoRozkaz(command2) && WykonanoRozkaz(command3)) ||
           BladSerwera();
}

bool TibboWykonalo2Rozkazy(const char* command1, const char* command2) {
    return TibboWykonalo3Rozkazy(command1, command2, "");
}

bool TibboWykonalo1Rozkaz(const char* command) {
    return TibboWykonalo3Rozkazy(command, "", "");
}

bool UstawionoSzybkoscLubKanalTibbo(const char* address, int32_t channel, int32_t baud,
                                    bool set_channel) {
    if (!Otwarto(GniazdoProgramowania, address, kPortProgramowania, TimeoutNadawania)) {
        return BladSerwera();
    }
    const bool done = TibboWykonalo3Rozkazy("R", "PS11", "PS31") &&
                      (!set_channel || UstawionoKanalTibbo(channel)) &&
                      UstawionoSzybkoscTibbo(baud);
    const bool closed = Zamknieto(GniazdoProgramowania);
    return (done && closed) || BladSerwera();
}
