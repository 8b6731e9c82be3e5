// The line: makes sequences of the bytes that arrive, has them carried out, and lets the answers go
// as the faults of the line allow.
#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>

#include "sim/command.h"
#include "sim/core.h"

namespace sim {

class Wire {
  public:
    explicit Wire(Core& core) : core_(core) {}

    void Receive(std::uint8_t byte);
    /// Ends sequences and receipts that have taken too long; the core's time has moved on already.
    void CheckTimeouts();

    Bytes TakeAnswer();
    bool AnswerPending() const { return !answers_.empty(); }
    void Watch(std::function<void(const Exchange&)> watcher) { watcher_ = std::move(watcher); }

  private:
    enum class Phase { Idle, Command, Data };

    void ReceiveStray(std::uint8_t byte);
    void ReceiveCommand(std::uint8_t code);
    void ReceiveData(std::uint8_t byte);

    void BeginBareLine(const Command& line, std::uint8_t first);

    bool Accept();
    void AnswerEarly(const Bytes& bytes);
    bool DataComplete() const;
    void EndData();
    void GiveUp();
    void Execute();
    void Refuse();

    void Answer(const Bytes& bytes);
    void BeginExchange(const char* name, const Bytes& received);
    void EndExchange();
    void ReportStrays();

    struct AnswerByte {
        std::chrono::milliseconds due;
        std::uint8_t byte;
    };

    Core& core_;
    Phase phase_ = Phase::Idle;
    std::chrono::milliseconds last_byte_{};

    const Command* command_ = nullptr;
    bool ignored_ = false;  // the data of this command are taken and dropped
    Bytes data_;
    Bytes strays_;

    std::deque<AnswerByte> answers_;
    Exchange exchange_;
    std::function<void(const Exchange&)> watcher_;
};

}  // namespace sim
