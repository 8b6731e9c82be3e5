// The cashier code and sundry commands: paper feed, article query, any control sequence, user
// lines.
#include <algorithm>
#include <cstring>

#include "engine/sysproc.h"
#include "koraxdr/device_types.h"
#include "koraxdr/frame.h"
#include "koraxdr/raw_frame.h"
#include "koraxdr/send_layout.h"
#include "numbers/io_util.h"

namespace {

constexpr ControlSequence kWysuwPapieru = {0x46, 1, 1};
constexpr ControlSequence kPytanieOTowar = {0xEF, 1, 28, 3};
constexpr ControlSequence kLiniaUzytkownika = {0x9C, 1, 0, 1};
constexpr ControlSequence kKodyKasyIKasjera = {0x43, 1, 4};

constexpr int kZnakowTowaru = 28;
constexpr uint8_t kZaMaloZnakow = 'B';  // the article query's answer to a name without substance
constexpr uint8_t kBrakTowaru = 255;

constexpr int32_t kNajwiecejBajtow = kRozmiarBuforaWymiany - 1;

uint8_t IleBajtow(int32_t ile) {
    return static_cast<uint8_t>(std::clamp(ile, 0, kNajwiecejBajtow));
}

int32_t ZapytajOTowar(const char* nazwa) {
    const bool wielkie = kTypyRodzinyToliE.Contains(Urzadzenie);
    WpiszPole(1, kZnakowTowaru, nazwa, wielkie ? TextForm::kDeviceUpper : TextForm::kDevice);
    return Wyslij(kPytanieOTowar);
}

int32_t SprawdzStatusPrzedLinia() {
    uint8_t a = 0;
    if (const int32_t numer = OdczytajStatus(kStatusA, a)) return numer;
    if (a & 0x01) return blad::kSkasowanaPamiec;
    if (a & 0x80) return blad::kBrakKontroleraDrukarki;
    return blad::kBrak;
}

int32_t PoslijKodyRamka(const char* kodKasy, const char* kodKasjera) {
    return RawFrame()
        .Bytes({kEsc, 0xB0, 'J'})
        .PrintableField(3, kodKasy)
        .PrintableField(21, kodKasjera)
        .Bytes({kEsc, 0xB3})
        .SendForConsent();
}

int32_t WyslijKody(const char* kodKasy, const char* kodKasjera) {
    const bool jednaCyfra = kodKasy[1] == '\0';
    WpiszBajt(1, jednaCyfra ? '0' : kodKasy[0]);
    WpiszBajt(2, jednaCyfra ? kodKasy[0] : kodKasy[1]);
    WpiszPole(3, 2, kodKasjera, TextForm::kAsGiven);
    return Wyslij(kKodyKasyIKasjera);
}

}  // namespace

int32_t KORAX_CALL WriteLineFeed(int32_t LineFeeds) {
    return Funkcja([&]() -> int32_t {
        // The head has no blank before the name, on purpose.
        PokazArgumenty("Sent to functionWriteLineFeed:", {{"1.LineFeeds: ", LineFeeds}});
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        WpiszBajt(1, LineFeeds);
        return Wyslij(kWysuwPapieru);
    });
}

int32_t KORAX_CALL pCheckArticle(const char* Name, int32_t* Rate, int32_t* Kind) {
    // Two results are returned but, on purpose, not stored as the last error.
    int32_t niezapamietany = 0;
    const int32_t wynik = Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to pCheckArticle:", {{"1.Name: ", Name}});
        if (Name == nullptr || Rate == nullptr || Kind == nullptr) return blad::kPustyBufor;
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        if (!kTypyNowszejRodziny.Contains(Urzadzenie)) {
            niezapamietany = blad::kNiedostepnyWTymUrzadzeniu;
            return blad::kBrak;
        }
        const int32_t numer = ZapytajOTowar(Name);
        if (numer == blad::kNiepoprawnaOdpowiedz && BajtOdmowy == kZaMaloZnakow) {
            niezapamietany = blad::kMaloZnakowWNazwie;
            return blad::kBrak;
        }
        if (numer != 0) return numer;
        const bool znany = BajtOdpowiedzi(1) != kBrakTowaru;
        *Rate = znany ? BajtOdpowiedzi(1) : 0;
        *Kind = !znany ? 0 : (BajtOdpowiedzi(2) & 1) != 0 ? 2 : 1;
        return blad::kBrak;
    });
    return niezapamietany != 0 ? niezapamietany : wynik;
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
        const uint8_t odebrac = IleBajtow(QuantityOfBytesToReceive);
        const uint8_t poslac = IleBajtow(QuantityOfBytesToSend);
        if (odebrac != 0 && Received == nullptr) return blad::kPustyBufor;
        if (poslac != 0 && ToSend == nullptr) return blad::kPustyBufor;
        if (poslac != 0) std::memcpy(&BajtyDoPoslania[1], ToSend, poslac);
        const int32_t numer = Wyslij({static_cast<uint8_t>(ControlCode), odebrac}, poslac);
        if (odebrac != 0) std::memcpy(Received, &BajtyOdebrane[1], odebrac);
        return numer;
    });
}

int32_t KORAX_CALL WriteUserQuorra(int32_t Line, int32_t Mode, const char* Text) {
    return Funkcja([&]() -> int32_t {
        if (Text == nullptr) return blad::kPustyBufor;
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        if (const int32_t numer = SprawdzStatusPrzedLinia()) return numer;
        const int znakow = Mode & 1 ? 20 : 40;
        WpiszBajt(1, Line);
        WpiszBajt(2, Mode);
        WpiszPoleDrukowalne(3, znakow, Text);
        return Wyslij(kLiniaUzytkownika, 2 + znakow);
    });
}

int32_t KORAX_CALL pWriteECRCashierCode(int32_t ECRCode, const char* CashierCode) {
    return Funkcja([&]() -> int32_t {
        // Both labels are numbered 1, and the text goes to standard output instead of a box; meant.
        WypiszArgumenty("Sent to function pWriteECRCashierCode:",
                        {{"1.ECRCode: ", ECRCode}, {"1.CashierCode: ", CashierCode}});
        if (CashierCode == nullptr) return blad::kPustyBufor;
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        char kodKasy[12];
        IntToStr(static_cast<uint32_t>(ECRCode), kodKasy, 0);
        return kTypyToliE.Contains(Urzadzenie) ? PoslijKodyRamka(kodKasy, CashierCode)
                                               : WyslijKody(kodKasy, CashierCode);
    });
}
