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

}  // namespace

bool NameIsLongEnough(std::string_view name) {
    return SignificantCharacters(name) >= kSignificantCharacters;
}

void CheckArticle(const Core& core, const Sale& sale) {
    const auto known = core.articles.find(sale.name);
    if (known == core.articles.end()) {
        Require(core.articles.size() < kMostArticles, Reason::NoRoomForTotals);
        return;
    }
    const bool raised =
        Height(core.rates[Index(sale.rate)]) > Height(core.rates[Index(known->second.rate)]);
    Require(!(raised && known->second.rate_lowered), Reason::ArticleLocked);
}

void RememberArticle(Core& core, const Sale& sale) {
    const auto [entry, added] = core.articles.try_emplace(sale.name, Article{sale.rate, false});
    Article& article = entry->second;
    if (!added && Height(core.rates[Index(sale.rate)]) < Height(core.rates[Index(article.rate)]))
        article.rate_lowered = true;
    article.rate = sale.rate;
}

const Article* FindArticle(const Core& core, std::string_view name) {
    const bool capitals = core.Is({10, 11, 12});  // these are asked in upper case
    const auto key = [&](std::string_view text) {
        const auto asked = TrimEnd(Cut(text, kNameInQuery));
        return capitals ? Upper(asked) : std::string(asked);
    };
    const auto found = std::ranges::find_if(
        core.articles,
        [&, wanted = key(name)](const auto& article) { return key(article.first) == wanted; });
    return found == core.articles.end() ? nullptr : &found->second;
}

}  // namespace sim
