#include "sim/decode.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <nlohmann/json.hpp>

#include "sim/command.h"
#include "sim/core.h"
#include "sim/frame.h"
#include "sim/sequence.h"

namespace sim {
namespace {

// Follows both sides of a line. Of the device's memory it knows only which printout is open, which
// tells what bytes without Esc are.
class Decoder {
  public:
    explicit Decoder(const Core& core) : core_(core) {}

    void BeginSession() {
        ++session_;
        printout_ = nullptr;
    }

    void Hear(const RecordedEvent& event) {
        for (const std::uint8_t byte : event.bytes) {
            if (event.direction == Direction::ToDevice)
                HearHost(byte, event.at);
            else
                HearDevice(byte, event.at);
        }
        if (event.remark == "hung up" || event.remark == "closed") Close();
    }

    void EndSession() { Close(); }

    std::vector<DecodedExchange> exchanges;

  private:
    enum class Phase { Idle, Command, Data };

    void HearHost(std::uint8_t byte, LineTime at) {
        // The device has given up by then.
        if (phase_ != Phase::Idle && at - last_byte_ > core_.options.data_timeout) Close();
        last_byte_ = at;
        switch (phase_) {
            case Phase::Idle:
                Begin(byte, at);
                break;
            case Phase::Command:
                TakeCommand(byte);
                break;
            case Phase::Data:
                TakeData(byte, at);
                break;
        }
    }

    void Begin(std::uint8_t byte, LineTime at) {
        const bool stray = byte != kEscape && !printout_;
        if (stray && open_ && current_.name == "stray-bytes" && current_.answered.empty()) {
            current_.received.push_back(byte);
            return;
        }
        Close();
        if (byte == kEscape) {
            Open("lone-esc", "lone Esc", at);
            current_.received.push_back(byte);
            phase_ = Phase::Command;
        } else if (printout_) {
            Open(printout_->id, printout_->name, at);
            command_ = printout_;
            phase_ = Phase::Data;
            TakeData(byte, at);
        } else {
            Open("stray-bytes", "bytes outside any sequence", at);
            current_.received.push_back(byte);
        }
    }

    void TakeCommand(std::uint8_t code) {
        current_.received.push_back(code);
        command_ = FindCommand(code);
        current_.name = command_ ? command_->id : "unknown-command";
        current_.title = command_ ? command_->name : "unknown command";
        const bool data_follow = command_ && !DataComplete(*command_, data_);
        phase_ = data_follow ? Phase::Data : Phase::Idle;
    }

    void TakeData(std::uint8_t byte, LineTime at) {
        if (byte == kEscape && command_->data_end == DataEnd::LineFeedOrEscape) {
            Begin(byte, at);
            return;
        }
        current_.received.push_back(byte);
        data_.push_back(byte);
        if (DataComplete(*command_, data_)) {
            data_.resize(data_.size() - EndOf(command_->data_end).size());
            phase_ = Phase::Idle;
        } else if (data_.size() == kLongestData) {
            too_long_ = true;
            phase_ = Phase::Idle;
        }
    }

    void HearDevice(std::uint8_t byte, LineTime at) {
        if (!open_) Open("stray-answer", "bytes that nothing was asked for", at);
        current_.answered.push_back(byte);
        const bool first = current_.answered.size() == 1;
        if (!first || !command_ || command_->status_byte || command_->early == 0) return;
        if (byte != kRefusal || !data_.empty()) return;
        refused_ = true;
        phase_ = Phase::Idle;
    }

    void Open(const char* name, const char* title, LineTime at) {
        current_ = {};
        current_.session = session_;
        current_.at = at;
        current_.name = name;
        current_.title = title;
        open_ = true;
        command_ = nullptr;
        data_.clear();
        refused_ = false;
        too_long_ = false;
    }

    // Data without an end of their own end with what comes next.
    bool DataEnded() const {
        if (phase_ == Phase::Idle) return true;
        return phase_ == Phase::Data && command_->data_end == DataEnd::LineFeedOrEscape &&
               data_.size() >= static_cast<std::size_t>(CountedLength(*command_));
    }

    void Close() {
        if (open_) {
            Judge();
            FollowPrintout();
            exchanges.push_back(current_);
        }
        open_ = false;
        phase_ = Phase::Idle;
        command_ = nullptr;
    }

    void Judge() {
        if (refused_) {
            current_.complete = true;
            current_.note = "refused";
        } else if (!DataEnded()) {
            current_.note =
                fmt::format("broken off by the host after {} bytes of data", data_.size());
        } else if (too_long_) {
            current_.note = "the data have no end";
        } else if (command_) {
            Describe();
            JudgeAnswer();
        } else {
            current_.note = "not known";
        }
    }

    void Describe() {
        if (current_.received.size() > 1 && command_->code == kFrameBegin) {
            if (const TextFrame* frame = FindFrame(data_)) {
                current_.name = frame->id;
                current_.title = frame->name;
            }
        }
        current_.fields = Record(command_->layout, data_).Describe(core_);
    }

    void JudgeAnswer() {
        const Bytes& answered = current_.answered;
        const std::size_t early = static_cast<std::size_t>(command_->early);
        const std::size_t expected = early + static_cast<std::size_t>(command_->late);
        const bool acknowledged = early == 0 || command_->status_byte ||
                                  (!answered.empty() && answered[0] == kAcknowledgement);
        current_.complete = answered.size() >= expected && acknowledged;
        if (answered.empty() && expected > 0)
            current_.note = "no answer";
        else if (!acknowledged)
            current_.note = "the answer does not begin with an acknowledgement";
        else if (answered.size() < expected)
            current_.note =
                fmt::format("{} of at least {} bytes of the answer", answered.size(), expected);
        else if (command_->refusal && answered.back() == *command_->refusal)
            current_.note = "refused";
    }

    void FollowPrintout() {
        if (refused_ || !current_.complete) return;
        if (current_.name == "begin-printout")
            printout_ = &BareLines()[0];
        else if (current_.name == "begin-control-printout")
            printout_ = &BareLines()[1];
        else if (current_.name == "end-printout")
            printout_ = nullptr;
    }

    const Core& core_;
    int session_ = 0;
    const Command* printout_ = nullptr;  // what a byte outside any sequence begins

    Phase phase_ = Phase::Idle;
    LineTime last_byte_{};
    bool open_ = false;  // the current exchange
    DecodedExchange current_;
    const Command* command_ = nullptr;
    Bytes data_;
    bool refused_ = false;
    bool too_long_ = false;
};

std::string Hex(const Bytes& bytes) {
    return fmt::format("{:02x}", fmt::join(bytes, ""));
}

}  // namespace

std::vector<DecodedExchange> Decode(const std::vector<RecordedSession>& sessions,
                                    const DeviceOptions& reader) {
    Storage none;
    const Core core(reader, NewMemory(reader), none);
    Decoder decoder(core);
    for (const RecordedSession& session : sessions) {
        decoder.BeginSession();
        for (const RecordedEvent& event : session) decoder.Hear(event);
        decoder.EndSession();
    }
    return std::move(decoder.exchanges);
}

std::string DecodedText(const std::vector<DecodedExchange>& exchanges) {
    std::string text;
    int session = 0;
    for (const DecodedExchange& exchange : exchanges) {
        if (exchange.session != session) {
            session = exchange.session;
            text += fmt::format("session {}\n", session);
        }
        const std::int64_t micros = exchange.at.count();
        text += fmt::format("{:>6}.{:06} {} ({})\n", micros / 1'000'000, micros % 1'000'000,
                            exchange.name, exchange.title);
        const auto line = [&text](std::string_view label, const std::string& content) {
            if (!content.empty()) text += fmt::format("{:>21} {}\n", label, content);
        };
        line("host:", Hex(exchange.received));
        std::string fields;
        for (const auto& [label, value] : exchange.fields)
            fields += fmt::format("{}{}: {}", fields.empty() ? "" : ", ", label, value);
        line("", fields);
        line("device:", Hex(exchange.answered));
        line(exchange.complete ? "" : "incomplete:", exchange.note);
    }
    return text;
}

std::string DecodedJson(const std::vector<DecodedExchange>& exchanges) {
    using nlohmann::ordered_json;
    ordered_json array = ordered_json::array();
    for (const DecodedExchange& exchange : exchanges) {
        ordered_json fields = ordered_json::object();
        for (const auto& [label, value] : exchange.fields) fields[label] = value;
        array.push_back({{"name", exchange.name},
                         {"at", static_cast<double>(exchange.at.count()) / 1e6},
                         {"received", Hex(exchange.received)},
                         {"answered", Hex(exchange.answered)},
                         {"fields", fields},
                         {"note", exchange.note},
                         {"complete", exchange.complete}});
    }
    return array.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

}  // namespace sim
