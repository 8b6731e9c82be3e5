#include "sim/articles.h"

#include <algorithm>

#include "sim/code_page.h"
#include "sim/rate_totals.h"

namespace sim {
namespace {

constexpr std::size_t kSignificantCharacters = 5;  // an article's name has at least these
constexpr std::size_t kMostArticles = 5000;
constexpr std::size_t kNameInQuery = 28;  // characters of a name that a query carries

// Where a rate stands among the others; exempt is below 0 %.
int Height(int rate_value) {
    return rate_value == kRateExempt ? -1 : rate_value;
}

// As the open receipt leaves it, or else as earlier ones did; null for one never sold.
const Article* Known(const Core& core, const std::string& name) {
    const WorkingMemory& working = core.working();
    if (const auto sold = working.sold.find(name); sold != working.sold.end()) return &sold->second;
    const auto known = working.articles.find(name);
    return known == working.articles.end() ? nullptr : &known->second;
}

bool HasRoomForArticle(const WorkingMemory& working) {
    const auto added = std::ranges::count_if(
        working.sold, [&](const auto& sold) { return !working.articles.contains(sold.first); });
    return working.articles.size() + static_cast<std::size_t>(added) < kMostArticles;
}

}  // namespace

bool NameIsLongEnough(std::string_view name) {
    return SignificantCharacters(name) >= kSignificantCharacters;
}

void CheckArticle(const Core& core, const Sale& sale) {
    const Article* known = Known(core, sale.name);
    if (known == nullptr) {
        Require(HasRoomForArticle(core.working()), Reason::NoRoomForTotals);
        return;
    }
    const VatRates& rates = core.fiscal().rates;
    const bool raised = Height(rates[Index(sale.rate)]) > Height(rates[Index(known->rate)]);
    Require(!(raised && known->rate_lowered), Reason::ArticleLocked);
}

void NoteArticle(Core& core, const Sale& sale) {
    const Article* known = Known(core, sale.name);
    const VatRates& rates = core.fiscal().rates;
    const bool lowered =
        known != nullptr && Height(rates[Index(sale.rate)]) < Height(rates[Index(known->rate)]);
    const bool locked = lowered || (known != nullptr && known->rate_lowered);
    core.sold()[sale.name] = {sale.rate, locked};
}

const Article* FindArticle(const Core& core, std::string_view name) {
    const bool capitals = core.Is({10, 11, 12});  // these are asked in upper case
    const auto key = [&](std::string_view text) {
        const auto asked = TrimEnd(Cut(text, kNameInQuery));
        return capitals ? Upper(asked) : std::string(asked);
    };
    const auto found = std::ranges::find_if(
        core.working().articles,
        [&, wanted = key(name)](const auto& article) { return key(article.first) == wanted; });
    return found == core.working().articles.end() ? nullptr : &found->second;
}

}  // namespace sim
