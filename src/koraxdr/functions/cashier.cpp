// The cashier code and sundry commands: paper feed, article query, any control sequence, user
// lines.
#include <algorithm>
#include <cstring>

#include "engine/sysproc.h"
#include "koraxdr/command.h"
#include "koraxdr/device_types.h"
#include "koraxdr/frame.h"
#include "koraxdr/raw_frame.h"
#include "koraxdr/send_layout.h"
#include "koraxdr/session.h"
#include "numbers/io_util.h"

namespace {

constexpr int kZnakowTowaru = 28;
constexpr uint8_t kZaMaloZnakow = 'B';  // the article query's answer to a name without substance
constexpr uint8_t kBrakTowaru = 255;

constexpr int32_t kNajwiecejBajtow = kRozmiarBuforaWymiany - 1;

uint8_t IleBajtow(int32_t count) {
    return static_cast<uint8_t>(std::clamp(count, 0, kNajwiecejBajtow));
}

int32_t ZapytajOTowar(const char* name) {
    const bool upper = kTypyRodzinyToliE.Contains(Urzadzenie);
    WpiszPole(1, kZnakowTowaru, name, upper ? TextForm::kDeviceUpper : TextForm::kDevice);
    return Wyslij(kPytanieOTowar);
}

int32_t SprawdzStatusPrzedLinia() {
    uint8_t a = 0;
    if (const int32_t error = OdczytajStatus(kStatusA, a)) return error;
    if (a & 0x01) return KORAX_E_MEMORY_ERASED;
    if (a & 0x80) return KORAX_E_NO_PRINTER_CONTROLLER;
    return KORAX_E_OK;
}

int32_t PoslijKodyRamka(const char* register_code, const char* cashier_code) {
    return RawFrame()
        .Bytes({kEsc, kRamkaTekstowa.command, 'J'})
        .PrintableField(3, register_code)
        .PrintableField(21, cashier_code)
        .Bytes({kEsc, kKoniecRamki})
        .SendForConsent();
}

int32_t WyslijKody(const char* register_code, const char* cashier_code) {
    const bool one_digit = register_code[1] == '\0';
    WpiszBajt(1, one_digit ? '0' : register_code[0]);
    WpiszBajt(2, one_digit ? register_code[0] : register_code[1]);
    WpiszPole(3, 2, cashier_code, TextForm::kAsGiven);
    return Wyslij(kKodyKasyIKasjera);
}

}  // namespace

int32_t KORAX_CALL WriteLineFeed(int32_t LineFeeds) {
    return Funkcja([&]() -> int32_t {
        // Oddity: The head of WriteLineFeed lacks a blank. It stands before the function's name.
        PokazArgumenty("Sent to functionWriteLineFeed:", {{"1.LineFeeds: ", LineFeeds}});
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        WpiszBajt(1, LineFeeds);
        return Wyslij(kWysuwPapieru);
    });
}

int32_t KORAX_CALL pCheckArticle(const char* Name, int32_t* Rate, int32_t* Kind) {
    // Oddity: Two results of pCheckArticle are not stored. They are answers rather than failures:
    // the type lacks the query, or the name has no substance.
    int32_t not_stored = 0;
    const int32_t result = Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to pCheckArticle:", {{"1.Name: ", Name}});
        if (Name == nullptr || Rate == nullptr || Kind == nullptr) return KORAX_E_NULL;
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        if (!kTypyNowszejRodziny.Contains(Urzadzenie)) {
            not_stored = KORAX_E_NOT_IN_THIS_DEVICE;
            return KORAX_E_OK;
        }
        const int32_t error = ZapytajOTowar(Name);
        if (error == KORAX_E_UNEXPECTED_ANSWER && BajtOdmowy == kZaMaloZnakow) {
            not_stored = KORAX_E_NAME;
            return KORAX_E_OK;
        }
        if (error != 0) return error;
        const bool known = BajtOdpowiedzi(1) != kBrakTowaru;
        *Rate = known ? BajtOdpowiedzi(1) : 0;
        *Kind = !known ? 0 : (BajtOdpowiedzi(2) & 1) != 0 ? 2 : 1;
        return KORAX_E_OK;
    });
    return not_stored != 0 ? not_stored : result;
}

// The raw door to the exchange: no session is started, no open receipt is looked for.
int32_t KORAX_CALL RSSequence(int32_t ControlCode, int32_t QuantityOfBytesToReceive,
                              int32_t QuantityOfBytesToSend, uint8_t* Received,
                              const uint8_t* ToSend) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function RSSequence:",
                       {{"1.ControlCode: ", ControlCode},
                        {"2.QuantityOfBytesToReceive: ", QuantityOfBytesToReceive},
                        {"3.QuantityOfBytesToSend: ", QuantityOfBytesToSend}});
        const uint8_t to_receive = IleBajtow(QuantityOfBytesToReceive);
        const uint8_t to_send = IleBajtow(QuantityOfBytesToSend);
        if (to_receive != 0 && Received == nullptr) return KORAX_E_NULL;
        if (to_send != 0 && ToSend == nullptr) return KORAX_E_NULL;
        if (to_send != 0) std::memcpy(&BajtyDoPoslania[1], ToSend, to_send);
        const int32_t error = Wyslij({static_cast<uint8_t>(ControlCode), to_receive}, to_send);
        if (to_receive != 0) std::memcpy(Received, &BajtyOdebrane[1], to_receive);
        return error;
    });
}

int32_t KORAX_CALL WriteUserQuorra(int32_t Line, int32_t Mode, const char* Text) {
    return Funkcja([&]() -> int32_t {
        if (Text == nullptr) return KORAX_E_NULL;
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        if (const int32_t error = SprawdzStatusPrzedLinia()) return error;
        const int characters = Mode & 1 ? 20 : 40;
        WpiszBajt(1, Line);
        WpiszBajt(2, Mode);
        WpiszPoleDrukowalne(3, characters, Text);
        return Wyslij(kLiniaUzytkownika, 2 + characters);
    });
}

int32_t KORAX_CALL pWriteECRCashierCode(int32_t ECRCode, const char* CashierCode) {
    return Funkcja([&]() -> int32_t {
        // Oddity: pWriteECRCashierCode prints instead of showing a box. Both its labels are
        // numbered 1.
        WypiszArgumenty("Sent to function pWriteECRCashierCode:",
                        {{"1.ECRCode: ", ECRCode}, {"1.CashierCode: ", CashierCode}});
        if (CashierCode == nullptr) return KORAX_E_NULL;
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        char register_code[12];
        IntToStr(static_cast<uint32_t>(ECRCode), register_code, 0);
        return kTypyToliE.Contains(Urzadzenie) ? PoslijKodyRamka(register_code, CashierCode)
                                               : WyslijKody(register_code, CashierCode);
    });
}
