#include "koraxdr/send_layout.h"

#include "koraxdr/polish_text.h"
#include "numbers/konwers.h"
#include "port/exchange_cells.h"

namespace {

int32_t Znak(char character, TextForm form) {
    const auto byte = static_cast<uint8_t>(character);
    switch (form) {
        case TextForm::kDevice:
            return ZnakDlaUrzadzenia(byte);
        case TextForm::kDeviceUpper:
            return WielkiZnakDlaUrzadzenia(byte);
        default:
            return byte;
    }
}

}  // namespace

void WpiszBajt(int position, int value) {
    if (position < 1 || position >= kRozmiarBuforaWymiany) return;
    BajtyDoPoslania[position] = static_cast<uint8_t>(value);
}

void WpiszSlowo(int position, int32_t value) {
    for (uint8_t n = 1; n <= 2; ++n) {
        WpiszBajt(position + n - 1, BajtZLiczby(n, static_cast<uint32_t>(value)));
    }
}

void WpiszLiczbe(int position, int32_t value) {
    for (uint8_t n = 1; n <= 4; ++n) {
        WpiszBajt(position + n - 1, BajtZLiczby(n, static_cast<uint32_t>(value)));
    }
}

void WpiszOdstepy(int position, int count) {
    for (int i = 0; i < count; ++i) WpiszBajt(position + i, ' ');
}

void WpiszPole(int position, int width, const char* text, TextForm form) {
    const int end = WpiszTekst(position, text, form, width);
    WpiszOdstepy(end, position + width - end);
}

int WpiszTekst(int position, const char* text, TextForm form, int at_most) {
    for (int i = 0; i < at_most && text[i] != '\0'; ++i) {
        WpiszBajt(position++, Znak(text[i], form));
    }
    return position;
}

void WpiszCyfry(int position, int32_t value) {
    WpiszBajt(position, value / 10);
    WpiszBajt(position + 1, value % 10);
}

void WpiszPoleDrukowalne(int position, int width, const char* text) {
    for (int i = 0; i < width; ++i) {
        int32_t character = ' ';
        if (*text != '\0') character = Znak(*text++, TextForm::kDevice);
        WpiszBajt(position + i, character < ' ' ? ' ' : character);
    }
}
