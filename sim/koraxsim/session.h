// A running device: its line, its paper, and the orders that come in.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "sim/koraxsim/files.h"
#include "sim/koraxsim/inlet.h"
#include "sim/koraxsim/options.h"
#include "sim/koraxsim/outlet.h"
#include "sim/koraxsim/paper_file.h"
#include "sim/koraxsim/pseudo_terminal.h"
#include "sim/orders.h"
#include "sim/recording.h"
#include "sim/script.h"
#include "sim/station.h"

namespace koraxsim {

class Session : private sim::Program {
  public:
    explicit Session(const Settings& settings);
    ~Session() override = default;
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Works until one of the signals or the order to quit comes.
    void Run(const Descriptor& signals);

  private:
    using Clock = std::chrono::steady_clock;

    void Prepare(const Settings& settings);
    sim::LineTime Now() const;
    std::chrono::nanoseconds LongestWait() const;
    bool WaitForEvent(const Descriptor& signals);
    void Step();
    void KeepLine();
    void PassPaperOn();
    void ShowDisplay();
    void WriteLogo();
    void ObeyLines();
    void TellOrder(const std::string& order, const std::string& answer);

    void WritePaper(const std::string& file) override;
    void CutPaper() override;
    int PaperLines() override;
    void Quit() override;

    sim::Station station_;
    sim::Script script_;
    const sim::OrderPlace place_{station_, *this};
    sim::Script::Listener script_listener_;

    std::optional<GrowingFile> record_;
    std::optional<sim::Recorder> recorder_;
    bool trace_ = false;
    std::optional<std::string> shown_;  // on the display, if anybody wants to know
    std::string logo_file_;
    std::optional<sim::Logo> written_logo_;
    std::optional<PaperFile> paper_file_;   // instead of standard output
    std::vector<sim::PaperElement> sheet_;  // the paper since the last cut
    int sheet_lines_ = 0;

    std::optional<PseudoTerminal> line_;  // while the cable is in
    std::optional<DeviceLink> link_;
    Outlet paper_{STDOUT_FILENO};
    Outlet errors_{STDERR_FILENO};
    Inlet orders_;
    bool ended_ = false;
    Clock::time_point ready_;
};

}  // namespace koraxsim
