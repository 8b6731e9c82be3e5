#include "sim/script.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

#include "sim/code_page.h"
#include "sim/names.h"
#include "sim/words.h"

namespace sim {
namespace {

constexpr const char* kForms =
    R"(a line is "at 3s: ORDER", "on NAME [#K]: ORDER" or "after NAME [#K]: ORDER")";

// "3s", "0.25s".
std::optional<LineTime> TimeOf(std::string_view word) {
    static constexpr double kMost = 1e6;
    if (!word.ends_with('s')) return std::nullopt;
    word.remove_suffix(1);
    if (word.empty() || word[0] < '0' || word[0] > '9') return std::nullopt;
    double seconds = 0;
    const char* end = word.data() + word.size();
    const auto [rest, error] = std::from_chars(word.data(), end, seconds, std::chars_format::fixed);
    if (error != std::errc{} || rest != end || seconds > kMost) return std::nullopt;
    return std::chrono::round<LineTime>(std::chrono::duration<double>(seconds));
}

}  // namespace

Script::Script(std::string_view text) {
    int number = 0;
    for (const std::string_view line : Split(text, '\n')) {
        ++number;
        const auto words = Words(line);
        if (words.empty() || words[0].starts_with('#')) continue;
        try {
            Read(line);
        } catch (const OrderError& error) {
            throw OrderError(fmt::format("line {}: {}", number, error.what()));
        }
    }
    std::ranges::stable_sort(timed_, {}, &Timed::due);
}

void Script::Read(std::string_view line) {
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) throw OrderError(kForms);
    const auto head = Words(line.substr(0, colon));
    const std::string_view order = Trim(line.substr(colon + 1));
    if (head.size() == 2 && head[0] == "at") {
        const auto due = TimeOf(head[1]);
        if (!due)
            throw OrderError(fmt::format("\"{}\" is no time; 3s or 0.25s would be one", head[1]));
        timed_.push_back({*due, std::string(order), Order(order)});
    } else if (!head.empty() && head[0] == "on") {
        ReadMoment(on_, head, order);
    } else if (!head.empty() && head[0] == "after") {
        ReadMoment(after_, head, order);
    } else {
        throw OrderError(kForms);
    }
}

void Script::ReadMoment(Moments& moments, const std::vector<std::string_view>& head,
                        std::string_view order) {
    if (head.size() < 2 || head.size() > 3) throw OrderError(kForms);
    if (!IsExchangeName(head[1]))
        throw OrderError(
            fmt::format(R"(there is no exchange "{}"; "koraxsim commands" lists them)", head[1]));
    std::optional<int> count = 1;
    if (head.size() == 3) {
        count = head[2].starts_with('#') ? NumberOf(head[2].substr(1)) : std::nullopt;
        if (head[2] != "#*" && count.value_or(0) < 1)
            throw OrderError(
                fmt::format(R"("{}" after "{}"; there comes #1, #2 ... or #*)", head[2], head[1]));
    }
    moments.awaiting.push_back({std::string(head[1]), count, std::string(order), Order(order)});
}

void Script::Moments::Run(const std::string& name, const OrderPlace& place,
                          const Listener& listener) {
    const int count = ++seen[name];
    for (const Awaiting& entry : awaiting)
        if (entry.name == name && entry.count.value_or(count) == count)
            listener(entry.text, entry.order.Obey(place));
}

void Script::RunDue(LineTime now, const OrderPlace& place, const Listener& listener) {
    while (!timed_.empty() && timed_.front().due <= now) {
        const Timed entry = timed_.front();
        timed_.erase(timed_.begin());
        listener(entry.text, entry.order.Obey(place));
    }
}

void Script::RunOn(const Exchange& exchange, const OrderPlace& place, const Listener& listener) {
    on_.Run(exchange.id, place, listener);
}

void Script::RunAfter(const Exchange& exchange, const OrderPlace& place, const Listener& listener) {
    after_.Run(exchange.id, place, listener);
}

std::optional<LineTime> Script::next() const {
    if (timed_.empty()) return std::nullopt;
    return timed_.front().due;
}

}  // namespace sim
