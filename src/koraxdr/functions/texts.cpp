// The Polish texts of the error numbers, and the conversion of letters.
#include <cstring>

#include "koraxdr/cp1250.h"
#include "koraxdr/frame.h"
#include "koraxdr/polish_text.h"

namespace {

struct ErrorText {
    int32_t number;
    Text1250 text;
};

// Oddity: Error texts are misspelt. Applications compare and show them, so the missing diacritics
// and blanks are part of the interface ("sterujacą", "dlugość", "wystapił", "<Ilosc>", "<Wartosc>",
// "rap.dobowym"). Numbers without a line, among them several that the driver itself gives, have the
// fallback text.
constexpr ErrorText kTeksty[] = {
    {KORAX_E_OK, ""},
    {KORAX_E_PORT, "Nie można otworzyć portu szeregowego (brak portu w systemie)"},
    {KORAX_E_PORT_BUSY, "Nie można otworzyć portu szeregowego (port jest już otwarty)"},
    {KORAX_E_SEND_TIMEOUT, "Timeout nadawania"},
    {KORAX_E_RECEIVE_TIMEOUT, "Timeout odbierania"},
    {KORAX_E_UNEXPECTED_ANSWER, "Niepoprawna odpowiedź z drukarki"},
    {KORAX_E_REFUSED, "NAK na sekwencję sterujacą"},
    {KORAX_E_NO_SESSION, "Komunikacja nie zainicjowana"},
    {KORAX_E_NO_PRODUCER_DATA, "Brak danych producenta"},
    {KORAX_E_SERVICE_JUMPER, "Zwora w pozycji serwisowej"},
    {KORAX_E_NO_PRINTER_CONTROLLER, "Brak komunikacji z kontrolerem drukarki"},
    {KORAX_E_PRINTER_FAILURE, "Awaria drukarki"},
    {KORAX_E_NO_USER_DATA, "Brak danych użytkownika"},
    {KORAX_E_READ_ONLY, "Moduł fiskalny w trybie TYLKO ODCZYT"},
    {KORAX_E_NO_CUSTOMER_DISPLAY, "Brak wyświetlacza klienta"},
    {KORAX_E_MEMORY_ERASED, "Skasowana pamięć CMOS"},
    {KORAX_E_DAILY_REPORT_PENDING, "Zaległy raport dobowy do wykonania"},
    {KORAX_E_NO_PAPER, "Brak papieru w drukarce"},
    {KORAX_E_DOCUMENT_WAITS, "W pamięci znajduje się dokument do wydrukowania"},
    {KORAX_E_CHARACTERS_WAIT, "W buforze drukowania są znaki do wydrukowania"},
    {KORAX_E_PRINTOUT_STOPPED, "Wydruk zatrzymany z powodu braku papieru"},
    {KORAX_E_NO_RATES, "Brak stawek podatkowych w drukarce"},
    {KORAX_E_NO_PORT_NUMBER, "Nieustawione parametry komunikacji (numer portu)"},
    {KORAX_E_RECEIPT_OPEN, "Paragon rozpoczęty"},
    {KORAX_E_NO_RECEIPT, "Paragon nierozpoczęty"},
    {KORAX_E_NAME, "Za mało znaków znaczących w nazwie"},
    {KORAX_E_RATE, "Parametr <Stawka> w ReceiptItem poza zakresem"},
    {KORAX_E_MESSAGE, "Parametr <Komunikat> w ReceiptItem poza zakresem"},
    {KORAX_E_QUANTITY, "Parametr <Ilosc> w ReceiptItem poza zakresem"},
    {KORAX_E_QUANTITY_DECIMALS, "Parametr <MP> w ReceiptItem poza zakresem"},
    {KORAX_E_UNIT, "Parametr <Jedn> w ReceiptItem poza zakresem"},
    {KORAX_E_PRICE, "Parametr <Cena> w ReceiptItem poza zakresem"},
    {KORAX_E_AMOUNT, "Parametr <Wartosc> w ReceiptItem różny od <Ilosc>*<Cena>"},
    {KORAX_E_RECEIPT_CANCELLED, "Nastąpiło unieważnienie paragonu"},
    {KORAX_E_NOTHING_SOLD, "Zerowy licznik paragonów (brak sprzedaży po rap.dobowym)"},
    {KORAX_E_DRAWER, "Parametr <DrawerNumber> w OpenDrawer poza zakresem"},
    {KORAX_E_COMMAND_NOT_AVAILABLE, "Rozkaz niedostępny"},
    {KORAX_E_PACKAGE_KIND, "Parametr <Param> w PackageItem poza zakresem"},
    {KORAX_E_OUT_OF_RANGE, "Parametr przekazany do funkcji poza zakresem"},
    {KORAX_E_NO_FREE_LINE, "Wszystkie linie po paragonie zajęte"},
    {KORAX_E_RATES_NOT_WRITTEN, "Stawki podatkowe niezapisane"},
    {KORAX_E_RECEIPTS_PRINTED, "Niezerowy licznik paragonów"},
    {KORAX_E_DATES, "Błędne daty dla raportu okresowego"},
    {KORAX_E_NO_REPORTS, "Brak raportów w podanym okresie"},
    {KORAX_E_NUMBERS, "Błędne numery dla raportu okresowego"},
    {KORAX_E_MONTH_NOT_OVER, "Niezakończony miesiąc"},
    {KORAX_E_PARAMETER_N, "Parametr N poza zakresem"},
    {KORAX_E_NOT_IN_THIS_DEVICE, "Rozkaz niedostępny w tym urządzeniu lub w tej wersji programu"},
    {KORAX_E_NULL, "Bufor wejściowy ma zerową dlugość"},
    {KORAX_E_RATE_NOT_DEFINED, "Stawka niezdefiniowana"},
    {KORAX_E_ITEM_VALUE, "Przekroczona maksymalna wartość pozycji paragonowej"},
    {KORAX_E_CLOCK_NO_DIFFERENCE, "Nie można przestawić zegara o 0 minut"},
    {KORAX_E_CLOCK_TOO_FAR, "Nie można przestawić zegara o więcej niż 60 minut"},
    {KORAX_E_CLOCK_ONCE_A_DAY, "Nie można przestawić zegara więcej niż raz w ciągu doby"},
    {KORAX_E_CONTROL_CHARACTER, "W ciągu znaków wystąpił znak o kodzie niższym niż 0x20 (spacja)"},
    {KORAX_E_DATA_CHECK_SUM, "Błąd sumy kontrolnej XOR"},
    {KORAX_E_INCOMPLETE_DATA, "Do drukarki nie przesłano wszystkich danych"},
    {KORAX_E_SAME_DATA, "Przesłano ponownie te same dane"},
    {KORAX_E_DAILY_REPORT_FIRST, "Należy wykonać raport dobowy aby wydrukować poprzednie dane"},
    {KORAX_E_FILE, "Nie można otworzyć pliku"},
    {KORAX_E_FILE_FORMAT, "Błędny format pliku *.bmp"},
    {KORAX_E_TOO_MANY_PACKAGES, "Zbyt dużo sprzedanych opakowań"},
    {KORAX_E_INTERNAL, "W bibliotece wystapił wewnętrzny wyjątek"},
};

constexpr Text1250 kTekstDomyslny = "Nieznany błąd (prawdopodobnie systemowy)";

const Text1250& TekstBledu(int32_t error) {
    for (const ErrorText& entry : kTeksty) {
        if (entry.number == error) return entry.text;
    }
    return kTekstDomyslny;
}

// Oddity: Converted letters become the last error. A mode that gives no character leaves the last
// error alone.
int32_t ZapamietajZnak(int32_t character) {
    return ZnanaStrona() ? ZapamietajBlad(character) : character;
}

}  // namespace

int32_t KORAX_CALL pErrMessage(int32_t ErrNo, char* Buffer) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function pErrMessage:", {{"1.ErrNo: ", ErrNo}});
        if (Buffer == nullptr) return KORAX_E_NULL;
        std::strcpy(Buffer, TekstBledu(ErrNo).bytes);
        return KORAX_E_OK;
    });
}

char* KORAX_CALL xErrMessage(int32_t ErrNo) {
    ZapamietajBlad(pErrMessage(ErrNo, ZmiennaDodatkowaDlaTypuX));
    return ZmiennaDodatkowaDlaTypuX;
}

int32_t KORAX_CALL NaLatin2(uint8_t Character) {
    return ZapamietajZnak(ZnakDlaUrzadzenia(Character));
}

int32_t KORAX_CALL NaLatin2AndUpper(uint8_t Character) {
    return ZapamietajZnak(WielkiZnakDlaUrzadzenia(Character));
}

// Oddity: The answer of InZnakiPolskie becomes the last error. It also always looks at code page
// 852, whatever the device's.
int32_t KORAX_CALL InZnakiPolskie(uint8_t Character) {
    return ZapamietajBlad(PolskaLiteraWStronie852(Character) ? 1 : 0);
}
