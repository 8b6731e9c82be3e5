// One control-sequence exchange, byte by byte, over the link in force.
#include <cstring>

#include "engine/sysproc.h"
#include "engine/wcster.h"
#include "links/controller.h"
#include "platform/clock.h"
#include "port/opening.h"
#include "port/portpro.h"
#include "port/sysseria.h"

uint8_t BajtyDoPoslania1[kRozmiarBuforaWymiany];
uint8_t BajtOdmowy = 0;
uint8_t WTrakcieSekwencjiSterujacej = 0;
uint8_t TransmisjaPrzezTavloa = 0;
int32_t Optimize = 0;
DeviceTypeDetails SzczegoloweDaneOTypieUrzadzenia;

namespace {

constexpr uint8_t kEsc = 0x1B;
constexpr uint8_t kAck = 0x06;
constexpr uint8_t kNak = 0x15;
constexpr uint8_t kKoniecRekordow = 0xFF;
constexpr uint8_t kMiejsceStatusu = 255;  // where some commands keep their status byte
constexpr uint8_t kStatusDwochBajtow = 122;
constexpr uint8_t kPierwszyKodTypuNowszego = 116;  // model codes from here on answer 0xA0 with 0

// What one call was asked for, and what the command byte makes of it.
struct Exchange {
    uint32_t mode;
    uint8_t command;
    uint8_t ack_length;
    uint8_t data_length;
    uint8_t answer_length;  // some commands rewrite it from the status byte
    bool record_mode;       // the answer is a list of records that 0xFF ends early
    uint8_t record_length;  // 0: no early end
};

template <size_t N>
constexpr bool JednaZ(uint8_t value, const uint8_t (&list)[N]) {
    for (const uint8_t item : list) {
        if (item == value) return true;
    }
    return false;
}

// Commands whose first answered byte is the datum itself instead of the acknowledgement.
constexpr uint8_t kBezPotwierdzenia[] = {0x94, 0x95, 0x96, 0x9B, 0x9F, 0xF4};
// Commands whose status byte is not checked.
constexpr uint8_t kBezSprawdzaniaStatusu[] = {0x72, 0x31, 0xF9, 0x11};
// Commands whose status byte is set aside and counts as success.
constexpr uint8_t kZeStatusemOdlozonym[] = {0x9A, 0xFC, 0x4D};
constexpr uint8_t kRozkazE5 = 0xE5;
constexpr uint8_t kRozkazA0 = 0xA0;
constexpr uint8_t kRozkazA1 = 0xA1;

struct RecordRule {
    uint8_t command;
    uint8_t length;
};
constexpr RecordRule kRekordyRozkazow[] = {
    {0x47, 13}, {0x48, 13}, {0x61, 38}, {0xA2, 11}, {0xA3, 11}, {0xA5, 11}, {0xAD, 16},
    {0xAE, 16}, {0xD5, 29}, {0xD6, 29}, {0xE7, 4},  {0xE9, 20}, {0xEE, 20}, {0xEA, 8},
};
// Of 0xA1 by its sub-command; each also with the top bit set.
constexpr RecordRule kRekordyRozkazuA1[] = {{0, 17}, {1, 21}, {2, 30}, {3, 38}, {16, 12}};
constexpr uint8_t kRekordA1Wegierski = 33;

bool LaczeRamkowe() {
    return TransmisjaPrzezModem || TransmisjaPrzezTCP;
}

// Single bytes do not reach the port: a frame carries the whole sequence.
bool BajtyWstrzymane() {
    return TransmisjaPrzezTCP || (TransmisjaPrzezModem && BudowacRamkeModemowa);
}

bool Niepowodzenie(int32_t numer) {
    UstawNumerBledu(numer);
    return false;
}

bool PotwierdzenieZDanymi(const Exchange& e) {
    return e.ack_length != 0 && e.data_length != 0;
}

bool StaryTypDlaA0(const Exchange& e) {
    return e.command == kRozkazA0 &&
           SzczegoloweDaneOTypieUrzadzenia.kodTypu < kPierwszyKodTypuNowszego;
}

void OkreslRekordy(Exchange& e) {
    e.record_mode = false;
    e.record_length = 0;
    if (e.command == 0x0A || e.command == 0x0B) {
        if (e.ack_length == 110 && e.data_length == 0 && e.answer_length == 0) {
            e.record_mode = true;
            e.record_length = 27;
        }
        return;
    }
    if (e.command == kRozkazA1) {
        // A sub-command outside the list leaves the length 0, so that its answer has no early end.
        const uint8_t rodzaj = BajtyDoPoslania[1] & 0x7F;
        e.record_mode = true;
        for (const RecordRule& rule : kRekordyRozkazuA1) {
            if (rule.command == rodzaj) e.record_length = rule.length;
        }
        if (rodzaj == 2 && KasaWegierska()) e.record_length = kRekordA1Wegierski;
        return;
    }
    for (const RecordRule& rule : kRekordyRozkazow) {
        if (rule.command != e.command) continue;
        e.record_mode = true;
        e.record_length = rule.length;
    }
}

bool OdebranoBajt(uint8_t& bajt) {
    if (!LaczeRamkowe()) return OdebranoBajtBezposrednio(bajt);
    if (WskaznikOdczytuZBuforaModemu >= MaksymalnyWskaznikOdczytuZBuforaModemu) {
        bajt = 0;
        return Niepowodzenie(kBladKoniecRamki);
    }
    bajt = BajtyOdebrane[++WskaznikOdczytuZBuforaModemu];
    return true;
}

// Bytes 2 to `limit` of a phase. The second byte overwrites the one that opened the phase; callers
// rely on finding the answer from index 1.
bool OdebranoReszte(const Exchange& e, uint8_t limit) {
    for (int i = 2; i <= limit; ++i) {
        if (TransmisjaPrzezTavloa && !WyslanoPotwierdzenieDoTavloa()) {
            return Niepowodzenie(kBladTimeoutNadawania);
        }
        uint8_t& bajt = BajtyOdebrane[i - 1];
        if (!OdebranoBajt(bajt)) return false;
        const bool poczatekRekordu = e.record_length != 0 && (i - 1) % e.record_length == 1;
        if (e.record_mode && poczatekRekordu && bajt == kKoniecRekordow) return true;
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
    const uint8_t poczatek[] = {kEsc, e.command};
    BylTimeout = PoslanoCiagBajtow1(poczatek, sizeof poczatek) ? 0 : 1;
    return !BylTimeout || Niepowodzenie(kBladTimeoutNadawania);
}

// On the communication component the data go out before the acknowledgement, closed by a code that
// tells the component what is still to come. `potwierdzicKoniec` is set for the higher codes.
bool PoslanoDaneDoTavloa(const Exchange& e, bool& potwierdzicKoniec) {
    potwierdzicKoniec = e.answer_length == 0 && (e.ack_length == 0 || e.data_length != 0);
    const uint8_t kod =
        PotwierdzenieZDanymi(e) ? (potwierdzicKoniec ? 2 : 0) : (potwierdzicKoniec ? 3 : 1);
    return (PoslanoCiagBajtow(e.data_length) && PoslanoKodKoncaDanych(kod)) ||
           Niepowodzenie(kBladTimeoutNadawania);
}

bool PotwierdzonoKoniecTavloa() {
    uint8_t bajt = 0;
    if (!WyslanoPotwierdzenieDoTavloa()) return Niepowodzenie(kBladTimeoutNadawania);
    if (!OdebranoBajt(bajt)) return false;
    return bajt == 0 || Niepowodzenie(kBladNiepoprawnaOdpowiedz);
}

// Sends the sequence as a frame until an answer frame is held. The correction ends it: it leaves an
// error standing once its repeats are used up.
bool WymienionoRamki(const Exchange& e) {
    constexpr uint8_t krotkie[] = {kRozkazE5, 0x9A, 0x72, 0x31, 0xF9, 0x11, 0xFC};
    const FrameOrder order = {
        .control = false,
        .with_command = e.mode != kTrybKontynuacja,
        .ack_and_data = PotwierdzenieZDanymi(e),
        .record_mode = e.record_mode,
        .short_answer = JednaZ(e.command, krotkie) || StaryTypDlaA0(e),
        .command = e.command,
        .ack_length = e.ack_length,
        .data_length = e.data_length,
        .answer_length = e.answer_length,
        .record_length = e.record_length,
    };
    ZerujLicznikiRetransmisji();
    while (true) {
        PoslanieRamkiDoModemu(order);
        if (!WymianaUdana()) return false;
        OdebranieRamkiZModemu();
        if (WymianaUdana()) return true;
        const uint8_t blad = NumerBledu;
        KorygowanieBledowTransmisjiModemowej();
        if (!WymianaUdana()) return false;
        // After these the correction has fetched the answer; after any other the frame goes again.
        // What it got instead, a consent or a refusal, is no answer, and an exchange that expects
        // none must not take it for success.
        if (blad == kBladOdbiorZModemu || blad == kBladCrc || blad == kBladPierwszaCzescDanych) {
            return OdebranoDaneOdpowiedzi || Niepowodzenie(kBladKoniecRamki);
        }
    }
}

int32_t BladPotwierdzenia(const Exchange& e, uint8_t bajt) {
    if (bajt == kNak) return kBladNak;
    if (e.mode == kTrybZwykly) {
        if (bajt == 1) return kBladPotwierdzenie1;
        if (bajt == 101) return kBladPotwierdzenie101;
        if (bajt == 200) return kBladPotwierdzenie200;
    }
    return kBladNiepoprawnaOdpowiedz;
}

bool OdebranoPotwierdzenie(const Exchange& e) {
    if (e.ack_length == 0) return true;
    if (!OdebranoBajt(BajtyOdebrane[1])) return false;
    const uint8_t bajt = BajtyOdebrane[1];
    if (bajt != kAck && !JednaZ(e.command, kBezPotwierdzenia)) {
        BajtOdmowy = bajt;
        return Niepowodzenie(BladPotwierdzenia(e, bajt));
    }
    return OdebranoReszte(e, e.ack_length);
}

// Runs of device status bytes and the internal numbers they stand for. Status 6 is left out on
// purpose: after the data only 0 means success.
struct StatusRun {
    uint8_t first, last;
    int32_t internal;
};
constexpr StatusRun kStatusy[] = {
    {2, 5, 67},     {7, 18, 71},    {19, 19, kBladSumaXor}, {100, 109, 83},
    {111, 112, 94}, {115, 115, 96}, {117, 117, 97},         {120, 132, 98},
};

int32_t BladStatusu(uint8_t status) {
    for (const StatusRun& run : kStatusy) {
        if (status >= run.first && status <= run.last) return run.internal + (status - run.first);
    }
    return kBladNiepoprawnaOdpowiedz;
}

void OdlozStatus() {
    BajtyOdebrane[kMiejsceStatusu] = BajtyOdebrane[1];
    BajtyOdebrane[1] = 0;
}

// The status byte of 0xE5 tells how many bytes follow it.
bool OkreslonoOdpowiedzE5(Exchange& e) {
    const uint8_t status = BajtyOdebrane[1];
    const uint8_t kod = SzczegoloweDaneOTypieUrzadzenia.kodTypu;
    uint8_t dalszych = 0;
    switch (status) {
        case 250:
            dalszych = kod == 24 || kod == 27 ? 38 : 42;
            break;
        case 251:
            dalszych = 17;
            break;
        case 252:
            dalszych = 8;
            break;
        case 253:
        case 254:
            break;
        default:
            return Niepowodzenie(kBladNiepoprawnaOdpowiedz);
    }
    OdlozStatus();
    e.answer_length = static_cast<uint8_t>(dalszych + 1);
    return true;
}

bool OdebranoOdpowiedz(Exchange& e) {
    if (e.answer_length == 0) return true;
    if (TransmisjaPrzezTavloa && !WyslanoPotwierdzenieDoTavloa()) {
        return Niepowodzenie(kBladTimeoutNadawania);
    }
    if (!OdebranoBajt(BajtyOdebrane[1])) return false;
    if (e.command == kRozkazE5 && !OkreslonoOdpowiedzE5(e)) return false;
    if (JednaZ(e.command, kZeStatusemOdlozonym)) OdlozStatus();
    if (StaryTypDlaA0(e) && BajtyOdebrane[1] == kAck) BajtyOdebrane[1] = 0;

    const uint8_t status = BajtyOdebrane[1];
    if (status == 0 || JednaZ(e.command, kBezSprawdzaniaStatusu)) {
        return OdebranoReszte(e, e.answer_length);
    }
    BajtOdmowy = status;
    UstawNumerBledu(BladStatusu(status));
    // Two more bytes follow this status on the line; its error stands unless they do not come.
    if (status == kStatusDwochBajtow && !LaczeRamkowe()) OdebranoReszte(e, 3);
    return false;
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
    bool potwierdzicKoniec = false;
    if (TransmisjaPrzezTavloa && !PoslanoDaneDoTavloa(e, potwierdzicKoniec)) return;
    if (LaczeRamkowe() && !WymienionoRamki(e)) return;
    if (!OdebranoPotwierdzenie(e)) return;
    if (!TransmisjaPrzezTavloa && !WyslanoDane(e)) return;
    if (potwierdzicKoniec && !PotwierdzonoKoniecTavloa()) return;
    if (!OproznionoNadajnik(e)) return;
    OdebranoOdpowiedz(e);
}

}  // namespace

void OgolnePoslanieSekwencjiSterujacej(uint32_t tryb, uint8_t rozkaz, uint8_t dlugoscPotwierdzenia,
                                       uint8_t dlugoscDanych, uint8_t dlugoscOdpowiedzi) {
    if (KomunikacjaDlaNivy) {
        WykrywanieHardwareDoFunkcjiSpecjalnejDlaKasyNivo();
        if (!WymianaUdana()) return;
    }
    Exchange e = {.mode = tryb,
                  .command = rozkaz,
                  .ack_length = dlugoscPotwierdzenia,
                  .data_length = dlugoscDanych,
                  .answer_length = dlugoscOdpowiedzi,
                  .record_mode = false,
                  .record_length = 0};
    OkreslRekordy(e);
    WTrakcieSekwencjiSterujacej = 1;
    ZablokujPrzerwania();
    PrzeprowadzWymiane(e);
    OdblokujPrzerwania();
    WTrakcieSekwencjiSterujacej = 0;
}

bool PoslanoCiagBajtow(uint8_t ile) {
    if (ile == 0) return true;
    if (Optimize) {
        // The block goes to the port on a framed link too; only the single bytes honour the link.
        std::memcpy(BajtyDoPoslania1, &BajtyDoPoslania[1], ile);
        return PoslanoCiagBajtow1(BajtyDoPoslania1, ile);
    }
    for (int i = 1; i <= ile; ++i) {
        PoslijBajtUwzgledniajacModem(BajtyDoPoslania[i]);
        if (BylTimeout) return false;
    }
    return true;
}

void PoslijBajtUwzgledniajacModem(uint8_t bajt) {
    if (BajtyWstrzymane()) {
        BylTimeout = 0;  // what is not written cannot time out
        return;
    }
    PoslijNaPortSzeregowy(bajt);
}

uint8_t OdbierzBajtUwzgledniajacModem() {
    uint8_t bajt = 0;
    OdebranoBajt(bajt);
    return bajt;
}

uint8_t Moje_fmod(uint8_t a, uint8_t b) {
    return b == 0 ? uint8_t{0} : static_cast<uint8_t>(a % b);
}

void Moje_delay(uint32_t ms) {
    platform::SleepMs(ms);
}

bool KasaWegierska() {
    const uint8_t kod = SzczegoloweDaneOTypieUrzadzenia.kodTypu;
    return kod == 117 || kod == 118;
}

// Calls come from one thread at a time, so there is nothing to lock out.
void ZablokujPrzerwania() {}
void OdblokujPrzerwania() {}
