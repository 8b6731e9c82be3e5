#include "links/frame_coder.h"

#include <array>

const uint8_t Synchronizacja[kBajtowSynchronizacji] = {'K', 'O', 'R', 'A', 'X'};

uint8_t Ramka[kRozmiarRamki];
uint8_t WskaznikZapisuDoRamki = 0;
uint8_t WskaznikOdczytuZRamki = 0;
uint8_t LicznikKolowyRamki = 0;
uint32_t SumaCRC16 = 0;

namespace {

constexpr uint8_t kBitLinii = 0x80;
constexpr uint8_t kBajtowGrupy = 7;

uint8_t MiejsceZbieracza = 0;  // of the group's top bits, in Ramka

// CRC-16/ARC: polynomial 0xA001, reflected.
constexpr auto TablicaCRC16 = [] {
    std::array<uint16_t, 256> table{};
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        unsigned crc = byte;
        for (int bit = 0; bit < 8; ++bit) crc = (crc & 1) != 0 ? crc >> 1 ^ 0xA001u : crc >> 1;
        table[byte] = static_cast<uint16_t>(crc);
    }
    return table;
}();

void DoliczDoCRC(uint8_t byte) {
    SumaCRC16 = (SumaCRC16 >> 8) ^ TablicaCRC16[(SumaCRC16 ^ byte) & 0xFF];
}

void PrzesunLicznikKolowy() {
    LicznikKolowyRamki = static_cast<uint8_t>((LicznikKolowyRamki + 1) % kBajtowGrupy);
}

// A byte wide, the position cannot leave Ramka: behind the last byte it is 0 again.
void ZapiszDoRamki(uint8_t byte) {
    Ramka[WskaznikZapisuDoRamki++] = byte;
}

// Writes a body byte without counting it in the check sum.
void ZakodujBajt(uint8_t byte) {
    if (LicznikKolowyRamki == 0) {
        MiejsceZbieracza = WskaznikZapisuDoRamki;
        ZapiszDoRamki(kBitLinii);
    }
    if ((byte & kBitLinii) != 0) {
        Ramka[MiejsceZbieracza] |= static_cast<uint8_t>(1 << (6 - LicznikKolowyRamki));
    }
    ZapiszDoRamki(byte | kBitLinii);
    PrzesunLicznikKolowy();
}

}  // namespace

void RozpocznijRamke() {
    WskaznikZapisuDoRamki = 0;
    LicznikKolowyRamki = 0;
    SumaCRC16 = 0;
    for (const uint8_t byte : Synchronizacja) ZapiszDoRamki(byte);
}

void WpisanieBajtuDoRamki(uint8_t byte) {
    DoliczDoCRC(byte);
    ZakodujBajt(byte);
}

void ZamknijRamke() {
    const uint32_t sum = SumaCRC16;
    ZakodujBajt(static_cast<uint8_t>(sum));
    ZakodujBajt(static_cast<uint8_t>(sum >> 8));
}

void RozpocznijOdczytRamki() {
    WskaznikOdczytuZRamki = kBajtowSynchronizacji;
    LicznikKolowyRamki = 0;
    SumaCRC16 = 0;
}

uint8_t BajtOdkodowanyZRamki() {
    if (LicznikKolowyRamki == 0) MiejsceZbieracza = WskaznikOdczytuZRamki++;
    const bool top = (Ramka[MiejsceZbieracza] >> (6 - LicznikKolowyRamki) & 1) != 0;
    auto byte = static_cast<uint8_t>(Ramka[WskaznikOdczytuZRamki++] & ~kBitLinii);
    if (top) byte |= kBitLinii;
    PrzesunLicznikKolowy();
    DoliczDoCRC(byte);
    return byte;
}
