#include "koraxdr/device.h"

#include "engine/sysproc.h"
#include "koraxdr/command.h"
#include "koraxdr/device_types.h"
#include "koraxdr/send_layout.h"
#include "koraxdr/state.h"

namespace {

constexpr uint8_t kBitStrony1250 = 0x08;

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

// Models that report no version.
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

int32_t TypWariantu(const ModelFamily& family, uint8_t code) {
    for (const auto& [variant, type] : family.variants) {
        if (type != 0 && variant == code) return type;
    }
    return family.common_type;
}

int32_t RozpoznajWariant(const ModelFamily& family, int32_t& type, int32_t& version) {
    const int32_t error = Wyslij(kIdentyfikacjaRozszerzona);
    if (error != 0 && error != KORAX_E_REFUSED) return error;
    type = error == 0 ? TypWariantu(family, BajtOdpowiedzi(1)) : family.older_type;
    version = error == 0 ? BajtOdpowiedzi(2) : 0;
    return KORAX_E_OK;
}

int32_t OdczytajParametrStronyKodowej() {
    constexpr uint8_t kind = 2;
    WpiszBajt(1, kind);
    WpiszPole(2, 40, "code_page", TextForm::kAsGiven);
    return Wyslij(kParametrNazwany);
}

// The number of the device's code page as two decimal digits; other values say nothing.
void OdczytajNumerStrony(int32_t& page) {
    const auto digits = static_cast<uint16_t>(BajtOdpowiedzi(1) << 8 | BajtOdpowiedzi(2));
    constexpr auto two_digits = [](char a, char b) { return static_cast<uint16_t>(a << 8 | b); };
    if (digits == two_digits('1', '6')) page = 0;
    if (digits == two_digits('1', '7')) page = 1;
    if (digits == two_digits('1', '9')) page = 2;
}

}  // namespace

int32_t RozpoznajTyp(int32_t& type, int32_t& version) {
    if (const int32_t error = Wyslij(kIdentyfikacja)) return error;
    const uint8_t model = BajtOdpowiedzi(1);
    SzczegoloweDaneOTypieUrzadzenia.type_code = model;
    for (const PlainModel& plain : kModeleProste) {
        if (plain.model != model) continue;
        // Oddity: Plain models keep the version. They report none, and the cell keeps what it held.
        type = plain.type;
        return KORAX_E_OK;
    }
    for (const ModelFamily& family : kRodziny) {
        if (family.model == model) return RozpoznajWariant(family, type, version);
    }
    type = kInneUrzadzenie;
    version = 0;
    return KORAX_E_OK;
}

int32_t RozpoznajUrzadzenie() {
    return RozpoznajTyp(Urzadzenie, Prog);
}

const char* NazwaUrzadzenia(int32_t type) {
    return kNazwyUrzadzen[type >= 1 && type <= kInneUrzadzenie ? type : 0];
}

int32_t OdczytajStroneKodowa(int32_t& page) {
    if (const int32_t error = RozpoznajUrzadzenie()) return error;
    if (!kTypyNowszejRodziny.Contains(Urzadzenie)) {
        page = 0;
        return KORAX_E_OK;
    }
    if (const int32_t error = Wyslij(kStatusStronyKodowej)) return error;
    page = BajtOdpowiedzi(1) & kBitStrony1250 ? 1 : 0;
    if (kTypyToliE.Contains(Urzadzenie) && Prog > 1) {
        if (const int32_t error = OdczytajParametrStronyKodowej()) return error;
    }
    // Where no parameter was read these are the status command's own bytes.
    OdczytajNumerStrony(page);
    return KORAX_E_OK;
}
