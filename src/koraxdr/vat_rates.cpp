#include "koraxdr/vat_rates.h"

#include "koraxdr/send_layout.h"

namespace {

int32_t Odkoduj7(int32_t value) {
    if (value == 0x8000) return KORAX_RATE_NOT_USED;
    return value == 0x4000 ? KORAX_RATE_EXEMPT : value;
}

int32_t Odkoduj6(int32_t value) {
    return value > 0xFEFF ? KORAX_RATE_NOT_USED : value;
}

int32_t Odkoduj4(int32_t value) {
    return value == 255 ? KORAX_RATE_NOT_USED : value * 100;
}

int32_t Zakoduj7(int32_t rate) {
    if (rate == KORAX_RATE_NOT_USED) return 0x8000;
    return rate == KORAX_RATE_EXEMPT ? 0x4000 : rate;
}

int32_t Zakoduj6(int32_t rate) {
    return rate == KORAX_RATE_NOT_USED ? 0xFF00 : rate;
}

int32_t Zakoduj4(int32_t rate) {
    return rate / 100;
}

// In the order in which a readout tries them.
constexpr RateGeneration kGeneracje[] = {
    {7, 2, kTypySiedmiostawkowe, kOdczytStawek7, kZapisStawek7, Odkoduj7, Zakoduj7},
    {6, 2, {2, 3, 6}, kOdczytStawek6, kZapisStawek6, Odkoduj6, Zakoduj6},
    {4, 1, {1, 5}, kOdczytStawek4, kZapisStawek4, Odkoduj4, Zakoduj4},
};

// A rate beyond the generation's own: G is the exempt rate, the others are not used.
int32_t StawkaSpozaGeneracji(int index) {
    return index == kStawek - 1 ? KORAX_RATE_EXEMPT : KORAX_RATE_NOT_USED;
}

int32_t StawkaZOdpowiedzi(const RateGeneration& generation, int index) {
    const int position = 1 + index * generation.width;
    int32_t value = BajtOdpowiedzi(position);
    if (generation.width == 2) value = value * 256 + BajtOdpowiedzi(position + 1);
    return generation.decode(value);
}

void OdkodujStawki(const RateGeneration& generation, VatRates& rates) {
    rates.count = generation.count;
    for (int i = 0; i < kStawek; ++i) {
        rates.rates[i] =
            i < generation.count ? StawkaZOdpowiedzi(generation, i) : StawkaSpozaGeneracji(i);
    }
}

}  // namespace

const RateGeneration* GeneracjaTypu(int32_t type) {
    for (const RateGeneration& generation : kGeneracje) {
        if (generation.types.Contains(type)) return &generation;
    }
    return nullptr;
}

int32_t OdczytajStawki(VatRates& rates) {
    int32_t error = 0;
    for (const RateGeneration& generation : kGeneracje) {
        error = Wyslij(generation.read);
        if (error == 0) {
            OdkodujStawki(generation, rates);
            return KORAX_E_OK;
        }
        // Oddity: A failed readout of rates can end well. Where one of the first two commands fails
        // otherwise than by a refusal, the result is 0 and the cells are untouched: the caller
        // presets the count when it needs certainty.
        const bool is_last = generation.count == 4;
        if (error != KORAX_E_REFUSED && !is_last) return KORAX_E_OK;
    }
    return error;
}

int32_t WyslijStawki(const RateGeneration& generation, const int32_t (&rates)[kStawek]) {
    int position = 1;
    for (int i = 0; i < generation.count; ++i) {
        const int32_t value = generation.encode(rates[i]);
        if (generation.width == 2) WpiszBajt(position++, value >> 8);
        WpiszBajt(position++, value);
    }
    return Wyslij(generation.write);
}

int32_t Stawki(uint8_t* defined) {
    *defined = 0;
    VatRates rates;
    if (const int32_t error = OdczytajStawki(rates)) return error;
    for (int i = 0; i < rates.count; ++i) {
        if (rates.rates[i] != KORAX_RATE_NOT_USED) *defined = 1;
    }
    return *defined ? KORAX_E_OK : KORAX_E_NO_RATES;
}
