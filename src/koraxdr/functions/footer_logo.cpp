// The footer lines under the receipts, and the logo.
#include <cstdio>

#include "engine/sysproc.h"
#include "engine/xorpro.h"
#include "koraxdr/command.h"
#include "koraxdr/device.h"
#include "koraxdr/device_types.h"
#include "koraxdr/frame.h"
#include "koraxdr/send_layout.h"
#include "koraxdr/session.h"

namespace {

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
    {106, KORAX_E_CONTROL_CHARACTER}, {108, KORAX_E_PARAMETER_N}, {200, KORAX_E_DATA_CHECK_SUM},
    {201, KORAX_E_INCOMPLETE_DATA},   {202, KORAX_E_SAME_DATA},   {203, KORAX_E_DAILY_REPORT_FIRST},
};

int32_t PrzetlumaczOdmowe(int32_t error) {
    if (error == 0) return error;
    for (const Refusal& refusal : kOdmowy) {
        if (refusal.code == BajtOdmowy) return refusal.error;
    }
    return error;
}

// Sends a line that stands behind its number, closed by the XOR of its bytes.
int32_t WyslijLinie(const ControlSequence& sequence, int line_number) {
    const int byte_count = sequence.data_length - 2;
    WpiszBajt(1, line_number);
    WpiszBajt(sequence.data_length,
              SumaXORBajtowDoPoslania(0, 2, static_cast<uint8_t>(byte_count)));
    return PrzetlumaczOdmowe(Wyslij(sequence));
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

// Oddity: Of a bitmap's size only low bytes are looked at. Files of other sizes pass whose low
// bytes agree, and end early or print garbage.
bool FormatZgodny(BitmapFile& file) {
    constexpr struct {
        long offset;
        int value;
    } fields[] = {
        {0, 'B'},  {1, 'M'}, {14, 40},  // size of the information header
        {28, 1},                        // bits per dot
        {30, 0},                        // no compression
        {22, 64},                       // height
        {18, 192},                      // width
    };
    for (const auto& [offset, value] : fields) {
        if (file.ByteAt(offset) != value) return false;
    }
    return true;
}

// Oddity: A white colour 0 loses the picture. A dot is printed for colour 0 unless that is white;
// then only whole bytes of the other colour leave a trace, one dot each.
uint8_t BajtLogo(int byte, bool white_background) {
    if (white_background) return byte == 0xFF ? 1 : 0;
    return static_cast<uint8_t>(~byte);
}

bool WczytanoWiersze(BitmapFile& file, Logo& logo) {
    const bool white_background = file.ByteAt(54) == 255;
    const int start = file.ByteAt(10);
    if (start < 0 || !file.Seek(start)) return false;
    for (int line = kLiniiLogo - 1; line >= 0; --line) {  // the file begins at the bottom
        for (uint8_t& target : logo.lines[line]) {
            const int byte = file.Byte();
            if (byte < 0) return false;
            target = BajtLogo(byte, white_background);
        }
    }
    return true;
}

int32_t WczytajLogo(const char* name, Logo& logo) {
    BitmapFile file(name);
    if (!file.opened()) return KORAX_E_FILE;
    return FormatZgodny(file) && WczytanoWiersze(file, logo) ? KORAX_E_OK : KORAX_E_FILE_FORMAT;
}

int32_t WyslijLogo(const Logo& logo) {
    for (int line = 0; line < kLiniiLogo; ++line) {
        for (int i = 0; i < kBajtowLinii; ++i) WpiszBajt(2 + i, logo.lines[line][i]);
        if (const int32_t error = WyslijLinie(kZapisLiniiLogo, line)) return error;
    }
    return KORAX_E_OK;
}

}  // namespace

// Oddity: Footer lines start no session. The type found by the last session start decides, and the
// port has to be open.
int32_t KORAX_CALL pWriteFooterLines(const char* Line1, const char* Line2, const char* Line3) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function pWriteFooterLines:",
                       {{"1.Line1: ", Line1}, {"2.Line2: ", Line2}, {"3.Line3: ", Line3}});
        const char* const lines[kLiniiStopki] = {Line1, Line2, Line3};
        for (const char* line : lines) {
            if (line == nullptr) return KORAX_E_NULL;
        }
        if (!kTypyZeStopka.Contains(Urzadzenie)) return KORAX_E_COMMAND_NOT_AVAILABLE;
        for (int i = 0; i < kLiniiStopki; ++i) {
            WpiszPole(2, kZnakowStopki, lines[i]);
            if (const int32_t error = WyslijLinie(kZapisStopki, i)) return error;
        }
        return KORAX_E_OK;
    });
}

int32_t KORAX_CALL pReadFooterLines(char* Line1, char* Line2, char* Line3) {
    return Funkcja([&]() -> int32_t {
        char* const lines[kLiniiStopki] = {Line1, Line2, Line3};
        for (const char* line : lines) {
            if (line == nullptr) return KORAX_E_NULL;
        }
        if (!kTypyZeStopka.Contains(Urzadzenie)) return KORAX_E_COMMAND_NOT_AVAILABLE;
        for (int i = 0; i < kLiniiStopki; ++i) {
            WpiszBajt(1, i);
            if (const int32_t error = PrzetlumaczOdmowe(Wyslij(kOdczytStopki))) return error;
            KopiujOdpowiedz(lines[i], 2, kZnakowStopki);  // one byte stands before the characters
        }
        return KORAX_E_OK;
    });
}

int32_t KORAX_CALL pWriteLogo(const char* FileName) {
    return Funkcja([&]() -> int32_t {
        if (FileName == nullptr) return KORAX_E_NULL;
        Logo logo = {};
        if (const int32_t error = WczytajLogo(FileName, logo)) return error;
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        if (const int32_t error = RozpoznajUrzadzenie()) return error;
        if (!kTypyZLogo.Contains(Urzadzenie)) return KORAX_E_NOT_IN_THIS_DEVICE;
        return WyslijLogo(logo);
    });
}
