// The coding of a modem frame: sync bytes, then groups of seven payload bytes behind a collector of
// their top bits, so that every line byte after the sync has bit 7 set; closed by a CRC-16.
#pragma once

#include <cstddef>
#include <cstdint>

inline constexpr int kRozmiarRamki = 256;
inline constexpr int kBajtowSynchronizacji = 5;
extern const uint8_t Synchronizacja[kBajtowSynchronizacji];

extern uint8_t Ramka[kRozmiarRamki];   // the frame being built or received
extern uint8_t WskaznikZapisuDoRamki;  // write position in Ramka; 0 again behind a full one
extern uint8_t WskaznikOdczytuZRamki;  // read position in Ramka
extern uint8_t LicznikKolowyRamki;     // position 0 to 6 within the group
extern uint32_t SumaCRC16;             // running check sum, 16 bits used

// Line bytes that the frame's body can take, and body bytes that fit them.
inline constexpr int kNajdluzszeCialoNaLinii = kRozmiarRamki - kBajtowSynchronizacji;
inline constexpr int kNajdluzszeCialo = kNajdluzszeCialoNaLinii - (kNajdluzszeCialoNaLinii + 7) / 8;

void RozpocznijRamke();                   // the sync, check sum 0
void WpisanieBajtuDoRamki(uint8_t byte);  // one body byte
void ZamknijRamke();                      // the check sum, low byte first
void RozpocznijOdczytRamki();             // behind the sync, check sum 0
uint8_t BajtOdkodowanyZRamki();           // the next body byte; a good frame ends with check sum 0
