// Reading and writing the tax rates.
#include <algorithm>

#include "koraxdr/device.h"
#include "koraxdr/document.h"
#include "koraxdr/frame.h"
#include "koraxdr/session.h"
#include "koraxdr/vat_rates.h"

namespace {

int32_t ZapiszStawki(const RateGeneration& generation, const int32_t (&rates)[kStawek]) {
    if (const int32_t error = WyslijStawki(generation, rates)) return error;
    if (const int32_t error = PrintControl(0)) return error;
    VatRates read_back;
    if (const int32_t error = OdczytajStawki(read_back)) return error;
    // The caller's own values are compared, not their encoded form: a four-rate device that was
    // given 22.50 % keeps 22 %, and the caller has to know.
    const bool written = read_back.count == generation.count &&
                         std::equal(rates, rates + generation.count, read_back.rates);
    return written ? KORAX_E_OK : KORAX_E_RATES_NOT_WRITTEN;
}

}  // namespace

int32_t KORAX_CALL ReadVAT(int32_t* Count, int32_t* A, int32_t* B, int32_t* C, int32_t* D,
                           int32_t* E, int32_t* F, int32_t* G) {
    return Funkcja([&]() -> int32_t {
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        VatRates rates;
        if (const int32_t error = OdczytajStawki(rates)) return error;
        if (rates.count == 0) return KORAX_E_OK;  // nothing was read: the cells stay
        int32_t* const cells[kStawek] = {A, B, C, D, E, F, G};
        for (int i = 0; i < kStawek; ++i) *cells[i] = rates.rates[i];
        *Count = rates.count;
        return KORAX_E_OK;
    });
}

int32_t* KORAX_CALL xReadVAT(int32_t* Rates) {
    if (Rates == nullptr) {
        ZapamietajBlad(KORAX_E_NULL);
        return Rates;
    }
    VatRates read;
    auto& r = read.rates;
    ZapamietajBlad(ReadVAT(&read.count, &r[0], &r[1], &r[2], &r[3], &r[4], &r[5], &r[6]));
    Rates[0] = read.count;
    std::copy(r, r + kStawek, Rates + 1);
    return Rates;
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
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        int32_t counter = 0;
        if (const int32_t error = OdczytajLicznikParagonow(counter)) return error;
        if (counter != 0) return KORAX_E_RECEIPTS_PRINTED;  // only right after a daily report
        if (const int32_t error = RozpoznajUrzadzenie()) return error;
        const int32_t rates[kStawek] = {A, B, C, D, E, F, G};
        const RateGeneration* generation = GeneracjaTypu(Urzadzenie);
        return generation != nullptr ? ZapiszStawki(*generation, rates) : KORAX_E_OK;
    });
}
