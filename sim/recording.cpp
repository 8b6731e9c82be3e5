#include "sim/recording.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <charconv>
#include <optional>

#include "sim/code_page.h"
#include "sim/words.h"

namespace sim {
namespace {

constexpr std::string_view kHead = "# korax line ";
constexpr std::string_view kVersion = "1";
constexpr std::string_view kSessionBegins = "opened";

constexpr LineTime kLongestLine = std::chrono::milliseconds{1};

// As many microseconds as the text gives digits for, with a point before the last six.
std::optional<LineTime> SecondsOf(std::string_view text) {
    const std::size_t point = text.find('.');
    const std::string_view whole = text.substr(0, point);
    const std::string_view fraction =
        point == std::string_view::npos ? std::string_view{} : text.substr(point + 1);
    std::int64_t seconds = 0;
    const auto [end, error] = std::from_chars(whole.data(), whole.data() + whole.size(), seconds);
    if (error != std::errc{} || end != whole.data() + whole.size() || seconds < 0)
        return std::nullopt;
    const std::optional<int> micros = NumberOf(fraction);
    if (fraction.size() != 6 || !micros || seconds > 1'000'000'000) return std::nullopt;
    return std::chrono::seconds{seconds} + LineTime{*micros};
}

std::optional<int> DigitOf(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return std::nullopt;
}

// Reads pairs of digits up to the first that is none.
Bytes BytesOf(std::string_view hex) {
    Bytes bytes;
    for (; hex.size() >= 2; hex.remove_prefix(2)) {
        const auto high = DigitOf(hex[0]);
        const auto low = DigitOf(hex[1]);
        if (!high || !low) break;
        bytes.push_back(static_cast<std::uint8_t>(*high << 4 | *low));
    }
    return bytes;
}

class Reader {
  public:
    void Read(std::string_view text) {
        const std::size_t end = text.find_last_not_of("\r\n");
        const auto lines = Split(text.substr(0, end + 1), '\n');
        for (std::size_t i = 0; i < lines.size(); ++i)
            ReadLine(lines[i], i + 1, i + 1 == lines.size());
    }
    std::vector<RecordedSession> sessions;

  private:
    void ReadLine(std::string_view line, std::size_t number, bool torn) {
        const std::size_t mark = line.find('#');
        // Behind bytes a remark can only be the beginning of an appended session.
        torn = torn || (mark != std::string_view::npos && mark > 0);
        ReadBytes(line.substr(0, mark), number, torn);
        if (mark != std::string_view::npos) ReadRemark(line.substr(mark), number);
    }

    void ReadBytes(std::string_view line, std::size_t number, bool torn) {
        const auto words = Words(line);
        if (words.empty()) return;
        const auto at = SecondsOf(words[0]);
        const bool directed = words.size() >= 2 && (words[1] == ">" || words[1] == "<");
        const Bytes bytes = words.size() == 3 ? BytesOf(words[2]) : Bytes{};
        const bool whole =
            at && directed && words.size() == 3 && bytes.size() * 2 == words[2].size();
        if (!whole && !torn)
            throw RecordingError(
                fmt::format("line {}: \"0.001146 < 06\" is what a line looks like", number));
        if (!at || bytes.empty()) return;
        Session().push_back(
            {*at, words[1] == ">" ? Direction::ToDevice : Direction::FromDevice, bytes, {}});
    }

    void ReadRemark(std::string_view line, std::size_t number) {
        if (line.starts_with(kHead)) {
            const auto words = Words(line.substr(kHead.size()));
            if (words.empty() || words[0] != kVersion)
                throw RecordingError(
                    fmt::format("line {}: recordings of this kind are not known here", number));
            return;
        }
        const std::string_view text = Trim(line.substr(1));
        const auto words = Words(text);
        const bool begins = !words.empty() && words[0] == kSessionBegins;
        if (begins && !sessions.empty() && !sessions.back().empty()) sessions.emplace_back();
        const LineTime at = Session().empty() ? LineTime{} : Session().back().at;
        Session().push_back({at, Direction::ToDevice, {}, std::string(text)});
    }

    RecordedSession& Session() {
        if (sessions.empty()) sessions.emplace_back();
        return sessions.back();
    }
};

}  // namespace

Recorder::Recorder(std::function<void(std::string_view)> write, std::chrono::sys_seconds start)
    : write_(std::move(write)) {
    write_(fmt::format("{}{} {:%Y-%m-%dT%H:%M:%S}\n", kHead, kVersion, start));
}

void Recorder::Byte(const LineByte& byte) {
    const bool same_line = byte.direction == first_.direction && byte.at - first_.at < kLongestLine;
    if (!line_.empty() && !same_line) Flush();
    if (line_.empty()) first_ = byte;
    line_ += fmt::format("{:02x}", byte.byte);
}

void Recorder::Remark(LineTime, std::string_view text) {
    Flush();
    write_(fmt::format("# {}\n", text));
}

void Recorder::Flush() {
    if (line_.empty()) return;
    const std::int64_t micros = first_.at.count();
    write_(fmt::format("{}.{:06} {} {}\n", micros / 1'000'000, micros % 1'000'000,
                       first_.direction == Direction::ToDevice ? '>' : '<', line_));
    line_.clear();
}

std::vector<RecordedSession> ReadRecording(std::string_view text) {
    if (!text.starts_with("# "))
        throw RecordingError("this is no recording: the first line would be \"# korax line 1\"");
    Reader reader;
    reader.Read(text);
    return std::move(reader.sessions);
}

}  // namespace sim
