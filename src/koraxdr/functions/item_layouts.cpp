#include "koraxdr/functions/item_layouts.h"

#include <algorithm>
#include <cstring>

#include "koraxdr/device_types.h"
#include "koraxdr/send_layout.h"
#include "koraxdr/state.h"
#include "numbers/konwers.h"
#include "numbers/napzbpro.h"
#include "port/wire_bytes.h"

namespace {

constexpr DeviceTypes kTypyKrotkiejNazwy = {1, 2, 3, 4};
constexpr DeviceTypes kTypyUcietegoUkladu = {7, 9};
constexpr DeviceTypes kTypyBezTekstu = {8, 12};

constexpr int32_t kTola = 8;
constexpr int32_t kTolaZDlugaNazwa = 2;  // program version from which type 8 takes long names

constexpr int kNazwaTekstowa = 120;  // characters
constexpr int kNajdluzszaPozycjaTekstowa = 255;

// Marks of a text item, each behind Esc.
constexpr int kZnakKwoty = 0xB1;
constexpr int kZnakStawki = 0xB2;

bool DlugieNazwy() {
    return Urzadzenie != kTola || Prog >= kTolaZDlugaNazwa;
}

// The text of a 32-bit field with decimals, as the devices print it.
const char* NapisLiczby(int32_t value, uint8_t decimals) {
    uint8_t field[5] = {};
    bajty(field, static_cast<uint32_t>(value));
    return NapisZBajtowOpisujacych(field, 1, 4, decimals);
}

}  // namespace

ItemLayout UkladPozycji(std::size_t name_length) {
    if (name_length <= kNazwaKrotka || kTypyKrotkiejNazwy.Contains(Urzadzenie) || !DlugieNazwy()) {
        return ItemLayout::kShort;
    }
    // Oddity: Types 7 and 9 get a longer name as a cut layout. The first 49 bytes of the long
    // layout go out with the short one's command, as the devices have always been sent it; they
    // refuse it.
    if (kTypyUcietegoUkladu.Contains(Urzadzenie)) return ItemLayout::kCutLong;
    if (name_length <= kNazwaDluga || kTypyBezTekstu.Contains(Urzadzenie)) return ItemLayout::kLong;
    return ItemLayout::kText;
}

// The short and the long layout differ in the width of the name alone.
void WpiszPozycje(const Item& item, int name_width) {
    const int p = 1 + name_width;  // position of the name's last character
    WpiszBajt(1, item.sale ? ' ' : '-');
    WpiszPole(2, name_width, item.work_name);
    WpiszBajt(p + 1, '0' + static_cast<int>(item.message & 0xFF));
    WpiszLiczbe(p + 2, item.quantity);
    WpiszBajt(p + 6, static_cast<int>(item.decimals & 0xFF));
    WpiszPole(p + 7, 4, item.unit);
    WpiszLiczbe(p + 11, item.price);
    WpiszBajt(p + 15, kEsc);
    WpiszBajt(p + 16, static_cast<int>(item.rate & 0xFF));
    WpiszLiczbe(p + 17, *item.amount);
}

int WpiszOtwarcieTekstowe() {
    SendRun run;
    run.Bytes({'C', kEsc, kKoniecRamki});
    return run.length();
}

// Oddity: A text item is always a sale. Its layout carries neither the sign of a correction nor the
// message's number, so a correction with such a name is sold once more.
int WpiszPozycjeTekstowa(const Item& item) {
    const auto decimals = static_cast<uint8_t>(item.decimals);
    const int length = static_cast<int>(strnlen(item.name, kNazwaTekstowa));
    SendRun run;
    run.Bytes({'D'})
        .Field(kNazwaDluga, item.name)
        .Bytes({0})
        .Text(NapisLiczby(item.quantity, decimals), TextForm::kAsGiven)
        .Bytes({' '})
        .Field(4, item.unit)
        .Bytes({' ', '*', ' '})
        .Text(NapisLiczby(item.price, 2), TextForm::kAsGiven)
        .Bytes({' ', '=', kLf, kCr})
        .Text(item.name + kNazwaDluga, TextForm::kDevice, kNazwaDluga);
    if (length > 2 * kNazwaDluga) {
        run.Bytes({kLf, kCr}).Text(item.name + 2 * kNazwaDluga, TextForm::kDevice, kNazwaDluga);
    }
    run.Bytes({kEsc, kZnakKwoty, 'a'})
        .Text(NapisLiczby(*item.amount, 2), TextForm::kAsGiven)
        .Bytes({kEsc, kZnakStawki, 0x40 + static_cast<int>(item.rate_given & 0xFF), kEsc,
                kKoniecRamki});
    // The longest texts and numbers of decimals would pass the length byte.
    return std::min(run.length(), kNajdluzszaPozycjaTekstowa);
}
