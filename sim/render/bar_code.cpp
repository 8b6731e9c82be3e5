#include "sim/render/bar_code.h"

#include <algorithm>
#include <cstddef>

namespace sim {
namespace {

// The host asks for bars of 10 and 30, narrow and wide.
constexpr int kNarrow = 1, kWide = 3;

// Of the five bars or spaces of a digit, two are wide.
constexpr std::string_view kDigits[] = {"nnwwn", "wnnnw", "nwnnw", "wwnnn", "nnwnw",
                                        "wnwnn", "nwwnn", "nnnww", "wnnwn", "nwnwn"};

bool IsInterleaved(std::string_view text) {
    return text.size() % 2 == 0 &&
           std::ranges::all_of(text, [](char sign) { return sign >= '0' && sign <= '9'; });
}

// The first digit of a pair is in the bars, the second in the spaces between them. The code has no
// check digit of its own: one that the host wants is among its digits.
std::vector<int> Interleaved(std::string_view digits) {
    std::vector<int> bars = {kNarrow, kNarrow, kNarrow, kNarrow};
    const auto width = [](char element) { return element == 'w' ? kWide : kNarrow; };
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        for (std::size_t element = 0; element < 5; ++element) {
            bars.push_back(width(kDigits[digits[i] - '0'][element]));
            bars.push_back(width(kDigits[digits[i + 1] - '0'][element]));
        }
    bars.insert(bars.end(), {kWide, kNarrow, kNarrow});
    return bars;
}

// Code 128: the widths of three bars and three spaces for each value.
constexpr std::string_view kSymbols[] = {
    "212222", "222122", "222221", "121223", "121322", "131222", "122213", "122312", "132212",
    "221213", "221312", "231212", "112232", "122132", "122231", "113222", "123122", "123221",
    "223211", "221132", "221231", "213212", "223112", "312131", "311222", "321122", "321221",
    "312212", "322112", "322211", "212123", "212321", "232121", "111323", "131123", "131321",
    "112313", "132113", "132311", "211313", "231113", "231311", "112133", "112331", "132131",
    "113123", "113321", "133121", "313121", "211331", "231131", "213113", "213311", "213131",
    "311123", "311321", "331121", "312113", "312311", "332111", "314111", "221411", "431111",
    "111224", "111422", "121124", "121421", "141122", "141221", "112214", "112412", "122114",
    "122411", "142112", "142211", "241211", "221114", "413111", "241112", "134111", "111242",
    "121142", "121241", "114212", "124112", "124211", "411212", "421112", "421211", "212141",
    "214121", "412121", "111143", "111341", "131141", "114113", "114311", "411113", "411311",
    "113141", "114131", "311141", "411131", "211412", "211214", "211232"};
constexpr std::size_t kStartB = 104;
constexpr std::string_view kStop = "2331112";
constexpr std::size_t kCheckModulus = 103;

std::vector<int> Code128(std::string_view text) {
    std::vector<int> bars;
    const auto add = [&bars](std::string_view symbol) {
        for (const char width : symbol) bars.push_back(width - '0');
    };
    add(kSymbols[kStartB]);
    std::size_t check = kStartB;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto value = static_cast<std::size_t>(text[i] - ' ');
        check += (i + 1) * value;
        add(kSymbols[value]);
    }
    add(kSymbols[check % kCheckModulus]);
    add(kStop);
    return bars;
}

}  // namespace

std::vector<int> BarsOf(std::string_view text) {
    return IsInterleaved(text) ? Interleaved(text) : Code128(text);
}

}  // namespace sim
