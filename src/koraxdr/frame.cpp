#include "koraxdr/frame.h"

#include <cstdio>
#include <cstring>

#include "engine/sysproc.h"
#include "numbers/io_util.h"
#include "platform/message_box.h"
#include "port/sysseria.h"

namespace {

// The text of a debug box. Texts of any length may be passed to the functions; what does not fit
// here is not shown.
class DebugText {
  public:
    DebugText(const char* head, std::initializer_list<DebugArgument> arguments) {
        Append(head);
        Append("\n");
        for (const DebugArgument& argument : arguments) {
            char number[12];
            IntToStr(static_cast<uint32_t>(argument.number), number, 0);
            Append(argument.label);
            Append(argument.is_text ? argument.text : number);
            Append("\n");
        }
    }
    const char* c_str() const { return text_; }

  private:
    void Append(const char* text) {
        while (text != nullptr && *text != '\0' && used_ < sizeof text_ - 1) {
            text_[used_++] = *text++;
        }
        text_[used_] = '\0';
    }

    char text_[4096] = "";
    size_t used_ = 0;
};

}  // namespace

void PokazArgumenty(const char* naglowek, std::initializer_list<DebugArgument> argumenty) {
    if (!DebugMode) return;
    platform::ShowNotice("DEBUG MODE", DebugText(naglowek, argumenty).c_str());
}

void WypiszArgumenty(const char* naglowek, std::initializer_list<DebugArgument> argumenty) {
    if (!DebugMode) return;
    std::printf("%s", DebugText(naglowek, argumenty).c_str());
}

int32_t RozpocznijSesje() {
    if (KomunikacjaInit) return blad::kBrak;
    return CommunicationInitInternal(static_cast<uint8_t>(NumerPortuDrukarki), 1);
}

int32_t RozpocznijSesjePozaParagonem() {
    if (const int32_t numer = RozpocznijSesje()) return numer;
    return ParagonRozpoczety ? blad::kParagonRozpoczety : blad::kBrak;
}

int32_t Wyslij(const ControlSequence& sekwencja) {
    return Wyslij(sekwencja, sekwencja.data_length);
}

int32_t Wyslij(const ControlSequence& sekwencja, int dlugoscDanych) {
    PoslanieSekwencjiSterujacej(sekwencja.command, sekwencja.ack_length,
                                static_cast<uint8_t>(dlugoscDanych), sekwencja.answer_length);
    return NumerBledu;
}

int32_t OdczytajStatus(const ControlSequence& sekwencja, uint8_t& status) {
    if (const int32_t numer = Wyslij(sekwencja)) return numer;
    status = BajtOdpowiedzi(1);
    return blad::kBrak;
}

uint8_t BajtOdpowiedzi(int pozycja) {
    return BajtyOdebrane[pozycja];
}

int32_t SlowoOdpowiedzi(int pozycja) {
    return BajtOdpowiedzi(pozycja) + 256 * BajtOdpowiedzi(pozycja + 1);
}

int32_t LiczbaOdpowiedzi(int pozycja) {
    const auto dolne = static_cast<uint32_t>(SlowoOdpowiedzi(pozycja));
    const auto gorne = static_cast<uint32_t>(SlowoOdpowiedzi(pozycja + 2));
    return static_cast<int32_t>(gorne << 16 | dolne);
}

void KopiujOdpowiedz(char* cel, int pozycja, int ile) {
    std::memcpy(cel, &BajtyOdebrane[pozycja], static_cast<size_t>(ile));
    cel[ile] = '\0';
}

int32_t OdbierzBajt(uint8_t& bajt) {
    OdebranoBajtBezposrednio(bajt);
    return NumerBledu;
}

int32_t OdbierzPotwierdzenieBezposrednio() {
    uint8_t bajt = 0;
    if (const int32_t numer = OdbierzBajt(bajt)) return numer;
    NumerBledu = bajt == kAck   ? WartoscNumeruBledu(0)
                 : bajt == kNak ? kNak
                                : WartoscNumeruBledu(kBladNiepoprawnaOdpowiedz);
    return NumerBledu;
}

int32_t UniewaznijParagon() {
    ParagonRozpoczety = 0;
    FakturaRozpoczeta = 0;
    return blad::kParagonUniewazniony;
}

void KopiujTekst(char* cel, const char* tekst, int size) {
    const size_t kept = strnlen(tekst, static_cast<size_t>(size) - 1);
    std::memcpy(cel, tekst, kept);
    cel[kept] = '\0';
}
