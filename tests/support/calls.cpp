#include "support/calls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <tuple>

#include "koraxdr.h"
#include "support/script.h"

namespace {

using WordsLeft = std::vector<std::string>::const_iterator;

constexpr uint8_t kUntouched = 0x7F;

std::string Join(const std::vector<std::string>& parts) {
    std::string joined;
    for (const std::string& part : parts) joined += (joined.empty() ? "" : ",") + part;
    return joined;
}

// Printable characters in quotes, other bytes in hex, more than three equal ones with their number.
std::string TextOf(const Bytes& bytes) {
    std::vector<std::string> parts;
    for (auto at = bytes.begin(); at != bytes.end();) {
        const auto different = std::find_if(at, bytes.end(), [&](uint8_t b) { return b != *at; });
        const bool printable = *at >= ' ' && *at < 0x7F && *at != '\'';
        if (different - at > 3) {
            parts.push_back(Hex({*at}) + "x" + std::to_string(different - at));
            at = different;
        } else if (!printable) {
            parts.push_back(Hex({*at++}));
        } else if (parts.empty() || parts.back().back() != '\'') {
            parts.push_back({'\'', static_cast<char>(*at++), '\''});
        } else {
            parts.back().insert(parts.back().size() - 1, 1, static_cast<char>(*at++));
        }
    }
    return parts.empty() ? "''" : Join(parts);
}

// One argument of a call, by its type: from its word, and afterwards what the call has left in it.
template <class Number>
class Argument {
  public:
    explicit Argument(WordsLeft& word)
        : number_(static_cast<Number>(std::stoll(*word++, nullptr, 0))) {}
    Number value() { return number_; }
    void AddTo(Outcome&) const {}

  private:
    Number number_;
};

template <class Byte>
class Argument<const Byte*> {
  public:
    explicit Argument(WordsLeft& word) : null_(*word == "null") {
        if (!null_) bytes_ = FromText(*word) + Bytes{0};
        ++word;
    }
    const Byte* value() const {
        return null_ ? nullptr : reinterpret_cast<const Byte*>(bytes_.data());
    }
    void AddTo(Outcome&) const {}

  private:
    bool null_;
    Bytes bytes_;  // no longer than the text, so that reading past it shows
};

// Numbers: a cell, or as many of them as a function takes in an array.
template <class Number>
class Cells {
  public:
    explicit Cells(WordsLeft& word) : null_(*word == "null"), before_(8, Number{0x5A5A5A5A}) {
        if (word->size() > 1 && !null_)
            before_[0] = static_cast<Number>(std::stoll(word->substr(1)));
        after_ = before_;
        ++word;
    }
    Number* value() { return null_ ? nullptr : after_.data(); }
    void AddTo(Outcome& outcome) const {
        if (null_) return;
        std::vector<std::string> numbers;
        for (std::size_t i = 0; i < after_.size() && after_[i] != before_[i]; ++i)
            numbers.push_back(std::to_string(after_[i]));
        outcome.values.push_back({false, numbers.empty() ? "-" : Join(numbers)});
    }

  private:
    bool null_;
    std::vector<Number> before_, after_;
};

template <>
class Argument<int32_t*> : public Cells<int32_t> {
    using Cells::Cells;
};
template <>
class Argument<int64_t*> : public Cells<int64_t> {
    using Cells::Cells;
};

// A buffer larger than any function fills; what was written to it ends before untouched bytes.
class Buffer {
  public:
    explicit Buffer(WordsLeft& word) : null_(*word++ == "null"), bytes_(600, kUntouched) {}
    uint8_t* value() { return null_ ? nullptr : bytes_.data(); }
    Bytes Touched() const {
        const auto last = std::find_if(bytes_.rbegin(), bytes_.rend(),
                                       [](uint8_t byte) { return byte != kUntouched; });
        return {bytes_.begin(), last.base()};
    }
    void AddTo(Outcome& outcome) const {
        if (null_) return;
        outcome.values.push_back({true, Touched().empty() ? "-" : TextOf(Touched())});
    }

  private:
    bool null_;
    Bytes bytes_;
};

template <>
class Argument<uint8_t*> : public Buffer {
    using Buffer::Buffer;
};

template <>
class Argument<char*> : public Buffer {
  public:
    using Buffer::Buffer;
    char* value() { return reinterpret_cast<char*>(Buffer::value()); }
    void AddTo(Outcome& outcome) const {
        Bytes text = Touched();
        if (text.empty()) return Buffer::AddTo(outcome);
        EXPECT_EQ(text.back(), 0) << "a text without its end";
        text.pop_back();
        outcome.values.push_back({true, TextOf(text)});
    }
};

void AddResult(Outcome& outcome, int32_t result) {
    outcome.values.push_back({false, std::to_string(result)});
}
void AddResult(Outcome& outcome, const char* text) {
    const std::string_view read = text;
    outcome.values.push_back({true, TextOf({read.begin(), read.end()})});
}
void AddResult(Outcome& outcome, const int32_t* cells) {
    outcome.values.push_back({false, cells == nullptr ? "null" : "&"});  // the caller's own
}

using Callable = std::function<Outcome(const std::vector<std::string>&)>;

template <class Result, class... Parameters>
Callable Bind(Result (*function)(Parameters...)) {
    return [function](const std::vector<std::string>& words) {
        Outcome outcome;
        EXPECT_EQ(words.size(), sizeof...(Parameters) + 1) << "arguments of " << words[0];
        if (words.size() != sizeof...(Parameters) + 1) return outcome;
        [[maybe_unused]] WordsLeft word = words.begin() + 1;
        std::tuple<Argument<Parameters>...> arguments{Argument<Parameters>(word)...};
        std::apply(
            [&](auto&... argument) {
                AddResult(outcome, function(argument.value()...));
                outcome.last_error = LastError();
                EXPECT_EQ(LastError(), 0) << "it is read once";
                (argument.AddTo(outcome), ...);
            },
            arguments);
        return outcome;
    };
}

#define CALLABLE(name) {#name, Bind(name)},
const std::map<std::string, Callable> kCallables = {
#include "callables.inc"  // every exported function, made from the list of them
};

}  // namespace

std::vector<std::string> Words(std::string_view line) {
    std::vector<std::string> words;
    bool quoted = false, inside = false;
    for (const char c : line) {
        if (c == '\'') quoted = !quoted;
        const bool blank = c == ' ' && !quoted;
        if (!blank && !inside) words.emplace_back();
        if (!blank) words.back() += c;
        inside = !blank;
    }
    return words;
}

Outcome CallByText(const std::string& call) {
    const std::vector<std::string> words = Words(call);
    const auto found = kCallables.find(words.at(0));
    if (found == kCallables.end()) {
        ADD_FAILURE() << "no function " << words[0];
        return {};
    }
    return found->second(words);
}

std::string Written(bool is_text, const std::string& word) {
    return is_text && word != "-" ? TextOf(FromText(word)) : word;
}
