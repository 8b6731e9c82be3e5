#include "koraxdr/send_layout.h"

#include "koraxdr/polish_text.h"
#include "numbers/konwers.h"
#include "port/exchange_cells.h"

namespace {

int32_t Znak(char znak, TextForm postac) {
    const auto bajt = static_cast<uint8_t>(znak);
    switch (postac) {
        case TextForm::kDevice:
            return ZnakDlaUrzadzenia(bajt);
        case TextForm::kDeviceUpper:
            return WielkiZnakDlaUrzadzenia(bajt);
        default:
            return bajt;
    }
}

}  // namespace

void WpiszBajt(int pozycja, int wartosc) {
    if (pozycja < 1 || pozycja >= kRozmiarBuforaWymiany) return;
    BajtyDoPoslania[pozycja] = static_cast<uint8_t>(wartosc);
}

void WpiszSlowo(int pozycja, int32_t wartosc) {
    for (uint8_t n = 1; n <= 2; ++n) {
        WpiszBajt(pozycja + n - 1, BajtZLiczby(n, static_cast<uint32_t>(wartosc)));
    }
}

void WpiszLiczbe(int pozycja, int32_t wartosc) {
    for (uint8_t n = 1; n <= 4; ++n) {
        WpiszBajt(pozycja + n - 1, BajtZLiczby(n, static_cast<uint32_t>(wartosc)));
    }
}

void WpiszOdstepy(int pozycja, int ile) {
    for (int i = 0; i < ile; ++i) WpiszBajt(pozycja + i, ' ');
}

void WpiszPole(int pozycja, int szerokosc, const char* tekst, TextForm postac) {
    const int koniec = WpiszTekst(pozycja, tekst, postac, szerokosc);
    WpiszOdstepy(koniec, pozycja + szerokosc - koniec);
}

int WpiszTekst(int pozycja, const char* tekst, TextForm postac, int najwyzej) {
    for (int i = 0; i < najwyzej && tekst[i] != '\0'; ++i) {
        WpiszBajt(pozycja++, Znak(tekst[i], postac));
    }
    return pozycja;
}

void WpiszCyfry(int pozycja, int32_t wartosc) {
    WpiszBajt(pozycja, wartosc / 10);
    WpiszBajt(pozycja + 1, wartosc % 10);
}

void WpiszPoleDrukowalne(int pozycja, int szerokosc, const char* tekst) {
    for (int i = 0; i < szerokosc; ++i) {
        int32_t znak = ' ';
        if (*tekst != '\0') znak = Znak(*tekst++, TextForm::kDevice);
        WpiszBajt(pozycja + i, znak < ' ' ? ' ' : znak);
    }
}
