// The driver's own error numbers; those of the engine pass through unchanged.
#pragma once

#include <cstdint>

namespace blad {

inline constexpr int32_t kBrak = 0;
inline constexpr int32_t kPort = 2;
inline constexpr int32_t kTimeoutNadawania = 20;
inline constexpr int32_t kTimeoutOdbierania = 21;
inline constexpr int32_t kNiepoprawnaOdpowiedz = 23;
inline constexpr int32_t kNak = 24;
inline constexpr int32_t kBrakDanychProducenta = 100;
inline constexpr int32_t kZworaSerwisowa = 101;
inline constexpr int32_t kBrakKontroleraDrukarki = 102;
inline constexpr int32_t kAwariaDrukarki = 103;
inline constexpr int32_t kBrakDanychUzytkownika = 104;
inline constexpr int32_t kTylkoOdczyt = 105;
inline constexpr int32_t kBrakWyswietlacza = 106;
inline constexpr int32_t kSkasowanaPamiec = 107;
inline constexpr int32_t kZaleglyRaportDobowy = 108;
inline constexpr int32_t kBrakPapieru = 109;
inline constexpr int32_t kWydrukZatrzymany = 112;
inline constexpr int32_t kBrakStawek = 113;
inline constexpr int32_t kBrakNumeruPortu = 114;
inline constexpr int32_t kParagonRozpoczety = 200;
inline constexpr int32_t kParagonNierozpoczety = 201;
inline constexpr int32_t kMaloZnakowWNazwie = 202;
inline constexpr int32_t kStawka = 203;
inline constexpr int32_t kKomunikat = 204;
inline constexpr int32_t kIlosc = 205;
inline constexpr int32_t kMiejscaIlosci = 206;
inline constexpr int32_t kCena = 208;
inline constexpr int32_t kWartosc = 209;
inline constexpr int32_t kParagonUniewazniony = 210;
inline constexpr int32_t kZerowyLicznik = 211;
inline constexpr int32_t kNumerSzuflady = 212;
inline constexpr int32_t kRozkazNiedostepny = 213;
inline constexpr int32_t kRodzajOpakowania = 214;
inline constexpr int32_t kParametrPozaZakresem = 215;
inline constexpr int32_t kLinieZajete = 216;
inline constexpr int32_t kStawkiNiezapisane = 217;
inline constexpr int32_t kNiezerowyLicznik = 218;
inline constexpr int32_t kBledneDaty = 219;
inline constexpr int32_t kBrakRaportow = 220;
inline constexpr int32_t kBledneNumery = 221;
inline constexpr int32_t kNiezakonczonyMiesiac = 222;
inline constexpr int32_t kParametrN = 223;
inline constexpr int32_t kNiedostepnyWTymUrzadzeniu = 224;
inline constexpr int32_t kPustyBufor = 225;
inline constexpr int32_t kStawkaNiezdefiniowana = 226;
inline constexpr int32_t kWartoscPozycji = 227;
inline constexpr int32_t kZegarOZero = 228;
inline constexpr int32_t kZegarOZaDuzo = 229;
inline constexpr int32_t kZegarRazNaDobe = 230;
inline constexpr int32_t kZnakPonizejSpacji = 231;
inline constexpr int32_t kZaKrotkaNazwaWaluty = kZnakPonizejSpacji;  // the number is shared
inline constexpr int32_t kSumaXor = 232;
inline constexpr int32_t kNiepelneDane = 233;
inline constexpr int32_t kTeSameDane = 234;
inline constexpr int32_t kNajpierwRaportDobowy = 235;
inline constexpr int32_t kPlikNieotwarty = 236;
inline constexpr int32_t kFormatPliku = 237;
inline constexpr int32_t kZbytDuzoOpakowan = 238;

}  // namespace blad
