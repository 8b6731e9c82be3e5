#include "support/script.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>

using memory::os;

namespace {

// Takes a decimal number, or none (`otherwise`), from the front of the text.
int64_t TakeNumber(std::string_view& text, int64_t otherwise) {
    int64_t number = otherwise;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), number).ptr;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

char TakeCharacter(std::string_view& text) {
    const char c = text.front();
    text.remove_prefix(1);
    return c;
}

// The text up to the first of `ends` outside quotes; the rest stays.
std::string_view TakeUntil(std::string_view& text, std::string_view ends) {
    std::size_t at = 0;
    for (bool quoted = false; at < text.size(); ++at) {
        if (text[at] == '\'') quoted = !quoted;
        if (!quoted && ends.find(text[at]) != ends.npos) break;
    }
    const std::string_view taken = text.substr(0, at);
    text.remove_prefix(at);
    return taken;
}

}  // namespace

Bytes FromText(std::string_view text) {
    Bytes bytes;
    while (!text.empty()) {
        const char first = TakeCharacter(text);
        if (first == '\'') {
            const std::size_t end = text.find('\'');
            const std::size_t start = bytes.size();
            bytes.insert(bytes.end(), text.begin(), text.begin() + static_cast<long>(end));
            text.remove_prefix(end + 1);
            bytes.resize(
                start + static_cast<std::size_t>(TakeNumber(text, static_cast<int64_t>(end))), ' ');
        } else if (first == '#') {
            const auto number = static_cast<uint64_t>(TakeNumber(text, 0));
            for (int shift = 0; shift < 32; shift += 8)
                bytes.push_back(static_cast<uint8_t>(number >> shift));
        } else if (first == 'x') {
            bytes.insert(bytes.end(), static_cast<std::size_t>(TakeNumber(text, 1)) - 1,
                         bytes.back());
        } else if (first != ',' && first != ' ') {
            const char digits[] = {first, TakeCharacter(text), 0};
            bytes.push_back(static_cast<uint8_t>(std::stoi(digits, nullptr, 16)));
        }
    }
    return bytes;
}

std::string Hex(const Bytes& bytes) {
    return fmt::format("{:02X}", fmt::join(bytes, " "));
}

const std::string kReady = "95<00 95<00 94<00 95<00 ", kStopped = "95<00 95<00 94<02 95<00 ";

std::string Identify(int type, int version) {
    static constexpr const char* models[] = {"02",         "11",         "2C FE<15",   "2C FE<067B",
                                             "05",         "12 FE<15",   "12 FE<067C", "2C FE<067C",
                                             "12 FE<067D", "2C FE<0680", "2C FE<0681", "12 FE<0682",
                                             "2D"};
    const std::string model = models[type - 1];
    const bool has_version = model.size() > 8;
    return "FF<06" + model + (has_version ? fmt::format("{:02X}77 ", version) : " ");
}

std::string Session(int type, int version) {
    return "23<06 " + kReady + Identify(type, version);
}

std::string CodePage(int type, int version, int page) {
    if (type < 8 || type > 12) return Identify(type, version);
    const char* digits = page == 1 ? "'17'" : page == 2 ? "'19'" : "'16'";
    const bool named = (type == 10 || type == 11) && version > 1;
    return Identify(type, version) + "C3<06," + (named ? "0000" : digits) + ",00 " +
           (named ? fmt::format("CF<06>02,'code_page'40<00,{},20x38 ", digits) : "");
}

std::string Begin(int type, int version, int page) {
    return CodePage(type, version, page) + "21<06 ";
}

void Script::Play(std::string_view conversation) {
    while (!conversation.empty()) {
        std::string_view exchange = TakeUntil(conversation, " ");
        if (!conversation.empty()) conversation.remove_prefix(1);
        const Bytes command = FromText(TakeUntil(exchange, "<>"));
        if (!command.empty()) steps_.push_back({true, Bytes{0x1B} + command});
        while (!exchange.empty()) {
            const bool from_host = TakeCharacter(exchange) == '>';
            steps_.push_back({from_host, FromText(TakeUntil(exchange, "<>"))});
        }
    }
    Advance();
}

void Script::Advance() {
    while (!steps_.empty() && (!steps_.front().from_host || received_ == steps_.front().bytes)) {
        if (!steps_.front().from_host) os.Answer(steps_.front().bytes);
        received_.clear();
        steps_.pop_front();
    }
}

void Script::Mismatch(const char* problem, const Bytes& received) {
    failed_ = true;
    ADD_FAILURE() << problem << "\n  expected "
                  << Hex(steps_.empty() ? Bytes{} : steps_.front().bytes) << "\n  received "
                  << Hex(received);
}

void Script::HostSent(const Bytes& bytes) {
    for (std::size_t i = 0; i < bytes.size() && !failed_; ++i) {
        received_.push_back(bytes[i]);
        const bool expected =
            !steps_.empty() && steps_.front().bytes[received_.size() - 1] == bytes[i];
        if (!expected)
            Mismatch("unexpected bytes",
                     received_ + Bytes(bytes.begin() + static_cast<long>(i) + 1, bytes.end()));
        Advance();
    }
}

void Script::ExpectFinished() {
    if (!failed_ && !steps_.empty()) Mismatch("the conversation stopped", received_);
    EXPECT_TRUE(failed_ || os.UnreadBytes() == 0) << os.UnreadBytes() << " device bytes unread";
    EXPECT_TRUE(failed_ || os.discarded_bytes == 0) << os.discarded_bytes << " of them purged";
    os.input.clear();
    os.discarded_bytes = 0;
    *this = Script();
}
