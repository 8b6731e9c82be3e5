// The footer lines under the receipts, and the logo.
#include <cstdio>

#include "engine/sysproc.h"
#include "engine/xorpro.h"
#include "koraxdr/device_types.h"
#include "koraxdr/frame.h"
#include "koraxdr/send_layout.h"
#include "port/exchange_cells.h"

namespace {

constexpr ControlSequence kZapisStopki = {0x2E, 1, 42, 1};
constexpr ControlSequence kOdczytStopki = {0x38, 1, 1, 42};
constexpr ControlSequence kZapisLiniiLogo = {0x2D, 1, 26, 1};

constexpr DeviceTypes kTypyZeStopka = {8, 10, 11, 12, 13};
constexpr DeviceTypes kTypyZLogo = {8, 9, 10, 11, 12, 13};

constexpr int kLiniiStopki = 3;
constexpr int kZnakowStopki = 40;

// The byte with which the device refuses, in place of the confirmation, and what it stands for.
struct Refusal {
    uint8_t code;
    int32_t error;
};
constexpr Refusal kOdmowy[] = {
    {106, blad::kZnakPonizejSpacji}, {108, blad::kParametrN},  {200, blad::kSumaXor},
    {201, blad::kNiepelneDane},      {202, blad::kTeSameDane}, {203, blad::kNajpierwRaportDobowy},
};

int32_t PrzetlumaczOdmowe(int32_t numer) {
    if (numer == 0) return numer;
    for (const Refusal& odmowa : kOdmowy) {
        if (odmowa.code == BajtOdmowy) return odmowa.error;
    }
    return numer;
}

// Sends a line that stands behind its number, closed by the XOR of its bytes.
int32_t WyslijLinie(const ControlSequence& sekwencja, int numerLinii) {
    const int bajtow = sekwencja.data_length - 2;
    WpiszBajt(1, numerLinii);
    WpiszBajt(sekwencja.data_length, SumaXORBajtowDoPoslania(0, 2, static_cast<uint8_t>(bajtow)));
    return PrzetlumaczOdmowe(Wyslij(sekwencja));
}

// --- logo ----------------------------------------------------------------------------------------

constexpr int kLiniiLogo = 64;
constexpr int kBajtowLinii = 24;  // 192 dots, the leftmost in the top bit

struct Logo {
    uint8_t lines[kLiniiLogo][kBajtowLinii];
};

// A file that is read byte by byte and closed at the end; a byte that is not there reads -1.
class BitmapFile {
  public:
    explicit BitmapFile(const char* name) : file_(std::fopen(name, "rb")) {}
    ~BitmapFile() {
        if (file_ != nullptr) std::fclose(file_);
    }
    BitmapFile(const BitmapFile&) = delete;
    BitmapFile& operator=(const BitmapFile&) = delete;

    bool opened() const { return file_ != nullptr; }
    bool Seek(long offset) { return std::fseek(file_, offset, SEEK_SET) == 0; }
    int Byte() { return std::fgetc(file_); }
    int ByteAt(long offset) { return Seek(offset) ? Byte() : -1; }

  private:
    std::FILE* file_;
};

// Only the low bytes of the size are looked at, on purpose.
bool FormatZgodny(BitmapFile& plik) {
    constexpr struct {
        long offset;
        int value;
    } pola[] = {
        {0, 'B'},  {1, 'M'}, {14, 40},  // size of the information header
        {28, 1},                        // bits per dot
        {30, 0},                        // no compression
        {22, 64},                       // height
        {18, 192},                      // width
    };
    for (const auto& [offset, value] : pola) {
        if (plik.ByteAt(offset) != value) return false;
    }
    return true;
}

// A dot is printed for colour 0 unless that is white. With a white colour 0 only whole bytes of the
// other colour leave a trace, one dot each; this rule is meant to stay.
uint8_t BajtLogo(int bajt, bool bialeTlo) {
    if (bialeTlo) return bajt == 0xFF ? 1 : 0;
    return static_cast<uint8_t>(~bajt);
}

bool WczytanoWiersze(BitmapFile& plik, Logo& logo) {
    const bool bialeTlo = plik.ByteAt(54) == 255;
    const int poczatek = plik.ByteAt(10);
    if (poczatek < 0 || !plik.Seek(poczatek)) return false;
    for (int linia = kLiniiLogo - 1; linia >= 0; --linia) {  // the file begins at the bottom
        for (uint8_t& cel : logo.lines[linia]) {
            const int bajt = plik.Byte();
            if (bajt < 0) return false;
            cel = BajtLogo(bajt, bialeTlo);
        }
    }
    return true;
}

int32_t WczytajLogo(const char* nazwa, Logo& logo) {
    BitmapFile plik(nazwa);
    if (!plik.opened()) return blad::kPlikNieotwarty;
    return FormatZgodny(plik) && WczytanoWiersze(plik, logo) ? blad::kBrak : blad::kFormatPliku;
}

int32_t WyslijLogo(const Logo& logo) {
    for (int linia = 0; linia < kLiniiLogo; ++linia) {
        for (int i = 0; i < kBajtowLinii; ++i) WpiszBajt(2 + i, logo.lines[linia][i]);
        if (const int32_t numer = WyslijLinie(kZapisLiniiLogo, linia)) return numer;
    }
    return blad::kBrak;
}

}  // namespace

// No session is started here, on purpose: the type found by the last session start decides.
int32_t KORAX_CALL pWriteFooterLines(const char* Line1, const char* Line2, const char* Line3) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function pWriteFooterLines:",
                       {{"1.Line1: ", Line1}, {"2.Line2: ", Line2}, {"3.Line3: ", Line3}});
        const char* const linie[kLiniiStopki] = {Line1, Line2, Line3};
        for (const char* linia : linie) {
            if (linia == nullptr) return blad::kPustyBufor;
        }
        if (!kTypyZeStopka.Contains(Urzadzenie)) return blad::kRozkazNiedostepny;
        for (int i = 0; i < kLiniiStopki; ++i) {
            WpiszPole(2, kZnakowStopki, linie[i]);
            if (const int32_t numer = WyslijLinie(kZapisStopki, i)) return numer;
        }
        return blad::kBrak;
    });
}

int32_t KORAX_CALL pReadFooterLines(char* Line1, char* Line2, char* Line3) {
    return Funkcja([&]() -> int32_t {
        char* const linie[kLiniiStopki] = {Line1, Line2, Line3};
        for (const char* linia : linie) {
            if (linia == nullptr) return blad::kPustyBufor;
        }
        if (!kTypyZeStopka.Contains(Urzadzenie)) return blad::kRozkazNiedostepny;
        for (int i = 0; i < kLiniiStopki; ++i) {
            WpiszBajt(1, i);
            if (const int32_t numer = PrzetlumaczOdmowe(Wyslij(kOdczytStopki))) return numer;
            KopiujOdpowiedz(linie[i], 2, kZnakowStopki);  // one byte stands before the characters
        }
        return blad::kBrak;
    });
}

int32_t KORAX_CALL pWriteLogo(const char* FileName) {
    return Funkcja([&]() -> int32_t {
        if (FileName == nullptr) return blad::kPustyBufor;
        Logo logo = {};
        if (const int32_t numer = WczytajLogo(FileName, logo)) return numer;
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        if (const int32_t numer = DeviceType(&Urzadzenie, &Prog)) return numer;
        if (!kTypyZLogo.Contains(Urzadzenie)) return blad::kNiedostepnyWTymUrzadzeniu;
        return WyslijLogo(logo);
    });
}
