#include "sim/wire.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

#include "sim/frame.h"

namespace sim {
namespace {

constexpr std::size_t kLongestData = 255;
constexpr std::size_t kMostStrays = 64;  // reported at once

// What ends the data of a command and is no part of them.
Bytes EndOf(DataEnd end) {
    switch (end) {
        case DataEnd::Counted:
            break;
        case DataEnd::LineFeed:
        case DataEnd::LineFeedOrEscape:
            return {'\n'};
        case DataEnd::Frame:
            return {kEscape, kFrameEnd};
        case DataEnd::DisplayFrame:
            return {'\n', kEscape, 'S'};
    }
    return {};
}

}  // namespace

void Wire::Receive(std::uint8_t byte) {
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
    if (phase_ != Phase::Idle && core_.now - last_byte_ > core_.options.data_timeout) GiveUp();
    if (core_.receipt().open() &&
        core_.now - core_.session.receipt_opened > core_.options.receipt_timeout)
        core_.Cancel(Reason::OpenTooLong);
    ReportStrays();
}

// No more bytes have come in time. That ends some data, and breaks off all others.
void Wire::GiveUp() {
    if (phase_ == Phase::Command) {
        BeginExchange("lone Esc", {kEscape});
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
    BeginExchange(command_ ? command_->name : "unknown command", {kEscape, code});
    exchange_.command = code;
    data_.clear();
    ignored_ = !Accept();
    const bool acknowledged = !command_ || command_->early > 0;
    if (ignored_ && acknowledged) {
        Answer({kRefusal});
        EndExchange();
    } else if (DataComplete()) {
        EndData();
    } else {
        phase_ = Phase::Data;
    }
}

void Wire::BeginBareLine(const Command& line, std::uint8_t first) {
    command_ = &line;
    BeginExchange(line.name, {});
    data_.clear();
    ignored_ = false;
    phase_ = Phase::Data;
    ReceiveData(first);
}

// Takes the command up and sends its early answer, or returns false. A command that is not
// acknowledged cannot be refused either: its data follow in any case.
bool Wire::Accept() {
    if (command_ && command_->early > 0 && core_.faults.refuse > 0) {
        --core_.faults.refuse;
        core_.Note("refused by the fault panel");
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
    if (DataComplete()) {
        EndData();
    } else if (data_.size() == kLongestData) {
        core_.Cancel(Reason::UnexpectedSequence);
        core_.Note("too long");
        if (command_->data_end == DataEnd::Frame) Answer({kRefusal});
        EndExchange();
    }
}

bool Wire::DataComplete() const {
    const std::size_t size = data_.size();
    const auto fixed = static_cast<std::size_t>(CountedLength(*command_));
    if (size < fixed) return false;
    if (command_->data_end != DataEnd::Counted) {
        const Bytes end = EndOf(command_->data_end);
        return size >= fixed + end.size() && std::equal(end.rbegin(), end.rend(), data_.rbegin());
    }
    if (!command_->data_length) return size == fixed;
    return size == static_cast<std::size_t>(command_->data_length(data_));
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
    FaultPanel& faults = core_.faults;
    exchange_.answered.insert(exchange_.answered.end(), bytes.begin(), bytes.end());
    if (faults.silent) return;
    for (std::uint8_t byte : bytes) {
        if (faults.drop > 0) {
            --faults.drop;
            continue;
        }
        if (faults.corrupt > 0) {
            --faults.corrupt;
            byte = static_cast<std::uint8_t>(~byte);
        }
        answers_.push_back({core_.now + faults.answer_delay, byte});
    }
}

Bytes Wire::TakeAnswer() {
    Bytes bytes;
    while (!answers_.empty() && answers_.front().due <= core_.now) {
        bytes.push_back(answers_.front().byte);
        answers_.pop_front();
    }
    return bytes;
}

void Wire::BeginExchange(const char* name, const Bytes& received) {
    exchange_ = Exchange{};
    exchange_.at = core_.now;
    exchange_.name = name;
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
    exchange_ = Exchange{};
    exchange_.at = core_.now;
    exchange_.name = "bytes outside any sequence";
    exchange_.received.swap(strays_);
    EndExchange();
}

}  // namespace sim
