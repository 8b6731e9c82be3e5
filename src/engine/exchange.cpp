// One control-sequence exchange, byte by byte, over the link in force.
#include <cstring>

#include "engine/command_rules.h"
#include "engine/sysproc.h"
#include "engine/wcster.h"
#include "links/controller.h"
#include "platform/clock.h"
#include "port/opening.h"
#include "port/portpro.h"
#include "port/sysseria.h"
#include "port/wire_bytes.h"

uint8_t BajtyDoPoslania1[kRozmiarBuforaWymiany];
uint8_t BajtOdmowy = 0;
uint8_t WTrakcieSekwencjiSterujacej = 0;
uint8_t TransmisjaPrzezTavloa = 0;
int32_t Optimize = 0;
DeviceTypeDetails SzczegoloweDaneOTypieUrzadzenia;

namespace {

constexpr int kMiejsceStatusu =
    255;  // in BajtyOdebrane, where some commands keep their status byte

// What one call was asked for, and what the command byte makes of it.
struct Exchange {
    uint32_t mode;
    uint8_t command;
    uint8_t ack_length;
    uint8_t data_length;
    uint8_t answer_length;  // some commands rewrite it from the status byte
    RecordList records;
};

bool LaczeRamkowe() {
    return TransmisjaPrzezModem || TransmisjaPrzezTCP;
}

// Single bytes do not reach the port: a frame carries the whole sequence.
bool BajtyWstrzymane() {
    return TransmisjaPrzezTCP || (TransmisjaPrzezModem && BudowacRamkeModemowa);
}

uint8_t Model() {
    return SzczegoloweDaneOTypieUrzadzenia.type_code;
}

bool Niepowodzenie(int32_t internal_number) {
    UstawNumerBledu(internal_number);
    return false;
}

bool PotwierdzenieZDanymi(const Exchange& e) {
    return e.ack_length != 0 && e.data_length != 0;
}

bool OdebranoBajt(uint8_t& byte) {
    if (!LaczeRamkowe()) return OdebranoBajtBezposrednio(byte);
    if (WskaznikOdczytuZBuforaModemu >= MaksymalnyWskaznikOdczytuZBuforaModemu) {
        byte = 0;
        return Niepowodzenie(kBladKoniecRamki);
    }
    byte = BajtyOdebrane[++WskaznikOdczytuZBuforaModemu];
    return true;
}

// Bytes 2 to `limit` of a phase. The second byte overwrites the one that opened the phase; callers
// rely on finding the answer from index 1.
bool OdebranoReszte(const RecordList& records, uint8_t limit) {
    for (int i = 2; i <= limit; ++i) {
        if (TransmisjaPrzezTavloa && !WyslanoPotwierdzenieDoTavloa()) {
            return Niepowodzenie(kBladTimeoutNadawania);
        }
        uint8_t& byte = BajtyOdebrane[i - 1];
        if (!OdebranoBajt(byte)) return false;
        const bool record_begins =
            records.record_length != 0 && (i - 1) % records.record_length == 1;
        if (records.is_list && record_begins && byte == kKoniecRekordow) return true;
    }
    return true;
}

bool UstalonoLaczeTavloa() {
    if (LaczeRamkowe()) return true;
    TransmisjaPrzezTavloa = TavloJestObecny() ? 1 : 0;
    if (TransmisjaPrzezTavloa && !ZresetowanoTavloa(SzybkoscTransmisji, 1)) {
        return Niepowodzenie(kBladTimeoutNadawania);
    }
    return true;
}

// Esc and the command byte always follow each other, so they leave in one write: one system call
// less on every exchange, and the same bytes on the line.
bool PoslanoRozkaz(const Exchange& e) {
    if (BajtyWstrzymane()) return true;
    const uint8_t start[] = {kEsc, e.command};
    BylTimeout = PoslanoCiagBajtow1(start, sizeof start) ? 0 : 1;
    return !BylTimeout || Niepowodzenie(kBladTimeoutNadawania);
}

// On the communication component the data go out before the acknowledgement, closed by a code that
// tells the component what is still to come. `confirm_end` is set for the higher codes.
bool PoslanoDaneDoTavloa(const Exchange& e, bool& confirm_end) {
    confirm_end = e.answer_length == 0 && (e.ack_length == 0 || e.data_length != 0);
    const uint8_t code = PotwierdzenieZDanymi(e) ? (confirm_end ? 2 : 0) : (confirm_end ? 3 : 1);
    return (PoslanoCiagBajtow(e.data_length) && PoslanoKodKoncaDanych(code)) ||
           Niepowodzenie(kBladTimeoutNadawania);
}

bool PotwierdzonoKoniecTavloa() {
    uint8_t byte = 0;
    if (!WyslanoPotwierdzenieDoTavloa()) return Niepowodzenie(kBladTimeoutNadawania);
    if (!OdebranoBajt(byte)) return false;
    return byte == 0 || Niepowodzenie(kBladNiepoprawnaOdpowiedz);
}

// Sends the sequence as a frame until an answer frame is held. The correction ends it: it leaves an
// error standing once its repeats are used up.
bool WymienionoRamki(const Exchange& e) {
    const FrameOrder order = {
        .control = false,
        .with_command = e.mode != kTrybKontynuacja,
        .ack_and_data = PotwierdzenieZDanymi(e),
        .record_mode = e.records.is_list,
        .short_answer = ZKrotkaOdpowiedzia(e.command, Model()),
        .command = e.command,
        .ack_length = e.ack_length,
        .data_length = e.data_length,
        .answer_length = e.answer_length,
        .record_length = e.records.record_length,
    };
    ZerujLicznikiRetransmisji();
    while (true) {
        PoslanieRamkiDoModemu(order);
        if (!WymianaUdana()) return false;
        OdebranieRamkiZModemu();
        if (WymianaUdana()) return true;
        const uint8_t error = NumerBledu;
        KorygowanieBledowTransmisjiModemowej();
        if (!WymianaUdana()) return false;
        // After these the correction has fetched the answer; after any other the frame goes again.
        // What it got instead, a consent or a refusal, is no answer, and an exchange that expects
        // none must not take it for success.
        if (error == kBladOdbiorZModemu || error == kBladCrc || error == kBladPierwszaCzescDanych) {
            return OdebranoDaneOdpowiedzi || Niepowodzenie(kBladKoniecRamki);
        }
    }
}

bool OdebranoPotwierdzenie(const Exchange& e) {
    if (e.ack_length == 0) return true;
    if (!OdebranoBajt(BajtyOdebrane[1])) return false;
    const uint8_t byte = BajtyOdebrane[1];
    if (byte != kAck && !BezPotwierdzenia(e.command)) {
        BajtOdmowy = byte;
        return Niepowodzenie(BladPotwierdzenia(byte, e.mode != kTrybZwykly));
    }
    return OdebranoReszte(e.records, e.ack_length);
}

void OdlozStatus() {
    BajtyOdebrane[kMiejsceStatusu] = BajtyOdebrane[1];
    BajtyOdebrane[1] = 0;
}

bool OkreslonoDlugoscPoStatusie(Exchange& e) {
    const int following = DlugoscPoStatusie(BajtyOdebrane[1], Model());
    if (following < 0) return Niepowodzenie(kBladNiepoprawnaOdpowiedz);
    OdlozStatus();
    e.answer_length = static_cast<uint8_t>(following + 1);
    return true;
}

// Its outcome is in NumerBledu.
void OdbierzOdpowiedz(Exchange& e) {
    if (e.answer_length == 0) return;
    if (TransmisjaPrzezTavloa && !WyslanoPotwierdzenieDoTavloa()) {
        return UstawNumerBledu(kBladTimeoutNadawania);
    }
    if (!OdebranoBajt(BajtyOdebrane[1])) return;
    if (ZDlugosciaWStatusie(e.command) && !OkreslonoDlugoscPoStatusie(e)) return;
    if (ZeStatusemOdlozonym(e.command)) OdlozStatus();
    if (ZPotwierdzeniemWStatusie(e.command, Model()) && BajtyOdebrane[1] == kAck) {
        BajtyOdebrane[1] = 0;
    }

    const uint8_t status = BajtyOdebrane[1];
    if (status == 0 || BezSprawdzaniaStatusu(e.command)) {
        OdebranoReszte(e.records, e.answer_length);
        return;
    }
    BajtOdmowy = status;
    UstawNumerBledu(BladStatusu(status));
    // The two bytes behind this status are no records; its error stands unless they do not come.
    if (status == kStatusDwochBajtow && !LaczeRamkowe()) OdebranoReszte({}, 3);
}

bool WyslanoDane(const Exchange& e) {
    if (!PoslanoCiagBajtow(e.data_length)) return Niepowodzenie(kBladTimeoutNadawania);
    return true;
}

bool OproznionoNadajnik(const Exchange& e) {
    if (LaczeRamkowe() || e.data_length == 0 || e.answer_length != 0) return true;
    OczekiwanieNaOproznienieNadajnikaPortuSzeregowego();
    return !BylTimeout || Niepowodzenie(kBladTimeoutNadawania);
}

void PrzeprowadzWymiane(Exchange& e) {
    if (e.mode != kTrybKontynuacja) CzyscPortSzeregowy();
    if (!UstalonoLaczeTavloa()) return;
    if (e.mode != kTrybKontynuacja && !PoslanoRozkaz(e)) return;
    bool confirm_end = false;
    if (TransmisjaPrzezTavloa && !PoslanoDaneDoTavloa(e, confirm_end)) return;
    if (LaczeRamkowe() && !WymienionoRamki(e)) return;
    if (!OdebranoPotwierdzenie(e)) return;
    if (!TransmisjaPrzezTavloa && !WyslanoDane(e)) return;
    if (confirm_end && !PotwierdzonoKoniecTavloa()) return;
    if (!OproznionoNadajnik(e)) return;
    OdbierzOdpowiedz(e);
}

}  // namespace

void OgolnePoslanieSekwencjiSterujacej(uint32_t mode, uint8_t command, uint8_t ack_length,
                                       uint8_t data_length, uint8_t answer_length) {
    if (KomunikacjaDlaNivy) {
        WykrywanieHardwareDoFunkcjiSpecjalnejDlaKasyNivo();
        if (!WymianaUdana()) return;
    }
    Exchange e = {.mode = mode,
                  .command = command,
                  .ack_length = ack_length,
                  .data_length = data_length,
                  .answer_length = answer_length,
                  .records = ListaRekordow(command, ack_length, data_length, answer_length,
                                           BajtyDoPoslania[1], KasaWegierska())};
    WTrakcieSekwencjiSterujacej = 1;
    ZablokujPrzerwania();
    PrzeprowadzWymiane(e);
    OdblokujPrzerwania();
    WTrakcieSekwencjiSterujacej = 0;
}

bool PoslanoCiagBajtow(uint8_t count) {
    if (count == 0) return true;
    if (Optimize) {
        // The block goes to the port on a framed link too; only the single bytes honour the link.
        std::memcpy(BajtyDoPoslania1, &BajtyDoPoslania[1], count);
        return PoslanoCiagBajtow1(BajtyDoPoslania1, count);
    }
    for (int i = 1; i <= count; ++i) {
        PoslijBajtUwzgledniajacModem(BajtyDoPoslania[i]);
        if (BylTimeout) return false;
    }
    return true;
}

void PoslijBajtUwzgledniajacModem(uint8_t byte) {
    if (BajtyWstrzymane()) {
        BylTimeout = 0;  // what is not written cannot time out
        return;
    }
    PoslijNaPortSzeregowy(byte);
}

uint8_t OdbierzBajtUwzgledniajacModem() {
    uint8_t byte = 0;
    OdebranoBajt(byte);
    return byte;
}

uint8_t Moje_fmod(uint8_t a, uint8_t b) {
    return b == 0 ? uint8_t{0} : static_cast<uint8_t>(a % b);
}

void Moje_delay(uint32_t ms) {
    platform::SleepMs(ms);
}

bool KasaWegierska() {
    return ModelWegierski(Model());
}

// Calls come from one thread at a time, so there is nothing to lock out.
void ZablokujPrzerwania() {}
void OdblokujPrzerwania() {}
