#include "koraxdr/functions/cancellation.h"

#include "koraxdr/command.h"
#include "koraxdr/cp1250.h"
#include "koraxdr/device_types.h"
#include "koraxdr/document.h"
#include "koraxdr/frame.h"
#include "koraxdr/send_layout.h"
#include "koraxdr/session.h"
#include "koraxdr/texts.h"

namespace {

struct ReasonText {
    int32_t code;
    Text1250 text;
};
// Applications compare and show these texts: "sekwecją" stays.
constexpr ReasonText kPowody[] = {
    {32, "Paragon unieważniony programowo (sekwecją ESC, 23H)"},
    {49,
     "Odebranie znaku różnego od Esc w momencie oczekiwania na sekwencję Esc,XXH lub sekwencja "
     "Esc,XXH nieznana w paragonie lub niewłaściwa w danym momencie"},
    {50, "Nieprawidłowa wartość rabatu (mniejsza od 1 lub większa od 99)"},
    {51,
     "Nieprawidłowa kolejność sekwencji paragonowych lub powtórzenie paragonowych sekwencji "
     "jednokrotnych"},
    {52, "Przekroczona maksymalna długość paragonu"},
    {53, "Przekroczona maksymalna liczba linii drukowanych za pomocą sekwencji Esc,09H"},
    {54, "Przekroczony maksymalny czas wystawiania paragonu"},
    {55, "Niezgodność sumy do zapłaty przesłanej z komputera z wyliczoną przez drukarkę"},
    {65, "Znak niedrukowalny w nazwie paragonu (o kodzie mniejszym od 20H)"},
    {66, "Mniej niż 5 znaków znaczących w nazwie towaru"},
    {67,
     "Nastąpiło zablokowanie towaru (zmiana stawki na mniejszą a następnie próba powrotu na "
     "większą)"},
    {68, "Brak miejsca na zapis towaru w bazie sum"},
    {69, "Brak miejsca na zapis towaru w bazie nazw"},
    {70, "Przekroczona maksymalna ilość towaru (6 cyfr znaczących)"},
    {71, "Przekroczona maksymalna cena towaru (większa od 9999999,99)"},
    {72, "Sekwencja Esc,ST nie wystąpiła w oczekiwanym miejscu"},
    {73,
     "Stawka podatku w sekwencji Esc,ST nie w zakresie od A do G lub użyta stawka nie "
     "zdefiniowana"},
    {74, "Ujemne saldo z towaru dla którego realizowana jest pozycja korekcyjna"},
    {75,
     "Wartość pozycji (iloczyn ilości towaru i ceny) niezgodna z przesłaną z komputera lub "
     "przekracza maksymalną wartość"},
    {82, "Zerowa wartość pozycji"},
    {83, "Przekroczona maksymalna kwota na paragon (9999999,99 zł)"},
    {84, "Zerowa wartość sumy paragonu"},
    {85, "Kwota z narzutem przekracza maksymalną"},
    {87, "Rabat / narzut nie po pozycji sprzedaży"},
    {88, "Timeout odbierania danych z komputera"},
    {89, "Błędne dane w płatności walutowej"},
};

int32_t WyslijAnulowanie() {
    const bool without_printing =
        kTypyToliE.Contains(Urzadzenie) && WydrukowanychLiniiPar == 0 && !FakturaRozpoczeta;
    if (!without_printing) return Wyslij(kAnulowanieParagonu);
    // Oddity: An empty receipt is cancelled by a currency payment. The device takes the sixteen
    // bytes of its data as they stand in the buffer; their values mean nothing here.
    if (const int32_t error = Wyslij(kPlatnoscWalutowa2)) return error;
    return OdbierzPotwierdzenieBezposrednio();
}

}  // namespace

int32_t AnulujParagon() {
    if (const int32_t error = SprawdzUniewaznieniePrzezStatus()) return error;
    const bool newer = kTypyToliE.Contains(Urzadzenie);
    if (!newer) {
        if (const int32_t error = WyslijSumeDoZaplaty(SumaParagonu())) return error;
    }
    PierwszaPozycjaSprzedazy = 0;
    int32_t error = WyslijAnulowanie();
    if (error != 0) {
        // Oddity: An unexpected answer to a cancellation gives 0. On the newest types the receipt's
        // flags then stay set, and the next call settles them with the device.
        if (newer && error == KORAX_E_UNEXPECTED_ANSWER) error = 0;
        if (WydrukowanychLiniiPar != 0 || error != KORAX_E_REFUSED) return error;
    }
    WydrukowanychLiniiPar = 0;
    ParagonRozpoczety = 0;
    FakturaRozpoczeta = 0;
    return PrintControl(0);
}

int32_t KORAX_CALL ReceiptCancel(void) {
    return Funkcja([]() -> int32_t {
        if (const int32_t error = RozpocznijSesje()) return error;
        return ParagonRozpoczety ? AnulujParagon() : KORAX_E_NO_RECEIPT;
    });
}

int32_t KORAX_CALL CancellationReason(int32_t* Code, char* Reason) {
    return Funkcja([&]() -> int32_t {
        if (Code == nullptr) return KORAX_E_NULL;
        if (const int32_t error = RozpocznijSesje()) return error;
        if (const int32_t error = Wyslij(kPowodUniewaznienia)) return error;
        *Code = BajtOdpowiedzi(1);
        if (Reason == nullptr) return KORAX_E_NULL;
        Reason[0] = '\0';
        for (const ReasonText& reason : kPowody) {
            if (reason.code == *Code) KopiujTekst(Reason, reason.text.bytes, kDlugoscTekstu1250);
        }
        return KORAX_E_OK;
    });
}
