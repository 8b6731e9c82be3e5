#include "sim/model.h"

#include <algorithm>
#include <stdexcept>

namespace sim {
namespace {

constexpr std::int64_t kSixDigits = 999'999;
constexpr std::int64_t kEightDigits = 99'999'999;

constexpr Model kModels[] = {
    {1, 2, {}, 1, RateTable::Four, kSixDigits, false, DisplayKind::OneLine},
    {2, 17, {}, 1, RateTable::Six, kSixDigits, false, DisplayKind::Numbered},
    {3, 44, {}, 0, RateTable::Six, kSixDigits, false, DisplayKind::TwoLines},
    {4, 44, 120, 6, RateTable::Seven, kEightDigits, false},
    {5, 5, {}, 1, RateTable::Four, kSixDigits, false, DisplayKind::OneLine},
    {6, 18, {}, 0, RateTable::Six, kSixDigits, false, DisplayKind::Numbered},
    {7, 18, 121, 1, RateTable::Seven, kSixDigits, false},
    {8, 44, 124, 2, RateTable::Seven, kEightDigits, true},
    {9, 18, 125, 1, RateTable::Seven, kSixDigits, true},
    {10, 44, 128, 2, RateTable::Seven, kEightDigits, true},
    {11, 44, 129, 2, RateTable::Seven, kEightDigits, true},
    {12, 18, 130, 2, RateTable::Seven, kEightDigits, true},
    {13, 60, {}, 0, RateTable::Seven, kEightDigits, false},
};

constexpr std::size_t kMostHeaderLines = 3;
constexpr double kLargestClockRate = 1e6;

bool IsAscii(char c) {
    return c > ' ' && c < 0x7F;
}

void Check(bool possible, const char* complaint) {
    if (!possible) throw std::invalid_argument(complaint);
}

}  // namespace

const Model& ModelOf(int type) {
    return kModels[type - kFirstType];
}

const DeviceOptions& CheckedOptions(const DeviceOptions& options) {
    Check(options.type >= kFirstType && options.type <= kLastType,
          "the device type has to be 1 to 13");
    const int version = options.program_version.value_or(0);
    Check(version >= 0 && version <= 255, "the program version has to be 0 to 255");
    Check(ModelOf(options.type).choice_of_code_page ||
              options.code_page.value_or(CodePage::Cp852) == CodePage::Cp852,
          "only device types 8 to 12 can have a code page other than 852");
    Check(ModelOf(options.type).display != DisplayKind::None ||
              options.display.value_or(DisplayKind::None) == DisplayKind::None,
          "only device types 1, 2, 3, 5 and 6 have a customer display");
    Check(options.unique_number.size() == 11 && std::ranges::all_of(options.unique_number, IsAscii),
          "the unique number has to have 11 characters, letters and digits");
    Check(options.header.size() <= kMostHeaderLines, "a header has 3 lines at most");
    Check(options.clock_rate >= 0 && options.clock_rate <= kLargestClockRate,
          "the clock's rate has to be 0 to 1000000");
    int number = 0;  // of the report before
    for (const DailyReport& report : options.daily_reports) {
        Check(report.number > number && report.number <= 65535,
              "daily reports have to be numbered from 1 upwards, to 65535 at most");
        number = report.number;
    }
    return options;
}

}  // namespace sim
