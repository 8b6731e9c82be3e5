#include "koraxdr/document.h"

#include <algorithm>
#include <limits>

#include "engine/sysproc.h"
#include "koraxdr/command.h"
#include "koraxdr/device.h"
#include "koraxdr/send_layout.h"
#include "koraxdr/state.h"
#include "port/opening.h"

namespace {

constexpr uint8_t kBitUniewaznienia = 0x10;  // status B

bool ParagonOtwartyWUrzadzeniu() {
    constexpr uint8_t open_bit = 0x02;
    return Wyslij(kStanParagonu) != 0 || (BajtOdpowiedzi(1) & open_bit) != 0;
}

int32_t UniewaznijParagon() {
    ParagonRozpoczety = 0;
    FakturaRozpoczeta = 0;
    return KORAX_E_RECEIPT_CANCELLED;
}

}  // namespace

int32_t SprawdzUniewaznieniePrzezStatus() {
    uint8_t b = 0;
    if (const int32_t error = OdczytajStatus(kStatusB, b)) return error;
    return b & kBitUniewaznienia ? UniewaznijParagon() : KORAX_E_OK;
}

int32_t SprawdzUniewaznieniePrzezPowod() {
    if (const int32_t error = Wyslij(kPowodUniewaznienia)) return error;
    return BajtOdpowiedzi(1) != 0 ? UniewaznijParagon() : KORAX_E_OK;
}

int32_t PrzygotujDokument() {
    if (ParagonRozpoczety) {
        if (ParagonOtwartyWUrzadzeniu()) return KORAX_E_RECEIPT_OPEN;
        ParagonRozpoczety = 0;
    }
    WydrukowanychLiniiPar = 0;
    CzyscPortSzeregowy();
    if (Optimize) return KORAX_E_OK;
    CzyscPortSzeregowy();
    return OdczytajStroneKodowa(CodePage1250);
}

void RozpocznijDokument(bool invoice) {
    ParagonRozpoczety = 1;
    FakturaRozpoczeta = invoice ? 1 : 0;
    std::fill(Total + 1, Total + 1 + kStawek, 0);
}

int32_t WyslijPlatnosc(int32_t number, const char* name, int32_t amount, int32_t change) {
    WpiszBajt(1, number);
    WpiszPole(2, kNazwaPlatnosci, name);
    WpiszLiczbe(15, amount);
    if (const int32_t error = Wyslij(kFormaPlatnosci)) return error;
    WpiszLiczbe(15, change);  // the first 14 bytes stay
    return Wyslij(kResztaPlatnosci);
}

int32_t WyslijSumeDoZaplaty(int64_t amount) {
    WpiszLiczbe(1, Nasycona(amount));
    return Wyslij(kSumaDoZaplaty);
}

int32_t OdczytajLicznikParagonow(int32_t& receipts) {
    if (const int32_t error = Wyslij(kLicznikParagonow)) return error;
    receipts = SlowoOdpowiedzi(1);
    return KORAX_E_OK;
}

int64_t SumaParagonu() {
    int64_t sum = 0;
    for (int i = 1; i <= kStawek; ++i) sum += Total[i];
    return sum;
}

int32_t Nasycona(int64_t amount) {
    using Limits = std::numeric_limits<int32_t>;
    return static_cast<int32_t>(std::clamp<int64_t>(amount, Limits::min(), Limits::max()));
}
