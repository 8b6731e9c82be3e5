#include "links/modster.h"

#include <algorithm>
#include <cstring>

#include "links/frame_coder.h"
#include "platform/serial.h"
#include "port/device_server.h"
#include "port/exchange_cells.h"
#include "port/opening.h"
#include "port/portpro.h"
#include "port/sysseria.h"
#include "port/wire_bytes.h"

uint8_t BudowacRamkeModemowa = 1;
uint8_t NrKanaluWKontrolerzeModemu = 1;
int32_t SzybkoscTransmisjiMiedzyKasaIKontrolerem = 9600;
uint8_t OdebranoCoNajmniejJedenBajtZModemu = 0;
uint8_t OdebranoPierwszaCzescDanych = 0;
uint8_t OdebranoDaneOdpowiedzi = 0;
uint8_t WskaznikOdczytuZBuforaModemu = 0;
uint8_t MaksymalnyWskaznikOdczytuZBuforaModemu = 0;

namespace {

// Raw body: length, flags, the three lengths, the command, the data, the check sum.
constexpr int kPolaPrzedRozkazem = 5;
constexpr int kBajtowCRC = 2;
// The shortest body that can be an answer: length, flags, check sum.
constexpr int kNajkrotszeCialo = 4;

// Flags of a frame that the driver sends.
constexpr uint8_t kFlagaSzybkosci19200 = 0x08;
constexpr uint8_t kFlagaPotwierdzeniaIDanych = 0x10;
constexpr uint8_t kFlagaUrzadzenia = 0x20;
constexpr uint8_t kFlagaKrotkiejOdpowiedzi = 0x40;

// Flags of a reply: a code in the lower half, what the controller demands above it.
constexpr uint8_t kMaskaKoduOdpowiedzi = 0x0F;
constexpr uint8_t kKodCzesci = 8;
constexpr uint8_t kZadanieAutoryzacji = 0x10;
constexpr uint8_t kZadanieTimeoutuNadawania = 0x20;
constexpr uint8_t kZadanieTimeoutuOdbierania = 0x40;
constexpr uint8_t kMaskaZadan =
    kZadanieAutoryzacji | kZadanieTimeoutuNadawania | kZadanieTimeoutuOdbierania;

// Bytes that are passed over while a sync is looked for; a line that brings more noise than this is
// a line without a reply.
constexpr int kNajwiecejSzumu = 4096;

// What the controller asked for was sent last: its plain reply is its consent and no answer.
bool OczekiwanaZgoda = false;

// --- sending -------------------------------------------------------------------------------------

uint8_t Flagi(const FrameOrder& order) {
    // Oddity: A channel above 8 spills into the frame's flags. It is not masked to its three bits,
    // so that every controller in use goes on getting the very bytes that it has always got.
    auto flags = static_cast<uint8_t>(NrKanaluWKontrolerzeModemu - 1);
    if (SzybkoscTransmisjiMiedzyKasaIKontrolerem == 19200) flags |= kFlagaSzybkosci19200;
    if (order.ack_and_data) flags |= kFlagaPotwierdzeniaIDanych;
    if (!order.control) flags |= kFlagaUrzadzenia;
    if (order.short_answer) flags |= kFlagaKrotkiejOdpowiedzi;
    return flags;
}

// Data bytes of a control code, or -1 for a code that there is not.
int DanychKoduSterujacego(uint8_t code) {
    switch (code) {
        case kCodeVersion:
        case kCodeRepeat:
        case kCodeNextPart:
            return 0;
        case kCodeNewAccessCode:
        case kCodeAccessCode:
            return kRozmiarAutoryzacji;
        case kCodeWriteTimeout:
        case kCodeReadTimeout:
            return 2;
        case kCodeRings:
            return 1;
        default:
            return -1;
    }
}

int BajtowRozkazu(const FrameOrder& order) {
    if (order.control) return 1;
    return order.with_command ? 2 : 0;
}

void ZbudujRamke(const FrameOrder& order, int data_bytes, int body_bytes) {
    RozpocznijRamke();
    WpisanieBajtuDoRamki(static_cast<uint8_t>(IloscBajtowWRamcePoZabezpieczeniu(body_bytes)));
    WpisanieBajtuDoRamki(Flagi(order));
    WpisanieBajtuDoRamki(order.control ? 0 : order.ack_length);
    WpisanieBajtuDoRamki(order.control ? 0 : order.answer_length);
    WpisanieBajtuDoRamki(order.record_mode ? order.record_length : 0);
    if (BajtowRozkazu(order) == 2) WpisanieBajtuDoRamki(kEsc);
    if (BajtowRozkazu(order) != 0) WpisanieBajtuDoRamki(order.command);
    for (int i = 1; i <= data_bytes; ++i) WpisanieBajtuDoRamki(BajtyDoPoslania[i]);
    ZamknijRamke();
}

bool PoslanoRamke(int bytes) {
    if (TransmisjaPrzezTCP) return WyslanoPrzezGniazdo(Ramka, static_cast<uint32_t>(bytes));
    for (int i = 0; i < bytes; ++i) {
        PoslijNaPortSzeregowy(Ramka[i]);
        if (BylTimeout) return false;
    }
    return true;
}

// What the reply to this frame will be: an answer that begins anew, the next part of one, or the
// controller's consent.
void ZapamietajRodzajOdpowiedzi(const FrameOrder& order) {
    const uint8_t code = order.control ? order.command : uint8_t{0};
    if (code == kCodeRepeat) return;  // the same as before: the repeat of a consent is one, too
    OczekiwanaZgoda =
        code == kCodeAccessCode || code == kCodeWriteTimeout || code == kCodeReadTimeout;
    if (!OczekiwanaZgoda && code != kCodeNextPart) OdebranoPierwszaCzescDanych = 0;
}

// --- receiving -----------------------------------------------------------------------------------

bool OdebranoBajtZModemu(uint8_t& byte) {
    bool received = false;
    if (TransmisjaPrzezTCP) {
        received = OdebranoPrzezGniazdo(byte);
    } else {
        byte = OdbierzZPortuSzeregowego();
        received = !BylTimeout;
    }
    if (!received) {
        UstawNumerBledu(kBladOdbiorZModemu);
        return false;
    }
    OdebranoCoNajmniejJedenBajtZModemu = 1;
    return true;
}

bool OdebranoSynchronizacje() {
    int matching = 0;
    for (int noise = 0; noise < kNajwiecejSzumu; ++noise) {
        uint8_t byte = 0;
        if (!OdebranoBajtZModemu(byte)) return false;
        // Oddity: Any byte may open a restarted sync. The byte that breaks one off takes the place
        // of the first sync byte without being compared; the check sum decides about the frame.
        if (byte != Synchronizacja[matching]) matching = 0;
        Ramka[matching++] = byte;
        if (matching == kBajtowSynchronizacji) return true;
    }
    UstawNumerBledu(kBladOdbiorZModemu);
    return false;
}

// Line bytes of the body: coded in the first two of them.
int DlugoscCiala() {
    RozpocznijOdczytRamki();
    return BajtOdkodowanyZRamki();
}

int BajtowCiala(int line_bytes) {
    return line_bytes - (line_bytes + 7) / 8;
}

bool OdebranoCialo(int& body_bytes) {
    int received = 0;
    int line_bytes = 2;
    while (received < line_bytes) {
        uint8_t byte = 0;
        if (!OdebranoBajtZModemu(byte)) return false;
        Ramka[kBajtowSynchronizacji + received++] = byte;
        if (received != 2) continue;
        line_bytes = DlugoscCiala();
        if (line_bytes > kNajdluzszeCialoNaLinii || BajtowCiala(line_bytes) < kNajkrotszeCialo) {
            UstawNumerBledu(kBladCrc);  // no frame has this length
            return false;
        }
    }
    body_bytes = BajtowCiala(line_bytes);
    return true;
}

// Takes the payload of the decoded body behind what is held already.
void PrzyjmijDane(const uint8_t* data, int count, int held) {
    const int taken = std::min(count, kRozmiarBuforaWymiany - 1 - held);
    std::memcpy(&BajtyOdebrane[1 + held], data, static_cast<size_t>(taken));
    WskaznikOdczytuZBuforaModemu = 0;
    MaksymalnyWskaznikOdczytuZBuforaModemu = static_cast<uint8_t>(held + taken);
}

// What the reply's flags say, when they say neither an answer nor a part of one.
int32_t BladOdpowiedziKontrolera(uint8_t flags) {
    const uint8_t code = flags & kMaskaKoduOdpowiedzi;
    if (code >= 1 && code <= 4) return kBladOdmowaKontrolera + code - 1;
    if ((flags & kZadanieAutoryzacji) != 0) return kBladZadanieAutoryzacji;
    if ((flags & kZadanieTimeoutuNadawania) != 0) return kBladZadanieTimeoutuNadawania;
    if ((flags & kZadanieTimeoutuOdbierania) != 0) return kBladZadanieTimeoutuOdbierania;
    if (code == 5) return kBladTimeoutNadawania;
    if (code == 6) return kBladTimeoutOdbierania;
    return code == 7 ? kBladKontrolera : kBladNieznanaOdpowiedz;
}

void ObsluzOdpowiedz(uint8_t flags, const uint8_t* data, int count) {
    const bool part = (flags & kMaskaKoduOdpowiedzi) == kKodCzesci;
    if (part && OdebranoPierwszaCzescDanych) {
        PrzyjmijDane(data, count, MaksymalnyWskaznikOdczytuZBuforaModemu);
        OdebranoPierwszaCzescDanych = 0;
        OdebranoDaneOdpowiedzi = 1;
        return;
    }
    if (flags == 0) {
        PrzyjmijDane(data, count, 0);
        OdebranoDaneOdpowiedzi = OczekiwanaZgoda ? 0 : 1;
        return;
    }
    // Requests in the upper bits go before a first part.
    if (part && (flags & kMaskaZadan) == 0) {
        PrzyjmijDane(data, count, 0);
        OdebranoPierwszaCzescDanych = 1;
        return UstawNumerBledu(kBladPierwszaCzescDanych);
    }
    UstawNumerBledu(BladOdpowiedziKontrolera(flags));
}

void OdkodujOdpowiedz(int body_bytes) {
    uint8_t body[kRozmiarRamki] = {};
    RozpocznijOdczytRamki();
    for (int i = 0; i < body_bytes; ++i) body[i] = BajtOdkodowanyZRamki();
    if (SumaCRC16 != 0) return UstawNumerBledu(kBladCrc);
    ObsluzOdpowiedz(body[1], body + 2, body_bytes - kNajkrotszeCialo);
}

}  // namespace

void ZapomnijOdpowiedz() {
    OdebranoPierwszaCzescDanych = 0;
    OdebranoDaneOdpowiedzi = 0;
    WskaznikOdczytuZBuforaModemu = 0;
    MaksymalnyWskaznikOdczytuZBuforaModemu = 0;
}

void PoslanieRamkiDoModemu(const FrameOrder& order) {
    const int data_bytes =
        order.control ? DanychKoduSterujacego(order.command) : int{order.data_length};
    if (data_bytes < 0) return UstawNumerBledu(kBladNieznanyKodSterujacy);
    const int body_bytes = kPolaPrzedRozkazem + BajtowRozkazu(order) + data_bytes + kBajtowCRC;
    if (body_bytes > kNajdluzszeCialo) return UstawNumerBledu(kBladZapisDoModemu);
    ZbudujRamke(order, data_bytes, body_bytes);
    if (!AktywnaLiniaCD()) return UstawNumerBledu(kBladBrakNosnej);
    // A reply that came too late must not be taken for this frame's.
    if (order.with_command) CzyscPortSzeregowy();
    ZapamietajRodzajOdpowiedzi(order);
    const int line_bytes = IloscBajtowWRamcePoZabezpieczeniu(body_bytes);
    if (!PoslanoRamke(kBajtowSynchronizacji + line_bytes)) UstawNumerBledu(kBladZapisDoModemu);
}

void OdebranieRamkiZModemu() {
    OdebranoCoNajmniejJedenBajtZModemu = 0;
    OdebranoDaneOdpowiedzi = 0;
    if (!AktywnaLiniaCD()) return UstawNumerBledu(kBladBrakNosnej);
    int body_bytes = 0;
    if (OdebranoSynchronizacje() && OdebranoCialo(body_bytes)) OdkodujOdpowiedz(body_bytes);
}

bool AktywnaLiniaCD() {
    return TransmisjaPrzezTCP || (ModemStatus() & platform::kLineCarrier) != 0;
}

int IloscBajtowWRamcePoZabezpieczeniu(int bytes) {
    return bytes + (bytes + 6) / 7;
}
