// The device's end of the line: makes sequences of the bytes that arrive and has them carried out.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <utility>

#include "sim/command.h"
#include "sim/core.h"

namespace sim {

class Wire {
  public:
    explicit Wire(Core& core) : core_(core) {}

    void Receive(std::uint8_t byte);
    /// Ends sequences and receipts that have taken too long; the core's time has moved on already.
    void CheckTimeouts();

    Bytes TakeAnswer() { return std::exchange(answers_, {}); }
    void Watch(std::function<void(const Exchange&)> watcher) { watcher_ = std::move(watcher); }
    void WatchCommands(std::function<void(const Exchange&)> watcher) {
        command_watcher_ = std::move(watcher);
    }
    int exchanges() const { return exchanges_; }

    void RefuseNext(int commands) { refusals_ = commands; }
    int refusals_left() const { return refusals_; }
    /// Whatever was going on is forgotten.
    void SwitchOff();
    void SwitchOn() { powered_ = true; }
    bool powered() const { return powered_; }

  private:
    enum class Phase { Idle, Command, Data };

    void ReceiveStray(std::uint8_t byte);
    void ReceiveCommand(std::uint8_t code);
    void ReceiveData(std::uint8_t byte);

    void BeginBareLine(const Command& line, std::uint8_t first);

    bool Announce();
    bool Accept();
    void AnswerEarly(const Bytes& bytes);
    void EndData();
    void GiveUp();
    void Execute();
    void Refuse();

    void Answer(const Bytes& bytes);
    void BeginExchange(const char* name, const char* id, const Bytes& received);
    void EndExchange();
    void ReportStrays();

    Core& core_;
    Phase phase_ = Phase::Idle;
    std::chrono::milliseconds last_byte_{};

    const Command* command_ = nullptr;
    bool ignored_ = false;  // the data of this command are taken and dropped
    Bytes data_;
    Bytes strays_;

    Bytes answers_;
    bool powered_ = true;
    int refusals_ = 0;
    int exchanges_ = 0;
    Exchange exchange_;
    std::function<void(const Exchange&)> watcher_;
    std::function<void(const Exchange&)> command_watcher_;
};

}  // namespace sim
