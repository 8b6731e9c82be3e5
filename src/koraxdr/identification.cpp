// Who is on the line: model, program version, code page, and whether it is ready to print.
#include <cstring>

#include "engine/sysproc.h"
#include "koraxdr/device_types.h"
#include "koraxdr/frame.h"
#include "koraxdr/send_layout.h"

namespace {

constexpr ControlSequence kIdentyfikacja = {255, 2};
constexpr ControlSequence kIdentyfikacjaRozszerzona = {254, 4};
constexpr ControlSequence kStatusStronyKodowej = {195, 4};
constexpr ControlSequence kParametrNazwany = {207, 1, 41, 41};

constexpr uint8_t kBitStrony1250 = 0x08;

constexpr int32_t kInneUrzadzenie = 13;

constexpr const char* kNazwyUrzadzen[] = {
    "NIEZNANE",
    "GX450A 5-stawkowa",
    "GX450A 7-stawkowa",
    "QUORRA I generacji",
    "QUORRA II generacji",
    "GX450B 5-stawkowa",
    "GX450B 7-stawkowa",
    "QUORRAF (apteczna)",
    "TOLA",
    "TOLA F",
    "TOLA E",
    "TOLA EFV",
    "TOLA F E",
    "INNE URZADZENIE",
};

// Models that report no version: the version cell keeps what it held, on purpose.
struct PlainModel {
    uint8_t model;
    int32_t type;
};
constexpr PlainModel kModeleProste[] = {{2, 1}, {5, 5}, {17, 2}};

// Models that are told apart by the extended identification; one that refuses it is the older.
struct ModelFamily {
    uint8_t model;
    int32_t older_type;
    int32_t common_type;
    struct {
        uint8_t variant;
        int32_t type;
    } variants[3];
};
constexpr ModelFamily kRodziny[] = {
    {18, 6, 7, {{125, 9}, {130, 12}, {}}},
    {44, 3, 4, {{124, 8}, {128, 10}, {129, 11}}},
};

int32_t TypWariantu(const ModelFamily& rodzina, uint8_t wariant) {
    for (const auto& [variant, type] : rodzina.variants) {
        if (type != 0 && variant == wariant) return type;
    }
    return rodzina.common_type;
}

int32_t RozpoznajWariant(const ModelFamily& rodzina, int32_t& typ, int32_t& wersja) {
    const int32_t numer = Wyslij(kIdentyfikacjaRozszerzona);
    if (numer != 0 && numer != blad::kNak) return numer;
    typ = numer == 0 ? TypWariantu(rodzina, BajtOdpowiedzi(1)) : rodzina.older_type;
    wersja = numer == 0 ? BajtOdpowiedzi(2) : 0;
    return blad::kBrak;
}

int32_t RozpoznajTyp(int32_t& typ, int32_t& wersja) {
    if (const int32_t numer = Wyslij(kIdentyfikacja)) return numer;
    const uint8_t model = BajtOdpowiedzi(1);
    SzczegoloweDaneOTypieUrzadzenia.kodTypu = model;
    for (const PlainModel& prosty : kModeleProste) {
        if (prosty.model != model) continue;
        typ = prosty.type;
        return blad::kBrak;
    }
    for (const ModelFamily& rodzina : kRodziny) {
        if (rodzina.model == model) return RozpoznajWariant(rodzina, typ, wersja);
    }
    typ = kInneUrzadzenie;
    wersja = 0;
    return blad::kBrak;
}

int32_t OdczytajParametrStronyKodowej() {
    constexpr uint8_t rodzaj = 2;
    WpiszBajt(1, rodzaj);
    WpiszPole(2, 40, "code_page", TextForm::kAsGiven);
    return Wyslij(kParametrNazwany);
}

// The number of the device's code page as two decimal digits; other values say nothing.
void OdczytajNumerStrony(int32_t& wynik) {
    const auto cyfry = static_cast<uint16_t>(BajtOdpowiedzi(1) << 8 | BajtOdpowiedzi(2));
    constexpr auto dwieCyfry = [](char a, char b) { return static_cast<uint16_t>(a << 8 | b); };
    if (cyfry == dwieCyfry('1', '6')) wynik = 0;
    if (cyfry == dwieCyfry('1', '7')) wynik = 1;
    if (cyfry == dwieCyfry('1', '9')) wynik = 2;
}

constexpr uint8_t kBitBrakuPapieru = 0x02;     // status B
constexpr uint8_t kBitAwarii = 0x04;           // status B
constexpr uint8_t kBitBrakuKontrolera = 0x80;  // status B

int32_t SprawdzPapier() {
    uint8_t b = 0;
    if (const int32_t numer = OdczytajStatus(kStatusB, b)) return numer;
    return b & kBitBrakuPapieru ? blad::kBrakPapieru : blad::kBrak;
}

int32_t SprawdzDrukarke() {
    uint8_t b = 0;
    if (const int32_t numer = OdczytajStatus(kStatusB, b)) return numer;
    if (b & kBitBrakuKontrolera) return blad::kBrakKontroleraDrukarki;
    if (b & kBitAwarii) return blad::kAwariaDrukarki;
    return blad::kBrak;
}

// The three flags of the printing unit as a text of "0" and "1".
int32_t OdczytajStanWydruku(char (&stan)[4]) {
    uint8_t a = 0, b = 0;
    if (const int32_t numer = OdczytajStatus(kStatusA, a)) return numer;
    if (const int32_t numer = OdczytajStatus(kStatusB, b)) return numer;
    stan[0] = a & 0x02 ? '1' : '0';
    stan[1] = b & 0x01 ? '1' : '0';
    stan[2] = b & 0x40 ? '1' : '0';
    stan[3] = '\0';
    return blad::kBrak;
}

bool Stan(const char (&stan)[4], const char* wzor) {
    return std::strcmp(stan, wzor) == 0;
}

}  // namespace

int32_t KORAX_CALL DeviceType(int32_t* Type, int32_t* Version) {
    return Funkcja([&]() -> int32_t {
        if (Type == nullptr || Version == nullptr) return blad::kPustyBufor;
        return RozpoznajTyp(*Type, *Version);
    });
}

int32_t KORAX_CALL xDeviceType(void) {
    ZapamietajBlad(DeviceType(&Urzadzenie, &Prog));
    return Urzadzenie;
}

int32_t KORAX_CALL xProgramVersion(void) {
    ZapamietajBlad(DeviceType(&Urzadzenie, &Prog));
    return Prog;
}

int32_t KORAX_CALL pDeviceName(char* Buffer) {
    return Funkcja([&]() -> int32_t {
        if (Buffer == nullptr) return blad::kPustyBufor;
        if (const int32_t numer = RozpocznijSesje()) return numer;
        const bool znany = Urzadzenie >= 1 && Urzadzenie <= kInneUrzadzenie;
        std::strcpy(Buffer, kNazwyUrzadzen[znany ? Urzadzenie : 0]);
        return blad::kBrak;
    });
}

char* KORAX_CALL xDeviceName(void) {
    ZapamietajBlad(pDeviceName(ZmiennaDodatkowaDlaTypuX));
    return ZmiennaDodatkowaDlaTypuX;
}

// No debug box, on purpose: every receipt asks this.
int32_t KORAX_CALL IsCodePage1250(int32_t* Result) {
    return Funkcja([&]() -> int32_t {
        if (Result == nullptr) return blad::kPustyBufor;
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        if (const int32_t numer = DeviceType(&Urzadzenie, &Prog)) return numer;
        if (!kTypyNowszejRodziny.Contains(Urzadzenie)) {
            *Result = 0;
            return blad::kBrak;
        }
        if (const int32_t numer = Wyslij(kStatusStronyKodowej)) return numer;
        *Result = BajtOdpowiedzi(1) & kBitStrony1250 ? 1 : 0;
        if (kTypyToliE.Contains(Urzadzenie) && Prog > 1) {
            if (const int32_t numer = OdczytajParametrStronyKodowej()) return numer;
        }
        // Where no parameter was read these are the status command's own bytes.
        OdczytajNumerStrony(*Result);
        return blad::kBrak;
    });
}

int32_t KORAX_CALL xIsCodePage1250(void) {
    int32_t wynik = 0;
    ZapamietajBlad(IsCodePage1250(&wynik));
    return wynik;
}

int32_t KORAX_CALL PrintControl(int32_t BeforePrinting) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function PrintControl: ", {{"1.BeforePrinting: ", BeforePrinting}});
        if (const int32_t numer = RozpocznijSesje()) return numer;
        return SprawdzGotowoscDrukowania(BeforePrinting);
    });
}

// The loop has no end of its own: while the printing unit is neither ready nor at fault, the driver
// asks again until its state changes or the link fails. This is meant.
int32_t SprawdzGotowoscDrukowania(int32_t beforePrinting) {
    if (const int32_t numer = SprawdzPapier()) return numer;
    while (true) {
        if (const int32_t numer = SprawdzDrukarke()) return numer;
        char stan[4];
        if (const int32_t numer = OdczytajStanWydruku(stan)) return numer;
        if (Stan(stan, "000")) return blad::kBrak;
        const bool przedWydrukiem = Stan(stan, "100") && beforePrinting == 1;
        const bool poWydruku = Stan(stan, "100") && beforePrinting == 0;
        if (Stan(stan, "010") || Stan(stan, "110") || poWydruku) {
            if (const int32_t numer = SprawdzPapier()) return numer;
        }
        if (Stan(stan, "011") || Stan(stan, "111") || przedWydrukiem) {
            return blad::kWydrukZatrzymany;
        }
    }
}
