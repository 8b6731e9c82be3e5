#include "links/modster.h"

#include <algorithm>
#include <cstring>

#include "links/frame_coder.h"
#include "platform/clock.h"
#include "platform/serial.h"
#include "port/exchange_cells.h"
#include "port/portpro.h"
#include "port/sockpro.h"
#include "port/sysseria.h"

uint8_t BudowacRamkeModemowa = 1;
uint8_t NrKanaluWKontrolerzeModemu = 1;
int32_t SzybkoscTransmisjiMiedzyKasaIKontrolerem = 9600;
uint8_t MaksymalnaLiczbaRetransmisji = 3;
uint8_t Autoryzacja[kRozmiarAutoryzacji];
uint8_t NowaAutoryzacja[kRozmiarAutoryzacji];
uint8_t IloscDzwonkowWKontrolerzeModemu = 0;
uint8_t LicznikRetransmisjiZKontroleraModemu = 0;
uint8_t LicznikRetransmisjiDoKontroleraModemu = 0;
uint8_t OdebranoCoNajmniejJedenBajtZModemu = 0;
uint8_t OdebranoPierwszaCzescDanych = 0;
uint8_t WskaznikOdczytuZBuforaModemu = 0;
uint8_t MaksymalnyWskaznikOdczytuZBuforaModemu = 0;

namespace {

constexpr uint8_t kEsc = 0x1B;
constexpr uint8_t kCr = 13;
constexpr uint32_t kPrzerwaPrzyNapisieMs = 100;

// Raw body: length, flags, the three lengths, the command, the data, the check sum.
constexpr int kPolaPrzedRozkazem = 5;
constexpr int kBajtowCRC = 2;
// The shortest body that can be an answer: length, flags, check sum.
constexpr int kNajkrotszeCialo = 4;

constexpr uint8_t kFlagaSzybkosci19200 = 0x08;
constexpr uint8_t kFlagaPotwierdzeniaIDanych = 0x10;
constexpr uint8_t kFlagaUrzadzenia = 0x20;
constexpr uint8_t kFlagaKrotkiejOdpowiedzi = 0x40;

// Bytes that are passed over while a sync is looked for; a line that brings more noise than this is
// a line without a reply.
constexpr int kNajwiecejSzumu = 4096;

enum ControlCode : uint8_t {
    kKodWersja = 1,
    kKodNowaAutoryzacja = 2,
    kKodAutoryzacja = 3,
    kKodTimeoutNadawania = 4,
    kKodTimeoutOdbierania = 5,
    kKodPowtorz = 6,
    kKodDzwonki = 7,
    kKodDalszaCzesc = 8,
};

// What the controller asks for is presented once in an exchange; a second demand stops it.
bool PrzedstawionoAutoryzacje = false;
bool PrzedstawionoTimeoutNadawania = false;
bool PrzedstawionoTimeoutOdbierania = false;

bool PrzyjetoDane = false;  // the last reply was an answer or a part of one

// --- sending -------------------------------------------------------------------------------------

uint8_t Flagi(const FrameOrder& order) {
    auto flagi = static_cast<uint8_t>(NrKanaluWKontrolerzeModemu - 1);  // not masked
    if (SzybkoscTransmisjiMiedzyKasaIKontrolerem == 19200) flagi |= kFlagaSzybkosci19200;
    if (order.ack_and_data) flagi |= kFlagaPotwierdzeniaIDanych;
    if (!order.control) flagi |= kFlagaUrzadzenia;
    if (order.short_answer) flagi |= kFlagaKrotkiejOdpowiedzi;
    return flagi;
}

// Data bytes of a control code, or -1 for a code that there is not.
int DanychKoduSterujacego(uint8_t kod) {
    switch (kod) {
        case kKodWersja:
        case kKodPowtorz:
        case kKodDalszaCzesc:
            return 0;
        case kKodNowaAutoryzacja:
        case kKodAutoryzacja:
            return kRozmiarAutoryzacji;
        case kKodTimeoutNadawania:
        case kKodTimeoutOdbierania:
            return 2;
        case kKodDzwonki:
            return 1;
        default:
            return -1;
    }
}

int BajtowRozkazu(const FrameOrder& order) {
    if (order.control) return 1;
    return order.with_command ? 2 : 0;
}

void ZbudujRamke(const FrameOrder& order, int danych, int cialo) {
    RozpocznijRamke();
    WpisanieBajtuDoRamki(static_cast<uint8_t>(IloscBajtowWRamcePoZabezpieczeniu(cialo)));
    WpisanieBajtuDoRamki(Flagi(order));
    WpisanieBajtuDoRamki(order.control ? 0 : order.ack_length);
    WpisanieBajtuDoRamki(order.control ? 0 : order.answer_length);
    WpisanieBajtuDoRamki(order.record_mode ? order.record_length : 0);
    if (BajtowRozkazu(order) == 2) WpisanieBajtuDoRamki(kEsc);
    if (BajtowRozkazu(order) != 0) WpisanieBajtuDoRamki(order.command);
    for (int i = 1; i <= danych; ++i) WpisanieBajtuDoRamki(BajtyDoPoslania[i]);
    ZamknijRamke();
}

bool PoslijBajtDoModemu(uint8_t bajt) {
    PoslijNaPortSzeregowy(bajt);
    return !BylTimeout;
}

bool PoslanoRamke(int bajtow) {
    if (TransmisjaPrzezTCP) return WyslanoPrzezGniazdo(Ramka, static_cast<uint32_t>(bajtow));
    for (int i = 0; i < bajtow; ++i) {
        if (!PoslijBajtDoModemu(Ramka[i])) return false;
    }
    return true;
}

// --- receiving -----------------------------------------------------------------------------------

bool OdebranoBajtZModemu(uint8_t& bajt) {
    bool odebrano = false;
    if (TransmisjaPrzezTCP) {
        odebrano = OdebranoPrzezGniazdo(bajt);
    } else {
        bajt = OdbierzZPortuSzeregowego();
        odebrano = !BylTimeout;
    }
    if (!odebrano) {
        UstawNumerBledu(kBladOdbiorZModemu);
        return false;
    }
    OdebranoCoNajmniejJedenBajtZModemu = 1;
    return true;
}

bool OdebranoSynchronizacje() {
    int zgodnych = 0;
    for (int szum = 0; szum < kNajwiecejSzumu; ++szum) {
        uint8_t bajt = 0;
        if (!OdebranoBajtZModemu(bajt)) return false;
        if (bajt != Synchronizacja[zgodnych]) {
            // The byte begins a new sync without being compared again; this is meant.
            zgodnych = 0;
        }
        Ramka[zgodnych++] = bajt;
        if (zgodnych == kBajtowSynchronizacji) return true;
    }
    UstawNumerBledu(kBladOdbiorZModemu);
    return false;
}

// Line bytes of the body: coded in the first two of them.
int DlugoscCiala() {
    RozpocznijOdczytRamki();
    return BajtOdkodowanyZRamki();
}

int BajtowCiala(int naLinii) {
    return naLinii - (naLinii + 7) / 8;
}

bool OdebranoCialo(int& cialo) {
    int odebranych = 0;
    int naLinii = 2;
    while (odebranych < naLinii) {
        uint8_t bajt = 0;
        if (!OdebranoBajtZModemu(bajt)) return false;
        Ramka[kBajtowSynchronizacji + odebranych++] = bajt;
        if (odebranych != 2) continue;
        naLinii = DlugoscCiala();
        if (naLinii > kNajdluzszeCialoNaLinii || BajtowCiala(naLinii) < kNajkrotszeCialo) {
            UstawNumerBledu(kBladCrc);  // no frame has this length
            return false;
        }
    }
    cialo = BajtowCiala(naLinii);
    return true;
}

// Takes the payload of the decoded body behind what is held already.
void PrzyjmijDane(const uint8_t* dane, int ile, int trzymane) {
    const int miejsca = kRozmiarBuforaWymiany - 1 - trzymane;
    const int przyjete = std::min(ile, miejsca);
    std::memcpy(&BajtyOdebrane[1 + trzymane], dane, static_cast<size_t>(przyjete));
    WskaznikOdczytuZBuforaModemu = 0;
    MaksymalnyWskaznikOdczytuZBuforaModemu = static_cast<uint8_t>(trzymane + przyjete);
    PrzyjetoDane = true;
}

// What the reply's flags say, when they say neither an answer nor a part of one.
int32_t BladOdpowiedziKontrolera(uint8_t flagi) {
    const uint8_t kod = flagi & 0x0F;
    if (kod >= 1 && kod <= 4) return 34 + kod;
    if ((flagi & 0x10) != 0) return 39;
    if ((flagi & 0x20) != 0) return 40;
    if ((flagi & 0x40) != 0) return 41;
    if (kod == 5) return kBladTimeoutNadawania;
    if (kod == 6) return kBladTimeoutOdbierania;
    return kod == 7 ? 42 : 43;
}

void ObsluzOdpowiedz(uint8_t flagi, const uint8_t* dane, int ile) {
    constexpr uint8_t czesc = 8;
    const bool jestCzescia = (flagi & 0x0F) == czesc;
    if (jestCzescia && OdebranoPierwszaCzescDanych) {
        PrzyjmijDane(dane, ile, MaksymalnyWskaznikOdczytuZBuforaModemu);
        OdebranoPierwszaCzescDanych = 0;
        return;
    }
    if (flagi == 0) return PrzyjmijDane(dane, ile, 0);
    // Requests in the upper bits go before a first part.
    if (jestCzescia && (flagi & 0x70) == 0) {
        PrzyjmijDane(dane, ile, 0);
        OdebranoPierwszaCzescDanych = 1;
        return UstawNumerBledu(kBladPierwszaCzescDanych);
    }
    UstawNumerBledu(BladOdpowiedziKontrolera(flagi));
}

void OdkodujOdpowiedz(int cialo) {
    uint8_t body[kRozmiarRamki];
    RozpocznijOdczytRamki();
    for (int i = 0; i < cialo; ++i) body[i] = BajtOdkodowanyZRamki();
    if (SumaCRC16 != 0) return UstawNumerBledu(kBladCrc);
    ObsluzOdpowiedz(body[1], body + 2, cialo - kNajkrotszeCialo);
}

// --- control codes and correction ----------------------------------------------------------------

void WpiszDaneKodu(uint8_t kod) {
    const auto wpiszSekundy = [](int32_t sekundy) {
        BajtyDoPoslania[1] = static_cast<uint8_t>(sekundy);
        BajtyDoPoslania[2] = static_cast<uint8_t>(sekundy >> 8);
    };
    switch (kod) {
        case kKodNowaAutoryzacja:
            std::memcpy(&BajtyDoPoslania[1], NowaAutoryzacja, kRozmiarAutoryzacji);
            break;
        case kKodAutoryzacja:
            std::memcpy(&BajtyDoPoslania[1], Autoryzacja, kRozmiarAutoryzacji);
            break;
        case kKodTimeoutNadawania:
            wpiszSekundy(TimeoutNadawania);
            break;
        case kKodTimeoutOdbierania:
            wpiszSekundy(TimeoutOdbierania);
            break;
        case kKodDzwonki:
            BajtyDoPoslania[1] = IloscDzwonkowWKontrolerzeModemu;
            break;
        default:
            break;
    }
}

void WyslijKodNaNowo(uint8_t kod) {
    UstawNumerBledu(0);
    PoslanieKoduSterujacegoDoModemu(kod);
}

// True when the code went out; false when it had been presented in this exchange.
bool PrzedstawionoKontrolerowi(bool& przedstawiono, uint8_t kod) {
    if (przedstawiono) return false;
    przedstawiono = true;
    WyslijKodNaNowo(kod);
    return true;
}

bool PoproszonoOPowtorzenie() {
    const bool cisza = NumerBledu == kBladOdbiorZModemu && !OdebranoCoNajmniejJedenBajtZModemu;
    if (cisza || LicznikRetransmisjiZKontroleraModemu >= MaksymalnaLiczbaRetransmisji) return false;
    ++LicznikRetransmisjiZKontroleraModemu;
    WyslijKodNaNowo(kKodPowtorz);
    return true;
}

bool DopuszczonoPonowneWyslanie() {
    if (LicznikRetransmisjiDoKontroleraModemu >= MaksymalnaLiczbaRetransmisji) return false;
    ++LicznikRetransmisjiDoKontroleraModemu;
    UstawNumerBledu(0);
    return true;
}

// One step of the correction; false when it is over.
bool SkorygowanoBlad() {
    switch (NumerBledu) {
        case 33:
        case 34:
            return PoproszonoOPowtorzenie();
        case 35:
            return DopuszczonoPonowneWyslanie();
        case 39:
            return PrzedstawionoKontrolerowi(PrzedstawionoAutoryzacje, kKodAutoryzacja);
        case 40:
            return PrzedstawionoKontrolerowi(PrzedstawionoTimeoutNadawania, kKodTimeoutNadawania);
        case 41:
            return PrzedstawionoKontrolerowi(PrzedstawionoTimeoutOdbierania, kKodTimeoutOdbierania);
        case 53:
            WyslijKodNaNowo(kKodDalszaCzesc);
            return true;
        default:
            return false;
    }
}

}  // namespace

bool AktywnaLiniaCD() {
    return TransmisjaPrzezTCP || (ModemStatus() & platform::kLineCarrier) != 0;
}

int IloscBajtowWRamcePoZabezpieczeniu(int bajtow) {
    return bajtow + (bajtow + 6) / 7;
}

void ZerujLicznikiRetransmisji() {
    LicznikRetransmisjiZKontroleraModemu = 0;
    LicznikRetransmisjiDoKontroleraModemu = 0;
    OdebranoPierwszaCzescDanych = 0;
    WskaznikOdczytuZBuforaModemu = 0;
    MaksymalnyWskaznikOdczytuZBuforaModemu = 0;
    PrzedstawionoAutoryzacje = false;
    PrzedstawionoTimeoutNadawania = false;
    PrzedstawionoTimeoutOdbierania = false;
}

void PoslanieRamkiDoModemu(const FrameOrder& order) {
    const int danych =
        order.control ? DanychKoduSterujacego(order.command) : int{order.data_length};
    if (danych < 0) return UstawNumerBledu(kBladNieznanyKodSterujacy);
    const int cialo = kPolaPrzedRozkazem + BajtowRozkazu(order) + danych + kBajtowCRC;
    if (cialo > kNajdluzszeCialo) return UstawNumerBledu(kBladZapisDoModemu);
    ZbudujRamke(order, danych, cialo);
    if (!AktywnaLiniaCD()) return UstawNumerBledu(kBladBrakNosnej);
    const int bajtow = kBajtowSynchronizacji + IloscBajtowWRamcePoZabezpieczeniu(cialo);
    if (!PoslanoRamke(bajtow)) UstawNumerBledu(kBladZapisDoModemu);
}

void OdebranieRamkiZModemu() {
    OdebranoCoNajmniejJedenBajtZModemu = 0;
    PrzyjetoDane = false;
    if (!AktywnaLiniaCD()) return UstawNumerBledu(kBladBrakNosnej);
    int cialo = 0;
    if (OdebranoSynchronizacje() && OdebranoCialo(cialo)) OdkodujOdpowiedz(cialo);
}

// Ends because each repeat is counted, each demand is met once, and an answer has two parts at
// most. When the repeat was asked for but a demand or a refusal came instead, there is no answer to
// read: an exchange that expects none must not take that for success.
void KorygowanieBledowTransmisjiModemowej() {
    const bool prosbaOPowtorzenie = NumerBledu == kBladOdbiorZModemu || NumerBledu == kBladCrc;
    while (SkorygowanoBlad()) {
    }
    if (prosbaOPowtorzenie && WymianaUdana() && !PrzyjetoDane) UstawNumerBledu(kBladKoniecRamki);
}

void PoslanieKoduSterujacegoDoModemu(uint8_t kod) {
    uint8_t zachowane[1 + kRozmiarAutoryzacji];
    std::memcpy(zachowane, BajtyDoPoslania, sizeof zachowane);
    WpiszDaneKodu(kod);
    PoslanieRamkiDoModemu({.control = true,
                           .with_command = true,
                           .ack_and_data = false,
                           .record_mode = false,
                           .short_answer = false,
                           .command = kod,
                           .ack_length = 0,
                           .data_length = 0,
                           .answer_length = 0,
                           .record_length = 0});
    std::memcpy(BajtyDoPoslania, zachowane, sizeof zachowane);
    if (WymianaUdana()) OdebranieRamkiZModemu();
}

void ObslugaDodatkowychRozkazowKM(uint8_t kod) {
    ZerujLicznikiRetransmisji();
    UstawNumerBledu(0);
    while (true) {
        PoslanieKoduSterujacegoDoModemu(kod);
        if (WymianaUdana()) return;
        const uint8_t blad = NumerBledu;
        KorygowanieBledowTransmisjiModemowej();
        // After a check-sum error the correction has fetched the reply already.
        if (!WymianaUdana() || blad == kBladCrc) return;
    }
}

const char* NumerWersjiProgramuKontroleraModemu() {
    constexpr int znakow = 12;
    static char wersja[znakow + 1];
    wersja[0] = '\0';
    ObslugaDodatkowychRozkazowKM(kKodWersja);
    if (!WymianaUdana()) return wersja;
    std::memcpy(wersja, &BajtyOdebrane[1], znakow);
    wersja[std::min<int>(znakow, MaksymalnyWskaznikOdczytuZBuforaModemu)] = '\0';
    return wersja;
}

void WpisanieHaslaDlaAutoryzacjiDoKontroleraModemu(const char* haslo) {
    std::memset(NowaAutoryzacja, 0, kRozmiarAutoryzacji);
    std::memcpy(NowaAutoryzacja, haslo, strnlen(haslo, kRozmiarAutoryzacji));
    ObslugaDodatkowychRozkazowKM(kKodNowaAutoryzacja);
    if (WymianaUdana()) std::memcpy(Autoryzacja, NowaAutoryzacja, kRozmiarAutoryzacji);
}

void WpisanieIlosciDzwonkowDoKontroleraModemu(uint8_t ilosc) {
    IloscDzwonkowWKontrolerzeModemu = ilosc;
    ObslugaDodatkowychRozkazowKM(kKodDzwonki);
}

void PoslanieNapisuDoModemu(const char* napis) {
    constexpr size_t najwyzej = kRozmiarBuforaWymiany - 2;  // from index 1, and the carriage return
    size_t ile = strnlen(napis, najwyzej);
    std::memcpy(&BajtyDoPoslania[1], napis, ile);
    if (ile != 0 && std::strcmp(napis, "+++") != 0) BajtyDoPoslania[1 + ile++] = kCr;

    const uint8_t ramki = BudowacRamkeModemowa;
    const int32_t timeout = TimeoutNadawania;
    BudowacRamkeModemowa = 0;
    TimeoutNadawania = TimeoutNadawaniaPrzezModem;
    platform::PauseMs(kPrzerwaPrzyNapisieMs);
    bool poslano = true;
    for (size_t i = 1; i <= ile && poslano; ++i) poslano = PoslijBajtDoModemu(BajtyDoPoslania[i]);
    platform::PauseMs(kPrzerwaPrzyNapisieMs);
    TimeoutNadawania = timeout;
    BudowacRamkeModemowa = ramki;
    if (!poslano) UstawNumerBledu(kBladZapisDoModemu);
}
