#include "sim/model.h"

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

}  // namespace

const Model& ModelOf(int type) {
    return kModels[type - kFirstType];
}

}  // namespace sim
