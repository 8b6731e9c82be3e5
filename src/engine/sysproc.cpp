#include "engine/sysproc.h"

#include "links/msgqueue.h"
#include "platform/window_messages.h"
#include "port/opening.h"
#include "port/upward.h"
#include "trace/message.h"

uint8_t RetransmitowacSekwencjeSterujaca = 0;
uint8_t PierwszaSekwencjaSterujaca = 0;
uint32_t LicznikPoslanychSekwencjiSterujacych = 0;
uint32_t CoIleSygnalizowacLicznikPoslanychSekwencji = 0;
uint8_t FunkcjaWStanieUspienia = 0;
uint8_t DebugowacDzialanieFunkcji = 0;
char NazwaFunkcji[64] = "";
uint32_t LicznikOdczytanychLiniiZPlikuWejsciowego = 0;
uint32_t LicznikZapisanychLiniiDoPlikuWyjsciowego = 0;

namespace {

constexpr char kRozkazBreak = 'b';

void WznowPort() {
    const bool was_suspended = FunkcjaWStanieUspienia != 0;
    // First of all: the opening may itself make an exchange, to select a multiplexer channel.
    FunkcjaWStanieUspienia = 0;
    if (was_suspended) InicjujKompletniePortSzeregowy();
}

void ZwolnijPort() {
    if (!FunkcjaWStanieUspienia) OdinicjujPortSzeregowy();
    FunkcjaWStanieUspienia = 1;
}

void PorzucWymiane() {
    UstawNumerBledu(kBladBreakSerwera);
}

// The server's commands: what each does, and the reply with its value.
struct ServerCommand {
    char letter;
    char reply;
    void (*action)();
    const uint32_t* value;
    const char* trace;
};

constexpr ServerCommand kRozkazySerwera[] = {
    {'l', 'L', nullptr, &LicznikOdczytanychLiniiZPlikuWejsciowego,
     " wykonal rozkaz LINES Serwera ###\n"},
    {'a', 'A', nullptr, nullptr, " wykonal rozkaz AVAILABLE Serwera ###\n"},
    {'c', 'C', nullptr, &LicznikPoslanychSekwencjiSterujacych,
     " wykonal rozkaz COUNTER Serwera ###\n"},
    {'o', 'O', nullptr, &LicznikZapisanychLiniiDoPlikuWyjsciowego,
     " wykonal rozkaz OUTLINES Serwera ###\n"},
    {'r', 'R', WznowPort, nullptr, " wykonal rozkaz RESUME Serwera ###\n"},
    {'s', 'S', ZwolnijPort, nullptr, " wykonal rozkaz SUSPEND Serwera ###\n"},
    {kRozkazBreak, 'B', PorzucWymiane, nullptr, " wykonal rozkaz BREAK Serwera ###\n"},
};

void ZapiszSlad(const char* end) {
    if (!DebugowacDzialanieFunkcji) return;
    Printf(0, "%s%s%s%d%s", "###DRIVER: ", NazwaFunkcji, ", PID=", static_cast<int>(GetPid_()),
           end);
}

// False when the exchange is abandoned.
bool ObsluzonoRozkazSerwera(char letter) {
    if (letter == 0) return true;
    for (const ServerCommand& command : kRozkazySerwera) {
        if (command.letter != letter) continue;
        if (command.action != nullptr) command.action();
        MsgToServer_(command.reply, command.value != nullptr ? *command.value : 0);
        ZapiszSlad(command.trace);
        return letter != kRozkazBreak;
    }
    UstawNumerBledu(kBladRozkazSerwera);
    ZapiszSlad(" odebral nieznany rozkaz Serwera ###\n");
    return false;
}

// Oddity: A suspended driver holds the program. It stays in here until the server sends RESUME or
// BREAK, since the port is the server's; only a program that is told to quit gets away, as by
// BREAK.
bool ObsluzonoSerwer() {
    while (ObsluzonoRozkazSerwera(MsgFromServer_())) {
        if (!FunkcjaWStanieUspienia) return true;
        if (!platform::WaitForWindowMessage()) {
            PorzucWymiane();
            return false;
        }
    }
    return false;
}

void ZasygnalizujLicznik() {
    const uint32_t interval = CoIleSygnalizowacLicznikPoslanychSekwencji;
    if (interval == 0 || LicznikPoslanychSekwencjiSterujacych % interval != 0) return;
    MsgToServer_('C', LicznikPoslanychSekwencjiSterujacych);
    ZapiszSlad(" poslal komunikat COUNTER do Serwera ###\n");
}

}  // namespace

void PoslanieSekwencjiSterujacej(uint8_t command, uint8_t ack_length, uint8_t data_length,
                                 int32_t answer_length) {
    int attempts = 1;
    if (RetransmitowacSekwencjeSterujaca) attempts = PierwszaSekwencjaSterujaca ? 2 : 4;
    for (; attempts > 0; --attempts) {
        UstawNumerBledu(0);
        BajtOdmowy = 0;
        PoslanieSekwencjiSterujacejBezRetransmisji(command, ack_length, data_length, answer_length);
        if (NumerBledu != WartoscNumeruBledu(kBladTimeoutOdbierania)) break;
    }
    PierwszaSekwencjaSterujaca = 0;
}

void PoslanieSekwencjiSterujacejBezRetransmisji(uint8_t command, uint8_t ack_length,
                                                uint8_t data_length, int32_t answer_length) {
    if (GetMsgID_() != 0 && !ObsluzonoSerwer()) return;
    OgolnePoslanieSekwencjiSterujacej(kTrybZwykly, command, ack_length, data_length,
                                      static_cast<uint8_t>(answer_length));
    ++LicznikPoslanychSekwencjiSterujacych;
    if (GetMsgID_() != 0) ZasygnalizujLicznik();
}
