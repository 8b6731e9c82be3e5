#include "sim/orders.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <ranges>

#include "sim/option_text.h"
#include "sim/state.h"
#include "sim/words.h"

namespace sim {

using Values = std::vector<std::string>;

// An order's words: fixed ones, alternatives with "|" between them, and in capitals what stands for
// a value.
struct OrderRow {
    std::string_view pattern;
    std::string_view help;
    std::string (*run)(const OrderPlace&, const Values&);
};

namespace {

constexpr std::string_view kDone = "ok";

// Values, by the word that stands for them in a pattern.

template <int least, int most>
bool IsNumber(std::string_view word) {
    const std::optional<int> number = NumberOf(word);
    return number && *number >= least && *number <= most;
}

bool IsFault(std::string_view word) {
    return FindDeviceFault(word) != nullptr;
}

// What tells a file's name from a word of an order.
bool IsFile(std::string_view word) {
    return word.find_first_of("./") != std::string_view::npos;
}

bool IsTime(std::string_view word) {
    return ClockShiftOf(word).has_value() || TimeFromText(word).has_value();
}

std::string FaultNames() {
    std::string names;
    for (const DeviceFault& fault : DeviceFaults()) {
        if (!names.empty()) names += ", ";
        names += fault.name;
    }
    return "one of " + names;
}

struct Placeholder {
    std::string_view word;
    bool (*fits)(std::string_view);
    std::string (*meaning)();
};

constexpr Placeholder kPlaceholders[] = {
    {"MS", IsNumber<0, 60'000>, [] { return std::string("milliseconds from 0 to 60000"); }},
    {"N", IsNumber<1, 1'000'000>, [] { return std::string("a number from 1 to 1000000"); }},
    {"NAME", IsFault, FaultNames},
    {"FILE", IsFile, [] { return std::string("a file's name with a dot or a slash in it"); }},
    {"TIME", IsTime,
     [] {
         return std::string(
             "+3h (days d, hours h, minutes m or seconds s, also -3h) or 2026-02-01T08:00:00");
     }},
};

const Placeholder* FindPlaceholder(std::string_view slot) {
    const auto* found = std::ranges::find(kPlaceholders, slot, &Placeholder::word);
    return found == std::end(kPlaceholders) ? nullptr : found;
}

bool Fits(std::string_view slot, std::string_view word) {
    if (const Placeholder* placeholder = FindPlaceholder(slot)) return placeholder->fits(word);
    return std::ranges::count(Split(slot, '|'), word) > 0;
}

bool IsFixed(std::string_view slot) {
    return !FindPlaceholder(slot) && slot.find('|') == std::string_view::npos;
}

// What orders do.

std::string Done(const OrderPlace&) {
    return std::string(kDone);
}

int Number(const std::string& value) {
    return NumberOf(value).value_or(0);
}

std::string Paper(const OrderPlace& place, const Values& values) {
    place.station.device.faults().no_paper = values[0] == "out";
    return Done(place);
}

std::string CutPaper(const OrderPlace& place, const Values&) {
    place.program.CutPaper();
    return Done(place);
}

std::string WritePaper(const OrderPlace& place, const Values& values) {
    place.program.WritePaper(values[0]);
    return Done(place);
}

std::string Fault(const OrderPlace& place, const Values& values) {
    place.station.device.faults().*FindDeviceFault(values[0])->on = values[1] == "on";
    return Done(place);
}

std::string Faults(const OrderPlace& place, const Values&) {
    const auto names = FaultsInForce(place.station.device, place.station.line);
    return names.empty() ? "none" : fmt::format("{}", fmt::join(names, "\n"));
}

std::string FaultsOff(const OrderPlace& place, const Values&) {
    Station& station = place.station;
    station.device.faults() = {};
    station.device.RefuseNext(0);
    station.device.SwitchOn();
    station.line.faults = {};
    station.line.PutCableIn(station.now());
    return Done(place);
}

std::string Power(const OrderPlace& place, const Values& values) {
    Device& device = place.station.device;
    if (values[0] != "on") device.SwitchOff();
    if (values[0] != "off") device.SwitchOn();
    return Done(place);
}

std::string Cable(const OrderPlace& place, const Values& values) {
    Station& station = place.station;
    if (values[0] == "out")
        station.line.TakeCableOut(station.now());
    else
        station.line.PutCableIn(station.now());
    return Done(place);
}

std::string Silence(const OrderPlace& place, const Values& values) {
    place.station.line.faults.silence = values[0] == "on";
    return Done(place);
}

template <std::chrono::milliseconds LineFaults::*time>
std::string AnswerTime(const OrderPlace& place, const Values& values) {
    place.station.line.faults.*time = std::chrono::milliseconds{Number(values[0])};
    return Done(place);
}

std::string AnswerNak(const OrderPlace& place, const Values& values) {
    place.station.device.RefuseNext(Number(values[0]));
    return Done(place);
}

template <int LineFaults::*count>
std::string AnswerCount(const OrderPlace& place, const Values& values) {
    place.station.line.faults.*count = Number(values[0]);
    return Done(place);
}

std::string AwaitByte(const OrderPlace& place, const Values& values) {
    using enum ByteFault;
    AwaitedFault awaited{.left = Number(values[1])};
    for (const ByteFault fault : {Drop, Flip, Garbage, Cut})
        if (NameOf(fault) == values[0]) awaited.fault = fault;
    for (const Direction direction : {Direction::ToDevice, Direction::FromDevice})
        if (NameOf(direction) == values[2]) awaited.direction = direction;
    place.station.line.faults.bytes.push_back(awaited);
    return Done(place);
}

std::string SetClock(const OrderPlace& place, const Values& values) {
    Device& device = place.station.device;
    const auto shift = ClockShiftOf(values[0]);
    device.ShiftClock(shift ? *shift : *TimeFromText(values[0]) - device.clock());
    return Done(place);
}

std::string State(const OrderPlace& place, const Values&) {
    return StateText(place.station, place.program.PaperLines());
}

std::string Quit(const OrderPlace& place, const Values&) {
    place.program.Quit();
    return Done(place);
}

std::string Help(const OrderPlace&, const Values&) {
    return OrdersHelp();
}

constexpr OrderRow kOrders[] = {
    {"paper out|in", "takes the paper out, or puts it in", Paper},
    {"paper cut", "begins a new sheet", CutPaper},
    {"paper FILE", "writes the paper so far", WritePaper},
    {"fault NAME on|off", "something is wrong with the device, or right again", Fault},
    {"faults", "what is in force", Faults},
    {"faults off", "back to a sound device, paper and line included", FaultsOff},
    {"power off|on|cycle", "the mains; the working memory keeps, the open receipt is lost", Power},
    {"cable out|in", "the line hangs up, or is there again", Cable},
    {"silence on|off", "the device works, its answers are lost", Silence},
    {"answer delay MS", "answers come so much later; 0 ends it",
     AnswerTime<&LineFaults::answer_delay>},
    {"answer pieces MS", "each byte of answers alone, so far apart; 0 ends it",
     AnswerTime<&LineFaults::answer_pieces>},
    {"answer nak N", "the next N commands that are acknowledged are refused", AnswerNak},
    {"answer drop N", "the next N answers lose their last byte", AnswerCount<&LineFaults::drop>},
    {"answer flip N", "one bit of the last byte of the next N answers is turned",
     AnswerCount<&LineFaults::flip>},
    {"answer garbage N", "a byte is put before the next N answers",
     AnswerCount<&LineFaults::garbage>},
    {"byte drop|flip|garbage|cut N to-device|from-device",
     "the Nth byte from now is lost, has a bit turned, gets a byte before it, or the line hangs up "
     "there",
     AwaitByte},
    {"clock TIME", "moves the calendar, until the program ends", SetClock},
    {"state", "the device in a line of JSON", State},
    {"help", "this list", Help},
    {"quit", "ends the program", Quit},
};

std::string Meaning(std::string_view slot) {
    if (const Placeholder* placeholder = FindPlaceholder(slot)) return placeholder->meaning();
    return fmt::format("{}", fmt::join(Split(slot, '|'), ", "));
}

using Candidates = std::vector<std::pair<const OrderRow*, std::vector<std::string_view>>>;

// What could stand as word number `place`, each once.
std::string Expected(const Candidates& candidates, std::size_t place) {
    std::vector<std::string> meanings;
    for (const auto& [row, slots] : candidates) {
        const std::string meaning = place < slots.size() ? Meaning(slots[place]) : "nothing";
        if (std::ranges::count(meanings, meaning) == 0) meanings.push_back(meaning);
    }
    return fmt::format("{}", fmt::join(meanings, meanings.size() > 5 ? ", " : " or "));
}

[[noreturn]] void Complain(const Candidates& candidates, const std::vector<std::string_view>& words,
                           std::size_t place) {
    const std::string expected = Expected(candidates, place);
    const std::string before = fmt::format(
        "{}", fmt::join(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(place), " "));
    const std::string found =
        place < words.size() ? fmt::format("\"{}\"", words[place]) : std::string("nothing");
    if (place == 0) throw OrderError(fmt::format("{} is no order; there are {}", found, expected));
    throw OrderError(fmt::format("{} after \"{}\"; there comes {}", found, before, expected));
}

std::string Failure(const OrderError& error) {
    return fmt::format("error: {}", error.what());
}

}  // namespace

Order::Order(std::string_view text) {
    const std::vector<std::string_view> words = Words(text);
    Candidates candidates;
    for (const OrderRow& row : kOrders) candidates.emplace_back(&row, Words(row.pattern));
    for (std::size_t place = 0; place <= words.size(); ++place) {
        Candidates fitting;
        for (const auto& candidate : candidates) {
            const auto& slots = candidate.second;
            const bool ends = place == words.size() && place == slots.size();
            const bool goes_on = place < words.size() && place < slots.size();
            if (ends || (goes_on && Fits(slots[place], words[place]))) fitting.push_back(candidate);
        }
        if (fitting.empty()) Complain(candidates, words, place);
        candidates = std::move(fitting);
    }
    const auto& [row, slots] = candidates.front();
    row_ = row;
    for (std::size_t place = 0; place < words.size(); ++place)
        if (!IsFixed(slots[place])) values_.emplace_back(words[place]);
}

std::string Order::Obey(const OrderPlace& place) const {
    try {
        return row_->run(place, values_);
    } catch (const OrderError& error) {
        return Failure(error);
    }
}

std::string Obey(std::string_view text, const OrderPlace& place) {
    try {
        return Order(text).Obey(place);
    } catch (const OrderError& error) {
        return Failure(error);
    }
}

std::string OrdersHelp() {
    std::string text;
    for (const OrderRow& row : kOrders)
        text += fmt::format("{}{}\n    {}", text.empty() ? "" : "\n", row.pattern, row.help);
    return text;
}

}  // namespace sim
