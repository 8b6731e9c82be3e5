// Fiscal reports and the number of the last daily one.
#include "koraxdr/device_types.h"
#include "koraxdr/frame.h"
#include "koraxdr/send_layout.h"

namespace {

constexpr ControlSequence kLicznikSprzedazy = {0x66, 3};
constexpr ControlSequence kRaportDobowy = {0x25};
constexpr ControlSequence kRaportTowarowZablokowanych = {0x22};
constexpr ControlSequence kRaportStanuDrukarki = {0x26};
constexpr ControlSequence kRaportOkresowyFiskalny = {0x28, 1, 12};
constexpr ControlSequence kRaportOkresowyNiefiskalny = {0x29, 1, 12};
constexpr ControlSequence kRaportMiesiecznyLubNumerowy = {0x31, 1, 5};
constexpr ControlSequence kNumerRaportuDobowego = {0xD9, 3};

constexpr DeviceTypes kTypyZRaportemBezwarunkowym = {3, 4, 8, 9, 10, 11, 12, 13};

// The first data byte of the monthly and the number report, by the caller's Fiscal (0 or 1).
struct ReportKinds {
    uint8_t non_fiscal, fiscal;
};
constexpr ReportKinds kNumerowy = {4, 1};
constexpr ReportKinds kMiesieczny = {5, 2};

int32_t Wydrukuj(const ControlSequence& raport) {
    if (const int32_t numer = Wyslij(raport)) return numer;
    return ZakonczDrukowanie();
}

int32_t WydrukujProstyRaport(const ControlSequence& raport) {
    return Funkcja([&]() -> int32_t {
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        return Wydrukuj(raport);
    });
}

bool DataZla(int32_t rok, int32_t miesiac, int32_t dzien) {
    // Year 00 is refused on purpose: no report begins or ends in it.
    return rok < 1 || rok > 99 || miesiac < 1 || miesiac > 12 || dzien < 1 || dzien > 31;
}

// The result that the device sends behind the acknowledged sequence.
int32_t OdbierzWynikRaportu() {
    constexpr int32_t wyniki[] = {
        blad::kBledneDaty,            // 1
        blad::kBrakRaportow,          // 2
        blad::kBledneNumery,          // 3
        blad::kNiezakonczonyMiesiac,  // 4
        blad::kParametrN,             // 5
    };
    uint8_t wynik = 0;
    if (const int32_t numer = OdbierzBajt(wynik)) return numer;
    if (wynik == 0) return ZakonczDrukowanie();
    return wynik <= 5 ? wyniki[wynik - 1] : blad::kBrak;
}

// Monthly and number reports differ in the kinds and in what stands at data bytes 2 to 5.
template <class Layout>
int32_t WydrukujRaportZWynikiem(int32_t fiskalny, const ReportKinds& rodzaje, Layout wpisz) {
    if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
    if (const int32_t numer = DeviceType(&Urzadzenie, &Prog)) return numer;
    if (!kTypySiedmiostawkowe.Contains(Urzadzenie)) return blad::kNiedostepnyWTymUrzadzeniu;
    if (fiskalny != 0 && fiskalny != 1) return blad::kParametrN;
    WpiszBajt(1, fiskalny ? rodzaje.fiscal : rodzaje.non_fiscal);
    wpisz();
    if (const int32_t numer = Wyslij(kRaportMiesiecznyLubNumerowy)) return numer;
    return OdbierzWynikRaportu();
}

}  // namespace

int32_t KORAX_CALL DailyReport(int32_t Unconditionally) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function DailyReport:", {{"1.Unconditionally: ", Unconditionally}});
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        if (const int32_t numer = DeviceType(&Urzadzenie, &Prog)) return numer;
        // On the other types the sales check is made even when the flag is set; that is meant.
        if (!Unconditionally || !kTypyZRaportemBezwarunkowym.Contains(Urzadzenie)) {
            if (const int32_t numer = Wyslij(kLicznikSprzedazy)) return numer;
            if (SlowoOdpowiedzi(1) == 0) return blad::kZerowyLicznik;
        }
        return Wydrukuj(kRaportDobowy);
    });
}

int32_t KORAX_CALL LockedArticlesReport(void) {
    return WydrukujProstyRaport(kRaportTowarowZablokowanych);
}

int32_t KORAX_CALL PrinterStatusReport(void) {
    return WydrukujProstyRaport(kRaportStanuDrukarki);
}

int32_t KORAX_CALL PeriodReport(int32_t Fiscal, int32_t yy1, int32_t mm1, int32_t dd1, int32_t yy2,
                                int32_t mm2, int32_t dd2) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function PeriodReport:", {{"1.Fiscal: ", Fiscal},
                                                          {"2.yy1: ", yy1},
                                                          {"3.mm1: ", mm1},
                                                          {"4.dd1: ", dd1},
                                                          {"5.yy2: ", yy2},
                                                          {"6.mm2: ", mm2},
                                                          {"7.dd2: ", dd2}});
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        if (DataZla(yy1, mm1, dd1) || DataZla(yy2, mm2, dd2)) return blad::kParametrPozaZakresem;
        WpiszCyfry(1, yy1);
        WpiszCyfry(3, mm1);
        WpiszCyfry(5, dd1);
        WpiszCyfry(7, yy2);
        WpiszCyfry(9, mm2);
        WpiszCyfry(11, dd2);
        return Wydrukuj(Fiscal ? kRaportOkresowyFiskalny : kRaportOkresowyNiefiskalny);
    });
}

int32_t KORAX_CALL MonthlyReport(int32_t Fiscal, int32_t Year, int32_t Month) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function MonthlyReport:",
                       {{"1.Fiscal: ", Fiscal}, {"2.Year: ", Year}, {"3.Month: ", Month}});
        return WydrukujRaportZWynikiem(Fiscal, kMiesieczny, [&] {
            WpiszCyfry(2, Year);
            WpiszCyfry(4, Month);
        });
    });
}

int32_t KORAX_CALL NumberReport(int32_t Fiscal, int32_t FirstNumber, int32_t LastNumber) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function NumberReport:", {{"1.Fiscal: ", Fiscal},
                                                          {"2.FirstNumber: ", FirstNumber},
                                                          {"3.LastNumber: ", LastNumber}});
        return WydrukujRaportZWynikiem(Fiscal, kNumerowy, [&] {
            WpiszSlowo(2, FirstNumber);
            WpiszSlowo(4, LastNumber);
        });
    });
}

int32_t KORAX_CALL DailyReportNumber(int32_t* Number) {
    return Funkcja([&]() -> int32_t {
        if (const int32_t numer = RozpocznijSesjePozaParagonem()) return numer;
        if (const int32_t numer = Wyslij(kNumerRaportuDobowego)) return numer;
        *Number = SlowoOdpowiedzi(1);
        return blad::kBrak;
    });
}

int32_t KORAX_CALL xDailyReportNumber(void) {
    int32_t number = 0;
    ZapamietajBlad(DailyReportNumber(&number));
    return number;
}
