#include "sim/wire.h"

#include <fmt/format.h>

#include <stdexcept>

#include "sim/frame.h"
#include "sim/sequence.h"

namespace sim {
namespace {

constexpr std::size_t kMostStrays = 64;  // reported at once

}  // namespace

void Wire::Receive(std::uint8_t byte) {
    if (!powered_) return;
    last_byte_ = core_.now;
    switch (phase_) {
        case Phase::Idle:
            if (byte == kEscape) {
                ReportStrays();
                phase_ = Phase::Command;
            } else if (const Command* line = BareLine(core_)) {
                ReportStrays();
                BeginBareLine(*line, byte);
            } else {
                ReceiveStray(byte);
            }
            break;
        case Phase::Command:
            ReceiveCommand(byte);
            break;
        case Phase::Data:
            ReceiveData(byte);
            break;
    }
}

void Wire::CheckTimeouts() {
    if (!powered_) return;
    if (phase_ != Phase::Idle && core_.now - last_byte_ > core_.options.data_timeout) GiveUp();
    if (core_.receipt().open() &&
        core_.now - core_.session.receipt_opened > core_.options.receipt_timeout)
        core_.Cancel(Reason::OpenTooLong);
    ReportStrays();
}

// No more bytes have come in time. That ends some data, and breaks off all others.
void Wire::GiveUp() {
    if (phase_ == Phase::Command) {
        BeginExchange("lone Esc", "lone-esc", {kEscape});
    } else if (command_->data_end == DataEnd::LineFeedOrEscape) {
        Execute();
        return;
    } else if (command_->incomplete) {
        Answer({*command_->incomplete});
    }
    core_.Cancel(Reason::DataTimeout);
    core_.Note("given up");
    EndExchange();
}

// Between sequences of a receipt nothing but Esc is allowed.
void Wire::ReceiveStray(std::uint8_t byte) {
    core_.Cancel(Reason::UnexpectedSequence);
    strays_.push_back(byte);
    if (strays_.size() == kMostStrays) ReportStrays();
}

void Wire::ReceiveCommand(std::uint8_t code) {
    command_ = FindCommand(code);
    BeginExchange(command_ ? command_->name : "unknown command",
                  command_ ? command_->id : "unknown-command", {kEscape, code});
    exchange_.command = code;
    data_.clear();
    // What a frame is, only its text tells.
    if (code != kFrameBegin && !Announce()) return;
    ignored_ = !Accept();
    const bool acknowledged = !command_ || command_->early > 0;
    if (ignored_ && acknowledged) {
        Answer({kRefusal});
        EndExchange();
    } else if (command_ && DataComplete(*command_, data_)) {
        EndData();
    } else {
        phase_ = Phase::Data;
    }
}

void Wire::BeginBareLine(const Command& line, std::uint8_t first) {
    command_ = &line;
    BeginExchange(line.name, line.id, {});
    data_.clear();
    if (!Announce()) return;
    ignored_ = false;
    phase_ = Phase::Data;
    ReceiveData(first);
}

// Tells of a command before it is acted on. Whoever is told may switch the device off: false then.
bool Wire::Announce() {
    if (command_watcher_) command_watcher_(exchange_);
    return powered_;
}

// Takes the command up and sends its early answer, or returns false. A command that is not
// acknowledged cannot be refused either: its data follow in any case.
bool Wire::Accept() {
    if (command_ && command_->early > 0 && refusals_ > 0) {
        --refusals_;
        core_.Note("refused by order");
        return false;
    }
    const bool known = command_ && core_.Is(command_->models);
    const bool in_place = command_ && InPlace(core_, command_->moment);
    const bool query = command_ && command_->moment == Moment::Anytime;
    if (!in_place || (!known && !query)) core_.Cancel(Reason::UnexpectedSequence);
    if (!in_place || !known) return false;
    try {
        const std::optional<Bytes> early = command_->accept ? command_->accept(core_) : Bytes{};
        if (early) AnswerEarly(*early);
        return early.has_value();
    } catch (const Violation& violation) {
        core_.Cancel(violation.reason);
        return false;
    }
}

void Wire::AnswerEarly(const Bytes& bytes) {
    Bytes answer = bytes;
    if (command_->early > 0 && !command_->status_byte)
        answer.insert(answer.begin(), kAcknowledgement);
    if (answer.size() != static_cast<std::size_t>(command_->early))
        throw std::logic_error(fmt::format("{} answers {} bytes", command_->name, answer.size()));
    Answer(answer);
}

void Wire::ReceiveData(std::uint8_t byte) {
    if (byte == kEscape && command_->data_end == DataEnd::LineFeedOrEscape) {
        Execute();
        phase_ = Phase::Command;
        return;
    }
    exchange_.received.push_back(byte);
    data_.push_back(byte);
    if (DataComplete(*command_, data_)) {
        EndData();
    } else if (data_.size() == kLongestData) {
        core_.Cancel(Reason::UnexpectedSequence);
        core_.Note("too long");
        if (command_->data_end == DataEnd::Frame) Answer({kRefusal});
        EndExchange();
    }
}

void Wire::EndData() {
    // NOLINTNEXTLINE(clang-analyzer-core.NullDereference): an unknown command is not accepted
    data_.resize(data_.size() - EndOf(command_->data_end).size());
    Execute();
}

void Wire::Execute() {
    // Data that end without an end of their own can end anywhere.
    if (data_.size() < static_cast<std::size_t>(CountedLength(*command_))) {
        core_.Note("too short");
        EndExchange();
        return;
    }
    if (exchange_.command == kFrameBegin) {
        if (const TextFrame* frame = FindFrame(data_)) exchange_.id = frame->id;
        if (!Announce()) return;
    }
    const Record record(command_->layout, data_);
    if (watcher_) exchange_.fields = record.Describe(core_);
    // While the data arrived the receipt may have been cancelled.
    const bool taken = !ignored_ && (!command_->execute || InPlace(core_, command_->moment));
    if (!taken) {
        core_.Note("ignored");
        Refuse();
    } else if (command_->execute) {
        try {
            Answer(command_->execute(core_, record));
        } catch (const Violation& violation) {
            core_.Cancel(violation.reason);
            Refuse();
        }
    }
    EndExchange();
}

void Wire::Refuse() {
    if (command_->refusal) Answer({*command_->refusal});
}

void Wire::Answer(const Bytes& bytes) {
    exchange_.answered.insert(exchange_.answered.end(), bytes.begin(), bytes.end());
    answers_.insert(answers_.end(), bytes.begin(), bytes.end());
}

void Wire::SwitchOff() {
    powered_ = false;
    phase_ = Phase::Idle;
    data_.clear();
    strays_.clear();
    answers_.clear();
}

void Wire::BeginExchange(const char* name, const char* id, const Bytes& received) {
    exchange_ = Exchange{};
    exchange_.number = ++exchanges_;
    exchange_.at = core_.now;
    exchange_.name = name;
    exchange_.id = id;
    exchange_.received = received;
    core_.note.clear();
}

void Wire::EndExchange() {
    phase_ = Phase::Idle;
    exchange_.note = core_.note;
    core_.note.clear();
    if (watcher_) watcher_(exchange_);
}

void Wire::ReportStrays() {
    if (strays_.empty()) return;
    const std::string note = core_.note;
    BeginExchange("bytes outside any sequence", "stray-bytes", {});
    core_.note = note;
    exchange_.received.swap(strays_);
    EndExchange();
}

}  // namespace sim
