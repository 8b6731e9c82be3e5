// The tables in tests/wire/tables: cases whose steps are calls, what they say on the wire, and what
// comes of them.
//
//   A sentence at the line's beginning opens a case.
//     session 10 2              a fresh library, and a session with type 10, version 2 (without: 3)
//     receipt 10 2 1            the same with a receipt opened; texts in code page 1
//     fresh                     a fresh library with a closed port
//     each 1-7 13               the deeper lines once on each of these types, each in a new session
//     each-asked 8 9            the same, where another type is known until the call asks
//     set Optimize 1            a variable of the driver, A to G are totals; expect tests one
//     sent E1E2, received 0002  what older exchanges left in the buffers, from their index 1
//     let name = 95<00          from here on $name stands for this
//     CALL = RESULT CELLS last ERROR | CONVERSATION | RECEIPT
//                               the call's result, what it left in its cells and buffers (- for
//                               nothing), the last error where it is not the result (0 where
//                               nothing is returned but a value); the exchanges; the receipt's
//                               state afterwards where it matters
//     ... = RESULT | ...        the call before once more
//     exchange ACK DATA ANSWER MODE = RESULT BYTES | CONVERSATION
//                               an exchange of the engine with the conversation's first byte as the
//                               command: bytes answered right after it, data, bytes answered after
//                               them (mode 0 where none is given); the error number, and what is
//                               found in the buffer from index 1
//     asked open COM2; ...      what was first asked of the operating system since the last time
//
// $ready, $stopped, $identify:10:3, $page:10:3:2 and $begin:10:3:2 are the script's conversations;
// $type is the type of `each`, $who its identification.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>

#include "support/calls.h"
#include "support/driver_test.h"
#include "support/variables.h"

namespace {

struct Step {
    int line;
    std::size_t indent;
    std::string text;
};
using Steps = std::vector<Step>;

struct Case {
    std::string file, title;
    Steps steps;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.title;
}

std::vector<Case> ReadTables() {
    std::vector<Case> cases;
    for (const auto& entry : std::filesystem::directory_iterator(TESTS_DIR "/wire/tables")) {
        std::ifstream input(entry.path());
        int number = 0;
        for (std::string line; std::getline(input, line);) {
            ++number;
            const std::size_t indent = line.find_first_not_of(' ');
            if (indent == line.npos || line[indent] == '#') continue;
            if (indent == 0)
                cases.push_back({entry.path().filename().string(), line, {}});
            else
                cases.back().steps.push_back({number, indent, line.substr(indent)});
        }
    }
    return cases;
}

// "Footer_LinesAreCutAndPadded": the table's name and the case's title.
std::string NameOf(const testing::TestParamInfo<Case>& info) {
    std::string name = info.param.file.substr(0, info.param.file.find('.')) + '_';
    bool first = true;
    for (const char c : info.param.title) {
        if (std::isalnum(static_cast<unsigned char>(c)))
            name += first ? static_cast<char>(std::toupper(c)) : c;
        first = c == ' ';
    }
    return name;
}

// A variable of the driver by its name, a total by its rate's letter, and some of the platform's.
template <class Value>
Variable Access(Value& value) {
    return {[&value] { return static_cast<int64_t>(value); },
            [&value](int64_t given) { value = static_cast<Value>(given); }, 0};
}

Variable VariableNamed(const std::string& name) {
    if (name.size() == 1) return Access(Total[name[0] - '@']);
    if (name == "Model") return Access(SzczegoloweDaneOTypieUrzadzenia.type_code);
    if (name == "OpenError") return Access(os.open_error);
    if (name == "SettingsError") return Access(os.settings_error);
    if (name == "LineOpen") return Access(os.line_open);
    if (name == "WritableBytes") return Access(os.writable_bytes.emplace());  // they still leave
    return Variables().at(name);
}

std::vector<int> Types(const std::vector<std::string>& words) {
    std::vector<int> types;
    for (auto word = words.begin() + 1; word != words.end(); ++word) {
        const int first = std::stoi(*word);
        const std::size_t dash = word->find('-');
        const int last = dash == word->npos ? first : std::stoi(word->substr(dash + 1));
        for (int type = first; type <= last; ++type) types.push_back(type);
    }
    return types;
}

// Parts a line at this mark outside quotes.
std::vector<std::string> Columns(const std::string& line, char mark) {
    std::vector<std::string> columns = {""};
    for (bool quoted = false; const char c : line) {
        if (c == '\'') quoted = !quoted;
        if (c == mark && !quoted)
            columns.emplace_back();
        else
            columns.back() += c;
    }
    return columns;
}

std::string Trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == text.npos ? "" : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

class CallTable : public DriverTest, public testing::WithParamInterface<Case> {
  protected:
    void Run(const Steps& steps) {
        for (auto step = steps.begin(); step != steps.end();) {
            const auto block = std::find_if(
                step + 1, steps.end(), [&](const Step& s) { return s.indent <= step->indent; });
            const testing::ScopedTrace trace(file_.c_str(), step->line, step->text);
            if (step->text.starts_with("each"))
                RunOnEach(Words(step->text), {step + 1, block});
            else
                RunStep(step->text);
            step = step->text.starts_with("each") ? block : step + 1;
        }
    }

  private:
    void RunOnEach(const std::vector<std::string>& words, const Steps& block) {
        for (const int type : Types(words)) {
            SCOPED_TRACE("type " + std::to_string(type));
            StartSession(words[0] == "each-asked" ? type % 13 + 1 : type);
            defined_["type"] = std::to_string(type);
            defined_["who"] = Identify(type, 3);
            Run(block);
        }
    }

    void RunStep(const std::string& text) {
        const std::string line = Expanded(text);
        const std::vector<std::string> words = Words(line);
        const auto number = [&](std::size_t i, int otherwise) {
            return words.size() > i ? std::stoi(words[i], nullptr, 0) : otherwise;
        };
        if (words[0] == "fresh") {
            Fresh();
        } else if (words[0] == "session") {
            StartSession(number(1, 0), number(2, 3));
        } else if (words[0] == "receipt") {
            OpenReceipt(number(1, 0), number(2, 3), number(3, 0));
        } else if (words[0] == "set") {
            VariableNamed(words.at(1)).set(number(2, 0));
        } else if (words[0] == "expect") {
            EXPECT_EQ(VariableNamed(words.at(1)).get(), number(2, 0)) << words[1];
        } else if (words[0] == "sent") {
            std::ranges::copy(FromText(words.at(1)), BajtyDoPoslania + 1);
        } else if (words[0] == "received") {
            std::ranges::copy(FromText(words.at(1)), BajtyOdebrane + 1);
        } else if (words[0] == "asked") {
            const std::string expected = Trimmed(line.substr(words[0].size()));
            EXPECT_EQ(os.TakeCalls().substr(0, expected.size()), expected);
        } else if (words[0] == "let") {
            defined_[words.at(1)] = Trimmed(line.substr(line.find('=') + 1));
        } else {
            RunCall(line);
        }
    }

    void RunCall(const std::string& line) {
        const std::size_t equals = line.find(" =");
        ASSERT_NE(equals, line.npos) << "a call without its outcome";
        if (const std::string call = line.substr(0, equals); call != "...") call_ = call;
        std::vector<std::string> columns = Columns(line.substr(equals + 2), '|');
        std::vector<std::string> expected = Words(columns[0]);
        const bool stored = call_[0] != 'x';
        int32_t last_error = stored ? std::stoi(expected.at(0)) : 0;
        if (expected.size() > 2 && *(expected.end() - 2) == "last") {
            last_error = std::stoi(expected.back());
            expected.resize(expected.size() - 2);
        }
        const uint64_t start_ms = os.now_ms;
        const std::string conversation = columns.size() > 1 ? Trimmed(columns[1]) : "";
        if (call_.starts_with("exchange ")) return Exchange(conversation, expected);
        const Outcome outcome = DriverTest::Call(conversation, CallByText, call_);
        expected.resize(std::max(expected.size(), outcome.values.size()), "-");
        for (std::size_t i = 0; i < outcome.values.size(); ++i) {
            const auto& [is_text, written] = outcome.values[i];
            EXPECT_EQ(written, Written(is_text, expected[i]))
                << (i == 0 ? "the result" : "cell " + std::to_string(i)) << " of " << call_;
        }
        EXPECT_EQ(expected.size(), outcome.values.size()) << "cells of " << call_;
        EXPECT_EQ(outcome.last_error, last_error) << "the last error of " << call_;
        if (expected[0] == "20") {
            EXPECT_LE(os.now_ms - start_ms, 1000u * static_cast<uint32_t>(TimeoutNadawania))
                << "nothing is tried after bytes that could not be sent: " << call_;
        }
        if (columns.size() > 2) {
            EXPECT_EQ(ReceiptState(), Trimmed(columns[2])) << call_;
        }
    }

    void Exchange(const std::string& conversation, const std::vector<std::string>& expected) {
        const std::vector<std::string> words = Words(call_);
        const Bytes data = FromText(words.at(2));
        std::ranges::copy(data, BajtyDoPoslania + 1);
        const auto byte = [&](std::size_t i) {
            return static_cast<uint8_t>(words.size() > i ? std::stoi(words[i]) : 0);
        };
        const bool sent = conversation.find_first_of("<>") > 0 && !conversation.empty();
        const uint8_t command = sent ? FromText(conversation.substr(0, 2))[0] : 0xD5;
        NumerBledu = 0;
        DriverTest::Call(conversation, [&] {
            OgolnePoslanieSekwencjiSterujacej(byte(4), command, byte(1),
                                              static_cast<uint8_t>(data.size()), byte(3));
            return 0;
        });
        EXPECT_EQ(NumerBledu, std::stoi(expected.at(0)));
        EXPECT_EQ(WTrakcieSekwencjiSterujacej, 0);
        if (expected.size() > 1) {
            const Bytes landed = FromText(expected[1]);
            EXPECT_EQ(Hex({BajtyOdebrane + 1, BajtyOdebrane + 1 + landed.size()}), Hex(landed));
        }
    }

    // The line with what its $names stand for; a $ inside quotes is one.
    std::string Expanded(const std::string& line) const {
        std::string expanded;
        bool quoted = false;
        for (auto at = line.begin(); at != line.end();) {
            if (*at == '\'') quoted = !quoted;
            if (quoted || *at != '$') {
                expanded += *at++;
                continue;
            }
            const auto end = std::find_if_not(at + 1, line.end(), [](char c) {
                return std::isalnum(static_cast<unsigned char>(c)) || c == ':';
            });
            expanded += Meaning({at + 1, end});
            at = end;
        }
        return expanded;
    }

    std::string Meaning(const std::string& name) const {
        if (defined_.contains(name)) return Expanded(defined_.at(name));
        int arguments[3] = {10, 3, 0};
        const std::vector<std::string> parts = Columns(name, ':');
        for (std::size_t i = 1; i < parts.size(); ++i) arguments[i - 1] = std::stoi(parts[i]);
        const auto [type, version, page] = std::tuple(arguments[0], arguments[1], arguments[2]);
        if (parts[0] == "ready") return Trimmed(kReady);
        if (parts[0] == "stopped") return Trimmed(kStopped);
        if (parts[0] == "identify") return Trimmed(Identify(type, version));
        if (parts[0] == "session") return Trimmed(Session(type, version));
        if (parts[0] == "page") return Trimmed(CodePage(type, version, page));
        if (parts[0] == "begin") return Trimmed(Begin(type, version, page));
        ADD_FAILURE() << "nothing is named $" << name;
        return "";
    }

    const std::string file_ = "tests/wire/tables/" + GetParam().file;
    std::map<std::string, std::string> defined_;
    std::string call_;
};

TEST_P(CallTable, Holds) {
    Run(GetParam().steps);
}

INSTANTIATE_TEST_SUITE_P(Tables, CallTable, testing::ValuesIn(ReadTables()), NameOf);

}  // namespace
