// The cells through which the port, the links and the engine pass one exchange: what is to be sent,
// what was answered, and the outcome.
#pragma once

#include <cstdint>

#include "koraxdr.h"

inline constexpr int kRozmiarBuforaWymiany = 256;

extern uint8_t BajtyDoPoslania[kRozmiarBuforaWymiany];  // data bytes, from index 1
extern uint8_t BajtyOdebrane[kRozmiarBuforaWymiany];    // answer bytes, from index 1
extern uint8_t NumerBledu;                              // outcome of the last exchange, 0 = success

// The failures of an exchange by their internal numbers, before WartoscNumeruBledu. Up to 62 these
// are the driver's own; the link's and the server's have no name outside.
inline constexpr int32_t kBladTimeoutNadawania = KORAX_E_SEND_TIMEOUT;
inline constexpr int32_t kBladTimeoutOdbierania = KORAX_E_RECEIVE_TIMEOUT;
inline constexpr int32_t kBladNiepoprawnaOdpowiedz = KORAX_E_UNEXPECTED_ANSWER;
inline constexpr int32_t kBladNak = KORAX_E_REFUSED;
inline constexpr int32_t kBladPotwierdzenie200 = KORAX_E_DAMAGED;
inline constexpr int32_t kBladBrakNosnej = 30;
inline constexpr int32_t kBladZapisDoModemu = 32;
inline constexpr int32_t kBladOdbiorZModemu = 33;
inline constexpr int32_t kBladCrc = 34;
inline constexpr int32_t kBladOdmowaKontrolera = 35;  // to 38: its reply codes 1 to 4
inline constexpr int32_t kBladNieznanyKodSterujacy = 36;
inline constexpr int32_t kBladZadanieAutoryzacji = 39;
inline constexpr int32_t kBladZadanieTimeoutuNadawania = 40;
inline constexpr int32_t kBladZadanieTimeoutuOdbierania = 41;
inline constexpr int32_t kBladKontrolera = 42;  // its reply code 7
inline constexpr int32_t kBladNieznanaOdpowiedz = 43;
inline constexpr int32_t kBladKoniecRamki = 45;
inline constexpr int32_t kBladSumaXor = KORAX_E_CHECK_SUM;
inline constexpr int32_t kBladKanal = 52;
inline constexpr int32_t kBladPierwszaCzescDanych = 53;
inline constexpr int32_t kBladRozkazSerwera = 54;
inline constexpr int32_t kBladBreakSerwera = 56;
inline constexpr int32_t kBladSprzetNivo = 57;
inline constexpr int32_t kBladPotwierdzenie1 = 66;    // shown as 101
inline constexpr int32_t kBladPotwierdzenie101 = 84;  // shown as 201

// The one place where an internal number becomes the driver's error number.
uint8_t WartoscNumeruBledu(int32_t internal);

// Sets NumerBledu to the driver's number of an internal failure.
void UstawNumerBledu(int32_t internal);

// NumerBledu shows success.
bool WymianaUdana();
