#include "koraxdr/functions/conditions.h"

#include <cstddef>

#include "koraxdr/command.h"
#include "koraxdr/device_types.h"
#include "koraxdr/frame.h"
#include "koraxdr/session.h"
#include "koraxdr/vat_rates.h"

namespace {

constexpr DeviceTypes kTypyBezDalszychWarunkow = {5, 6, 9};

struct StatusBytes {
    uint8_t c, a, b, d;
};

int32_t OdczytajStatusy(StatusBytes& s) {
    if (const int32_t error = OdczytajStatus(kStatusC, s.c)) return error;
    if (const int32_t error = OdczytajStatus(kStatusA, s.a)) return error;
    if (const int32_t error = OdczytajStatus(kStatusB, s.b)) return error;
    if (const int32_t error = OdczytajStatus(kStatusD, s.d)) return error;
    const int32_t error = Wyslij(kDalszyStatus);
    return error == KORAX_E_REFUSED ? KORAX_E_OK : error;
}

// A bit of a status byte and what it means when it is set (or clear).
struct StatusTest {
    uint8_t StatusBytes::*byte;
    uint8_t bit;
    bool fails_when_set;
    int32_t reason;
};

constexpr StatusTest kTestKontrolera = {&StatusBytes::a, 0x80, true, KORAX_E_NO_PRINTER_CONTROLLER};
constexpr StatusTest kTestAwarii = {&StatusBytes::b, kBitAwarii, true, KORAX_E_PRINTER_FAILURE};

// In the order in which they are reported.
constexpr StatusTest kTestyPrzedStawkami[] = {
    {&StatusBytes::c, 0x01, false, KORAX_E_NO_PRODUCER_DATA},
    {&StatusBytes::a, 0x10, true, KORAX_E_MEMORY_ERASED},
    {&StatusBytes::d, 0x40, true, KORAX_E_SERVICE_JUMPER},
    kTestKontrolera,
    kTestAwarii,
    {&StatusBytes::c, 0x02, false, KORAX_E_NO_USER_DATA},
    {&StatusBytes::c, 0x04, true, KORAX_E_READ_ONLY},
    {&StatusBytes::a, 0x40, true, KORAX_E_NO_CUSTOMER_DISPLAY},
    {&StatusBytes::a, 0x08, true, KORAX_E_DAILY_REPORT_PENDING},
};
// The last two have been tested already: applications may rely on no paper being told before them.
constexpr StatusTest kTestyPoStawkach[] = {
    {&StatusBytes::b, kBitBrakuPapieru, true, KORAX_E_NO_PAPER},
    kTestKontrolera,
    kTestAwarii,
};

template <std::size_t N>
int32_t PierwszyPowod(const StatusBytes& s, const StatusTest (&tests)[N]) {
    for (const StatusTest& test : tests) {
        if (((s.*test.byte & test.bit) != 0) == test.fails_when_set) return test.reason;
    }
    return KORAX_E_OK;
}

}  // namespace

int32_t ZnajdzPowodOdmowy() {
    StatusBytes s = {};
    if (const int32_t error = OdczytajStatusy(s)) return error;
    if (const int32_t reason = PierwszyPowod(s, kTestyPrzedStawkami)) return reason;
    uint8_t defined = 0;
    if (const int32_t error = Stawki(&defined)) return error;
    if (const int32_t reason = PierwszyPowod(s, kTestyPoStawkach)) return reason;
    // Oddity: Types 5, 6 and 9 never pass. They end in 224 even when nothing is wrong with them, so
    // a printout that waits for paper shows as 224 there.
    if (kTypyBezDalszychWarunkow.Contains(Urzadzenie)) return KORAX_E_NOT_IN_THIS_DEVICE;
    return PrintControl(1);
}

int32_t KORAX_CALL ReceiptConditions(void) {
    return Funkcja([]() -> int32_t {
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        return ZnajdzPowodOdmowy();
    });
}
