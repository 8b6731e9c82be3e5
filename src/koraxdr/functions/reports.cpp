// Fiscal reports and the number of the last daily one.
#include "koraxdr/command.h"
#include "koraxdr/device.h"
#include "koraxdr/device_types.h"
#include "koraxdr/frame.h"
#include "koraxdr/send_layout.h"
#include "koraxdr/session.h"

namespace {

constexpr DeviceTypes kTypyZRaportemBezwarunkowym = {3, 4, 8, 9, 10, 11, 12, 13};

// The first data byte of the monthly and the number report, by the caller's Fiscal (0 or 1).
struct ReportKinds {
    uint8_t non_fiscal, fiscal;
};
constexpr ReportKinds kNumerowy = {4, 1};
constexpr ReportKinds kMiesieczny = {5, 2};

int32_t Wydrukuj(const ControlSequence& report) {
    if (const int32_t error = Wyslij(report)) return error;
    return PrintControl(0);
}

int32_t WydrukujProstyRaport(const ControlSequence& report) {
    return Funkcja([&]() -> int32_t {
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        return Wydrukuj(report);
    });
}

bool DataZla(int32_t year, int32_t month, int32_t day) {
    // No report begins or ends in year 00.
    return year < 1 || year > 99 || month < 1 || month > 12 || day < 1 || day > 31;
}

// The result that the device sends behind the acknowledged sequence.
int32_t OdbierzWynikRaportu() {
    constexpr int32_t results[] = {
        KORAX_E_DATES,           // 1
        KORAX_E_NO_REPORTS,      // 2
        KORAX_E_NUMBERS,         // 3
        KORAX_E_MONTH_NOT_OVER,  // 4
        KORAX_E_PARAMETER_N,     // 5
    };
    uint8_t result = 0;
    if (const int32_t error = OdbierzBajt(result)) return error;
    if (result == 0) return PrintControl(0);
    return result <= 5 ? results[result - 1] : KORAX_E_OK;
}

// Monthly and number reports differ in the kinds and in what stands at data bytes 2 to 5.
template <class Layout>
int32_t WydrukujRaportZWynikiem(int32_t fiscal, const ReportKinds& kinds, Layout fill) {
    if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
    if (const int32_t error = RozpoznajUrzadzenie()) return error;
    if (!kTypySiedmiostawkowe.Contains(Urzadzenie)) return KORAX_E_NOT_IN_THIS_DEVICE;
    if (fiscal != 0 && fiscal != 1) return KORAX_E_PARAMETER_N;
    WpiszBajt(1, fiscal ? kinds.fiscal : kinds.non_fiscal);
    fill();
    if (const int32_t error = Wyslij(kRaportMiesiecznyLubNumerowy)) return error;
    return OdbierzWynikRaportu();
}

}  // namespace

int32_t KORAX_CALL DailyReport(int32_t Unconditionally) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function DailyReport:", {{"1.Unconditionally: ", Unconditionally}});
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        if (const int32_t error = RozpoznajUrzadzenie()) return error;
        // Oddity: The unconditional report wants sales on some types. There the flag changes
        // nothing.
        if (!Unconditionally || !kTypyZRaportemBezwarunkowym.Contains(Urzadzenie)) {
            if (const int32_t error = Wyslij(kLicznikParagonow)) return error;
            if (SlowoOdpowiedzi(1) == 0) return KORAX_E_NOTHING_SOLD;
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
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        if (DataZla(yy1, mm1, dd1) || DataZla(yy2, mm2, dd2)) return KORAX_E_OUT_OF_RANGE;
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
        if (const int32_t error = RozpocznijSesjePozaParagonem()) return error;
        if (const int32_t error = Wyslij(kNumerRaportuDobowego)) return error;
        *Number = SlowoOdpowiedzi(1);
        return KORAX_E_OK;
    });
}

int32_t KORAX_CALL xDailyReportNumber(void) {
    int32_t number = 0;
    ZapamietajBlad(DailyReportNumber(&number));
    return number;
}
