// The Polish texts of the error numbers.
#include <cstring>

#include "koraxdr/cp1250.h"
#include "koraxdr/frame.h"

namespace {

struct ErrorText {
    int32_t number;
    Text1250 text;
};

// Applications compare and show these texts: the missing diacritics and blanks are part of the
// interface and stay ("sterujacą", "dlugość", "wystapił", "<Ilosc>", "<Wartosc>", "rap.dobowym").
// Numbers without a line, among them several that the driver itself gives, have the fallback text.
constexpr ErrorText kTeksty[] = {
    {0, ""},
    {2, "Nie można otworzyć portu szeregowego (brak portu w systemie)"},
    {5, "Nie można otworzyć portu szeregowego (port jest już otwarty)"},
    {20, "Timeout nadawania"},
    {21, "Timeout odbierania"},
    {23, "Niepoprawna odpowiedź z drukarki"},
    {24, "NAK na sekwencję sterujacą"},
    {99, "Komunikacja nie zainicjowana"},
    {100, "Brak danych producenta"},
    {101, "Zwora w pozycji serwisowej"},
    {102, "Brak komunikacji z kontrolerem drukarki"},
    {103, "Awaria drukarki"},
    {104, "Brak danych użytkownika"},
    {105, "Moduł fiskalny w trybie TYLKO ODCZYT"},
    {106, "Brak wyświetlacza klienta"},
    {107, "Skasowana pamięć CMOS"},
    {108, "Zaległy raport dobowy do wykonania"},
    {109, "Brak papieru w drukarce"},
    {110, "W pamięci znajduje się dokument do wydrukowania"},
    {111, "W buforze drukowania są znaki do wydrukowania"},
    {112, "Wydruk zatrzymany z powodu braku papieru"},
    {113, "Brak stawek podatkowych w drukarce"},
    {114, "Nieustawione parametry komunikacji (numer portu)"},
    {200, "Paragon rozpoczęty"},
    {201, "Paragon nierozpoczęty"},
    {202, "Za mało znaków znaczących w nazwie"},
    {203, "Parametr <Stawka> w ReceiptItem poza zakresem"},
    {204, "Parametr <Komunikat> w ReceiptItem poza zakresem"},
    {205, "Parametr <Ilosc> w ReceiptItem poza zakresem"},
    {206, "Parametr <MP> w ReceiptItem poza zakresem"},
    {207, "Parametr <Jedn> w ReceiptItem poza zakresem"},
    {208, "Parametr <Cena> w ReceiptItem poza zakresem"},
    {209, "Parametr <Wartosc> w ReceiptItem różny od <Ilosc>*<Cena>"},
    {210, "Nastąpiło unieważnienie paragonu"},
    {211, "Zerowy licznik paragonów (brak sprzedaży po rap.dobowym)"},
    {212, "Parametr <DrawerNumber> w OpenDrawer poza zakresem"},
    {213, "Rozkaz niedostępny"},
    {214, "Parametr <Param> w PackageItem poza zakresem"},
    {215, "Parametr przekazany do funkcji poza zakresem"},
    {216, "Wszystkie linie po paragonie zajęte"},
    {217, "Stawki podatkowe niezapisane"},
    {218, "Niezerowy licznik paragonów"},
    {219, "Błędne daty dla raportu okresowego"},
    {220, "Brak raportów w podanym okresie"},
    {221, "Błędne numery dla raportu okresowego"},
    {222, "Niezakończony miesiąc"},
    {223, "Parametr N poza zakresem"},
    {224, "Rozkaz niedostępny w tym urządzeniu lub w tej wersji programu"},
    {225, "Bufor wejściowy ma zerową dlugość"},
    {226, "Stawka niezdefiniowana"},
    {227, "Przekroczona maksymalna wartość pozycji paragonowej"},
    {228, "Nie można przestawić zegara o 0 minut"},
    {229, "Nie można przestawić zegara o więcej niż 60 minut"},
    {230, "Nie można przestawić zegara więcej niż raz w ciągu doby"},
    {231, "W ciągu znaków wystąpił znak o kodzie niższym niż 0x20 (spacja)"},
    {232, "Błąd sumy kontrolnej XOR"},
    {233, "Do drukarki nie przesłano wszystkich danych"},
    {234, "Przesłano ponownie te same dane"},
    {235, "Należy wykonać raport dobowy aby wydrukować poprzednie dane"},
    {236, "Nie można otworzyć pliku"},
    {237, "Błędny format pliku *.bmp"},
    {238, "Zbyt dużo sprzedanych opakowań"},
    {999, "W bibliotece wystapił wewnętrzny wyjątek"},
};

constexpr Text1250 kTekstDomyslny = "Nieznany błąd (prawdopodobnie systemowy)";

const Text1250& TekstBledu(int32_t numer) {
    for (const ErrorText& wpis : kTeksty) {
        if (wpis.number == numer) return wpis.text;
    }
    return kTekstDomyslny;
}

}  // namespace

int32_t KORAX_CALL pErrMessage(int32_t ErrNo, char* Buffer) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function pErrMessage:", {{"1.ErrNo: ", ErrNo}});
        if (Buffer == nullptr) return blad::kPustyBufor;
        std::strcpy(Buffer, TekstBledu(ErrNo).bytes);
        return blad::kBrak;
    });
}

char* KORAX_CALL xErrMessage(int32_t ErrNo) {
    ZapamietajBlad(pErrMessage(ErrNo, ZmiennaDodatkowaDlaTypuX));
    return ZmiennaDodatkowaDlaTypuX;
}
