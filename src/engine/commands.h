// The control sequences that the driver sends, in the order of their command bytes.
#pragma once

#include <cstdint>

// A control sequence by its command byte and lengths: bytes answered after the command (the
// acknowledgement included), data bytes, bytes answered after the data (the status included). A
// length of 0 data bytes also stands where the call decides it.
struct ControlSequence {
    uint8_t command;
    uint8_t ack_length = 1;
    uint8_t data_length = 0;
    uint8_t answer_length = 0;
};

inline constexpr ControlSequence kPozycjaDluga = {0x05, 0, 61};
inline constexpr ControlSequence kPozycjaKrotka = {0x06, 0, 49};
inline constexpr ControlSequence kSumaDoZaplaty = {0x07, 0, 4};
inline constexpr ControlSequence kDodatkowaPlatnoscWalutowa = {0x08, 0, 18};
inline constexpr ControlSequence kLiniaDodatkowa = {0x09, 0};
inline constexpr ControlSequence kOpakowanie = {0x17, 0, 10};
inline constexpr ControlSequence kRabatOdPozycji = {0x18, 0, 5};
inline constexpr ControlSequence kRabatKwotowy = {0x19, 0, 5};
inline constexpr ControlSequence kRabatProcentowy = {0x1B, 0, 1};
inline constexpr ControlSequence kRabatProcentowyOdPozycji = {0x1C, 0, 3};
inline constexpr ControlSequence kOtwarcieParagonu = {0x21};
inline constexpr ControlSequence kRaportTowarowZablokowanych = {0x22};
// Refused where no receipt is open.
inline constexpr ControlSequence kAnulowanieParagonu = {0x23};
inline constexpr ControlSequence kZakonczenieParagonu = {0x24};
inline constexpr ControlSequence kRaportDobowy = {0x25};
inline constexpr ControlSequence kRaportStanuDrukarki = {0x26};
inline constexpr ControlSequence kRaportOkresowyFiskalny = {0x28, 1, 12};
inline constexpr ControlSequence kRaportOkresowyNiefiskalny = {0x29, 1, 12};
inline constexpr ControlSequence kWznowienieWydruku = {0x2A};
inline constexpr ControlSequence kZapisLiniiLogo = {0x2D, 1, 26, 1};
inline constexpr ControlSequence kZapisStopki = {0x2E, 1, 42, 1};
inline constexpr ControlSequence kRaportMiesiecznyLubNumerowy = {0x31, 1, 5};
inline constexpr ControlSequence kZegarZMinutami = {0x35, 11};
inline constexpr ControlSequence kPrzestawienieZegara = {0x36, 1, 3};
inline constexpr ControlSequence kOdczytStopki = {0x38, 1, 1, 42};
inline constexpr ControlSequence kPoczatekWydrukuKontrolnego = {0x3F};
inline constexpr ControlSequence kZegarZSekundami = {0x40, 13};
inline constexpr ControlSequence kKodyKasyIKasjera = {0x43, 1, 4};
inline constexpr ControlSequence kZapisStawek4 = {0x44, 1, 4};
inline constexpr ControlSequence kWysuwPapieru = {0x46, 1, 1};
inline constexpr ControlSequence kOtwarcieFaktury = {0x4D, 1, 20, 1};
inline constexpr ControlSequence kLinieNabywcy = {0x4E, 0, 240, 1};
inline constexpr ControlSequence kNipNabywcy = {0x4F, 0, 13, 1};
// A code other than 0 means that the device has cancelled the receipt.
inline constexpr ControlSequence kPowodUniewaznienia = {0x50, 2};
inline constexpr ControlSequence kKoniecWydruku = {0x51, 0};
inline constexpr ControlSequence kRamkaWyswietlacza = {0x52, 1};
inline constexpr ControlSequence kPytanieOWyswietlacz = {0x56, 2};
inline constexpr ControlSequence kSzuflada1 = {0x57};
inline constexpr ControlSequence kSzuflada2 = {0x58};
inline constexpr ControlSequence kSzuflada3 = {0x59};
inline constexpr ControlSequence kStanParagonu = {0x5F, 2};
// Receipts since the last daily report.
inline constexpr ControlSequence kLicznikParagonow = {0x66, 3};
inline constexpr ControlSequence kOdczytStawek4 = {0x70, 5};
inline constexpr ControlSequence kNumerUnikatowy = {0x71, 12};
inline constexpr ControlSequence kPoczatekWydruku = {0x73, 1, 2};
inline constexpr ControlSequence kKasowanieWyswietlacza = {0x75};
inline constexpr ControlSequence kSumaPosrednia = {0x80, 0};
inline constexpr ControlSequence kFormaPlatnosci = {0x81, 0, 18};
inline constexpr ControlSequence kResztaPlatnosci = {0x82, 0, 18};
inline constexpr ControlSequence kPlatnoscWalutowa1 = {0x83, 0, 18};
inline constexpr ControlSequence kPlatnoscWalutowa2 = {0x84, 0, 16};
inline constexpr ControlSequence kSumyParagonu = {0x85, 29};
inline constexpr ControlSequence kStatusA = {0x94};
inline constexpr ControlSequence kStatusB = {0x95};
inline constexpr ControlSequence kStatusD = {0x96};
inline constexpr ControlSequence kStatusC = {0x9B};
inline constexpr ControlSequence kLiniaUzytkownika = {0x9C, 1, 0, 1};
// Text items; Esc and this byte also open frames that go out without an exchange.
inline constexpr ControlSequence kRamkaTekstowa = {0xB0, 0};
inline constexpr ControlSequence kStatusStronyKodowej = {0xC3, 4};
inline constexpr ControlSequence kParametrNazwany = {0xCF, 1, 41, 41};
inline constexpr ControlSequence kOdczytStawek6 = {0xD0, 13};
inline constexpr ControlSequence kOdczytStawek7 = {0xD1, 15};
inline constexpr ControlSequence kZapisStawek6 = {0xD4, 1, 12};
inline constexpr ControlSequence kZapisStawek7 = {0xD5, 1, 14};
inline constexpr ControlSequence kNumerRaportuDobowego = {0xD9, 3};
inline constexpr ControlSequence kSumyStawek = {0xDA, 36};
inline constexpr ControlSequence kZapisKonfiguracji = {0xDE, 1, 4, 1};
inline constexpr ControlSequence kOdczytKonfiguracji = {0xDF, 1, 1, 4};
inline constexpr ControlSequence kPytanieOTowar = {0xEF, 1, 28, 3};
inline constexpr ControlSequence kDalszyStatus = {0xF5, 2};
inline constexpr ControlSequence kIdentyfikacjaRozszerzona = {0xFE, 4};
inline constexpr ControlSequence kIdentyfikacja = {0xFF, 2};
