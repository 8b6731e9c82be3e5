// VAT rates of the three device generations.
#include "koraxdr/vat.h"

#include <algorithm>

#include "koraxdr/device_types.h"
#include "koraxdr/frame.h"
#include "koraxdr/send_layout.h"

namespace {

int32_t Odkoduj7(int32_t wartosc) {
    if (wartosc == 0x8000) return kStawkaNieuzywana;
    return wartosc == 0x4000 ? kStawkaZwolniona : wartosc;
}

int32_t Odkoduj6(int32_t wartosc) {
    return wartosc > 0xFEFF ? kStawkaNieuzywana : wartosc;
}

int32_t Odkoduj4(int32_t wartosc) {
    return wartosc == 255 ? kStawkaNieuzywana : wartosc * 100;
}

int32_t Zakoduj7(int32_t stawka) {
    if (stawka == kStawkaNieuzywana) return 0x8000;
    return stawka == kStawkaZwolniona ? 0x4000 : stawka;
}

int32_t Zakoduj6(int32_t stawka) {
    return stawka == kStawkaNieuzywana ? 0xFF00 : stawka;
}

int32_t Zakoduj4(int32_t stawka) {
    return stawka / 100;
}

// How one generation of devices keeps its rates.
struct RateGeneration {
    int32_t count;
    int width;  // bytes of a rate, the high byte first
    DeviceTypes types;
    ControlSequence read, write;
    int32_t (*decode)(int32_t);
    int32_t (*encode)(int32_t);
};

// In the order in which a readout tries them.
constexpr RateGeneration kGeneracje[] = {
    {7, 2, kTypySiedmiostawkowe, {0xD1, 15}, {0xD5, 1, 14}, Odkoduj7, Zakoduj7},
    {6, 2, {2, 3, 6}, {0xD0, 13}, {0xD4, 1, 12}, Odkoduj6, Zakoduj6},
    {4, 1, {1, 5}, {0x70, 5}, {0x44, 1, 4}, Odkoduj4, Zakoduj4},
};

// A rate beyond the generation's own: G is the exempt rate, the others are not used.
int32_t StawkaSpozaGeneracji(int numer) {
    return numer == kStawek - 1 ? kStawkaZwolniona : kStawkaNieuzywana;
}

int32_t StawkaZOdpowiedzi(const RateGeneration& generacja, int numer) {
    const int pozycja = 1 + numer * generacja.width;
    int32_t wartosc = BajtOdpowiedzi(pozycja);
    if (generacja.width == 2) wartosc = wartosc * 256 + BajtOdpowiedzi(pozycja + 1);
    return generacja.decode(wartosc);
}

void WpiszStawki(const RateGeneration& generacja, const int32_t (&stawki)[kStawek]) {
    int pozycja = 1;
    for (int i = 0; i < generacja.count; ++i) {
        const int32_t wartosc = generacja.encode(stawki[i]);
        if (generacja.width == 2) WpiszBajt(pozycja++, wartosc >> 8);
        WpiszBajt(pozycja++, wartosc);
    }
}

int32_t ZapiszStawki(const RateGeneration& generacja, const int32_t (&stawki)[kStawek]) {
    WpiszStawki(generacja, stawki);
    if (const int32_t numer = Wyslij(generacja.write)) return numer;
    if (const int32_t numer = ZakonczDrukowanie()) return numer;
    VatRates odczytane;
    if (const int32_t numer = OdczytajStawki(odczytane)) return numer;
    // The caller's own values are compared, not their encoded form: a four-rate device that was
    // given 22.50 % keeps 22 %, and the caller has to know. This is meant.
    const bool zapisane = odczytane.count == generacja.count &&
                          std::equal(stawki, stawki + generacja.count, odczytane.rates);
    return zapisane ? blad::kBrak : blad::kStawkiNiezapisane;
}

}  // namespace

int32_t KORAX_CALL ReadVAT(int32_t* Count, int32_t* A, int32_t* B, int32_t* C, int32_t* D,
                           int32_t* E, int32_t* F, int32_t* G) {
    return Funkcja([&]() -> int32_t {
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        int32_t* const cele[kStawek] = {A, B, C, D, E, F, G};
        int32_t numer = 0;
        for (const RateGeneration& generacja : kGeneracje) {
            numer = Wyslij(generacja.read);
            if (numer == 0) {
                *Count = generacja.count;
                for (int i = 0; i < kStawek; ++i) {
                    *cele[i] = i < generacja.count ? StawkaZOdpowiedzi(generacja, i)
                                                   : StawkaSpozaGeneracji(i);
                }
                return blad::kBrak;
            }
            // Another failure than a refusal of the first two commands ends in success with the
            // cells untouched. This is meant: the caller presets the count when it needs certainty.
            if (numer != blad::kNak && generacja.count != 4) return blad::kBrak;
        }
        return numer;
    });
}

int32_t* KORAX_CALL xReadVAT(int32_t* Rates) {
    if (Rates == nullptr) {
        ZapamietajBlad(blad::kPustyBufor);
        return Rates;
    }
    VatRates stawki;
    ZapamietajBlad(OdczytajStawki(stawki));
    Rates[0] = stawki.count;
    std::copy(stawki.rates, stawki.rates + kStawek, Rates + 1);
    return Rates;
}

int32_t OdczytajStawki(VatRates& stawki) {
    auto& r = stawki.rates;
    return ReadVAT(&stawki.count, &r[0], &r[1], &r[2], &r[3], &r[4], &r[5], &r[6]);
}

int32_t Stawki(uint8_t* defined) {
    *defined = 0;
    VatRates stawki;
    if (const int32_t numer = OdczytajStawki(stawki)) return numer;
    for (int i = 0; i < stawki.count; ++i) {
        if (stawki.rates[i] != kStawkaNieuzywana) *defined = 1;  // an exempt rate is defined too
    }
    return *defined ? blad::kBrak : blad::kBrakStawek;
}

int32_t KORAX_CALL SetVAT(int32_t QuantityOfRates, int32_t A, int32_t B, int32_t C, int32_t D,
                          int32_t E, int32_t F, int32_t G) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function SetVAT:", {{"1.QuantityOfRates: ", QuantityOfRates},
                                                    {"2.A: ", A},
                                                    {"3.B: ", B},
                                                    {"4.C: ", C},
                                                    {"5.D: ", D},
                                                    {"6.E: ", E},
                                                    {"7.F: ", F},
                                                    {"8.G: ", G}});
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        int32_t licznik = 0;
        if (const int32_t numer = ReceiptNumber(&licznik)) return numer;
        if (licznik != 0) return blad::kNiezerowyLicznik;  // only right after a daily report
        if (const int32_t numer = DeviceType(&Urzadzenie, &Prog)) return numer;
        const int32_t stawki[kStawek] = {A, B, C, D, E, F, G};
        for (const RateGeneration& generacja : kGeneracje) {
            if (generacja.types.Contains(Urzadzenie)) return ZapiszStawki(generacja, stawki);
        }
        return blad::kBrak;  // a type without rates of its own: a silent success, on purpose
    });
}
