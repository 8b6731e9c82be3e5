#include "links/controller.h"

#include <algorithm>
#include <cstring>

#include "platform/clock.h"
#include "port/exchange_cells.h"
#include "port/sysseria.h"
#include "port/wire_bytes.h"

uint8_t MaksymalnaLiczbaRetransmisji = 3;
uint8_t Autoryzacja[kRozmiarAutoryzacji];
uint8_t NowaAutoryzacja[kRozmiarAutoryzacji];
uint8_t IloscDzwonkowWKontrolerzeModemu = 0;
uint8_t LicznikRetransmisjiZKontroleraModemu = 0;
uint8_t LicznikRetransmisjiDoKontroleraModemu = 0;

namespace {

constexpr uint32_t kPrzerwaPrzyNapisieMs = 100;

// What the controller asks for is presented once in an exchange; a second demand stops it.
bool PrzedstawionoAutoryzacje = false;
bool PrzedstawionoTimeoutNadawania = false;
bool PrzedstawionoTimeoutOdbierania = false;

void WpiszSekundy(int32_t timeout_s) {
    BajtyDoPoslania[1] = static_cast<uint8_t>(timeout_s);
    BajtyDoPoslania[2] = static_cast<uint8_t>(timeout_s >> 8);
}

void WpiszDaneKodu(uint8_t code) {
    switch (code) {
        case kCodeNewAccessCode:
            std::memcpy(&BajtyDoPoslania[1], NowaAutoryzacja, kRozmiarAutoryzacji);
            break;
        case kCodeAccessCode:
            std::memcpy(&BajtyDoPoslania[1], Autoryzacja, kRozmiarAutoryzacji);
            break;
        case kCodeWriteTimeout:
            WpiszSekundy(TimeoutNadawania);
            break;
        case kCodeReadTimeout:
            WpiszSekundy(TimeoutOdbierania);
            break;
        case kCodeRings:
            BajtyDoPoslania[1] = IloscDzwonkowWKontrolerzeModemu;
            break;
        default:
            break;
    }
}

void WyslijKodNaNowo(uint8_t code) {
    UstawNumerBledu(0);
    PoslanieKoduSterujacegoDoModemu(code);
}

// True when the code went out; false when it had been presented in this exchange.
bool PrzedstawionoKontrolerowi(bool& presented, uint8_t code) {
    if (presented) return false;
    presented = true;
    WyslijKodNaNowo(code);
    return true;
}

bool PoproszonoOPowtorzenie() {
    const bool silence = NumerBledu == kBladOdbiorZModemu && !OdebranoCoNajmniejJedenBajtZModemu;
    if (silence || LicznikRetransmisjiZKontroleraModemu >= MaksymalnaLiczbaRetransmisji) {
        return false;
    }
    ++LicznikRetransmisjiZKontroleraModemu;
    WyslijKodNaNowo(kCodeRepeat);
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
        case kBladOdbiorZModemu:
        case kBladCrc:
            return PoproszonoOPowtorzenie();
        case kBladOdmowaKontrolera:
            return DopuszczonoPonowneWyslanie();
        case kBladZadanieAutoryzacji:
            return PrzedstawionoKontrolerowi(PrzedstawionoAutoryzacje, kCodeAccessCode);
        case kBladZadanieTimeoutuNadawania:
            return PrzedstawionoKontrolerowi(PrzedstawionoTimeoutNadawania, kCodeWriteTimeout);
        case kBladZadanieTimeoutuOdbierania:
            return PrzedstawionoKontrolerowi(PrzedstawionoTimeoutOdbierania, kCodeReadTimeout);
        case kBladPierwszaCzescDanych:
            WyslijKodNaNowo(kCodeNextPart);
            return true;
        default:
            return false;
    }
}

}  // namespace

void ZerujLicznikiRetransmisji() {
    LicznikRetransmisjiZKontroleraModemu = 0;
    LicznikRetransmisjiDoKontroleraModemu = 0;
    PrzedstawionoAutoryzacje = false;
    PrzedstawionoTimeoutNadawania = false;
    PrzedstawionoTimeoutOdbierania = false;
    ZapomnijOdpowiedz();
}

// Ends because each repeat is counted, each demand is met once, and an answer has two parts at
// most.
void KorygowanieBledowTransmisjiModemowej() {
    while (SkorygowanoBlad()) {
    }
}

void PoslanieKoduSterujacegoDoModemu(uint8_t code) {
    uint8_t kept[1 + kRozmiarAutoryzacji];
    std::memcpy(kept, BajtyDoPoslania, sizeof kept);
    WpiszDaneKodu(code);
    PoslanieRamkiDoModemu({.control = true,
                           .with_command = true,
                           .ack_and_data = false,
                           .record_mode = false,
                           .short_answer = false,
                           .command = code,
                           .ack_length = 0,
                           .data_length = 0,
                           .answer_length = 0,
                           .record_length = 0});
    std::memcpy(BajtyDoPoslania, kept, sizeof kept);
    if (WymianaUdana()) OdebranieRamkiZModemu();
}

void ObslugaDodatkowychRozkazowKM(uint8_t code) {
    ZerujLicznikiRetransmisji();
    UstawNumerBledu(0);
    while (true) {
        PoslanieKoduSterujacegoDoModemu(code);
        if (WymianaUdana()) return;
        const uint8_t error = NumerBledu;
        KorygowanieBledowTransmisjiModemowej();
        if (!WymianaUdana()) return;
        // After a check-sum error the correction has fetched the reply already. What it got
        // instead, a consent or a refusal, does not tell whether the controller has taken the code.
        if (error == kBladCrc) {
            if (!OdebranoDaneOdpowiedzi) UstawNumerBledu(kBladKoniecRamki);
            return;
        }
        // The other failures are bounded by their own counts.
        if (error == kBladPierwszaCzescDanych && !DopuszczonoPonowneWyslanie()) {
            return UstawNumerBledu(kBladPierwszaCzescDanych);
        }
    }
}

const char* NumerWersjiProgramuKontroleraModemu() {
    constexpr int length = 12;
    static char version[length + 1];
    version[0] = '\0';
    ObslugaDodatkowychRozkazowKM(kCodeVersion);
    if (!WymianaUdana()) return version;
    std::memcpy(version, &BajtyOdebrane[1], length);
    version[std::min<int>(length, MaksymalnyWskaznikOdczytuZBuforaModemu)] = '\0';
    return version;
}

void WpisanieHaslaDlaAutoryzacjiDoKontroleraModemu(const char* password) {
    std::memset(NowaAutoryzacja, 0, kRozmiarAutoryzacji);
    std::memcpy(NowaAutoryzacja, password, strnlen(password, kRozmiarAutoryzacji));
    ObslugaDodatkowychRozkazowKM(kCodeNewAccessCode);
    if (WymianaUdana()) std::memcpy(Autoryzacja, NowaAutoryzacja, kRozmiarAutoryzacji);
}

void WpisanieIlosciDzwonkowDoKontroleraModemu(uint8_t count) {
    IloscDzwonkowWKontrolerzeModemu = count;
    ObslugaDodatkowychRozkazowKM(kCodeRings);
}

void PoslanieNapisuDoModemu(const char* text) {
    constexpr size_t longest = kRozmiarBuforaWymiany - 2;  // from index 1, and the carriage return
    size_t count = strnlen(text, longest);
    std::memcpy(&BajtyDoPoslania[1], text, count);
    if (count != 0 && std::strcmp(text, "+++") != 0) BajtyDoPoslania[1 + count++] = kCr;

    const uint8_t framing = BudowacRamkeModemowa;
    const int32_t timeout_s = TimeoutNadawania;
    BudowacRamkeModemowa = 0;
    TimeoutNadawania = TimeoutNadawaniaPrzezModem;
    platform::PauseMs(kPrzerwaPrzyNapisieMs);
    BylTimeout = 0;
    for (size_t i = 1; i <= count && !BylTimeout; ++i) PoslijNaPortSzeregowy(BajtyDoPoslania[i]);
    if (BylTimeout) UstawNumerBledu(kBladZapisDoModemu);
    platform::PauseMs(kPrzerwaPrzyNapisieMs);
    TimeoutNadawania = timeout_s;
    BudowacRamkeModemowa = framing;
}
