#include "sim/koraxsim/session.h"

#include <fmt/format.h>
#include <poll.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <stdexcept>

#include "sim/render/text.h"

namespace koraxsim {
namespace {

// Bytes taken from the host ahead of their time, at most.
constexpr std::size_t kMostAhead = 4096;

}  // namespace

Session::Session(const Settings& settings)
    : station_(settings.device, settings.baud),
      script_(settings.script),
      script_listener_([this](const std::string& order, const std::string& answer) {
          TellOrder(order, answer);
      }),
      trace_(settings.trace),
      logo_file_(settings.logo) {
    if (settings.display) shown_.emplace();
    if (!settings.record.empty()) {
        record_.emplace(settings.record);
        recorder_.emplace([this](std::string_view text) { record_->Append(text); }, LocalTime());
        if (settings.baud > 0) recorder_->Remark({}, fmt::format("speed {}", settings.baud));
        station_.line.Listen(&*recorder_);
    }
    station_.device.OnCommand([this](const sim::Exchange& exchange) {
        script_.RunOn(exchange, place_, script_listener_);
    });
    station_.on_exchange = [this](const sim::Exchange& exchange) {
        if (trace_) errors_.Put(sim::FormatExchange(exchange));
        script_.RunAfter(exchange, place_, script_listener_);
    };
    if (settings.paper != "-") paper_file_.emplace(settings.paper);
    Prepare(settings);
    line_.emplace();
    if (!settings.link.empty()) link_.emplace(settings.link, line_->name());
    ready_ = Clock::now();
    paper_.Put(line_->name() + "\n");
    paper_.Flush();
}

// What is wrong from the beginning.
void Session::Prepare(const Settings& settings) {
    for (const std::string& name : settings.faults) {
        const sim::DeviceFault* fault = sim::FindDeviceFault(name);
        if (fault)
            station_.device.faults().*fault->on = true;
        else if (name == "silent")
            station_.line.faults.silence = true;
        else
            station_.device.faults().no_paper = true;
    }
    station_.line.faults.answer_delay = std::chrono::milliseconds{settings.answer_delay_ms};
    for (const std::string& order : settings.orders) errors_.Put(sim::Obey(order, place_) + "\n");
}

void Session::Run(const Descriptor& signals) {
    static constexpr int kPatienceAtTheEnd = 200;
    while (!ended_ && !WaitForEvent(signals)) Step();
    if (paper_file_) paper_file_->Finish(station_.device.clock());
    paper_.Flush(kPatienceAtTheEnd);
    errors_.Flush(kPatienceAtTheEnd);
}

sim::LineTime Session::Now() const {
    return std::chrono::floor<sim::LineTime>(Clock::now() - ready_);
}

std::chrono::nanoseconds Session::LongestWait() const {
    static constexpr sim::LineTime kLongest = std::chrono::milliseconds{250};
    const sim::LineTime now = Now();
    sim::LineTime wait = kLongest;
    for (const auto& next : {station_.line.next(), script_.next()})
        if (next) wait = std::min(wait, *next - now);
    return std::max(wait, sim::LineTime{0});
}

bool Session::WaitForEvent(const Descriptor& signals) {
    const bool listening = line_ && station_.line.ahead() < kMostAhead;
    std::array<pollfd, 6> events = {{{signals.get(), POLLIN, 0},
                                     {listening ? line_->line() : -1, POLLIN, 0},
                                     {line_ ? line_->departures() : -1, POLLIN, 0},
                                     {orders_.waiting(), POLLIN, 0},
                                     {paper_.waiting(), POLLOUT, 0},
                                     {errors_.waiting(), POLLOUT, 0}}};
    const timespec limit{0, static_cast<long>(LongestWait().count())};
    if (ppoll(events.data(), events.size(), &limit, nullptr) < 0 && errno != EINTR)
        ThrowSystemError("poll");
    if (events[2].revents != 0) line_->TakeDeparture();
    if (events[3].revents != 0) ObeyLines();
    return events[0].revents != 0;
}

void Session::Step() {
    const sim::LineTime now = Now();
    script_.RunDue(now, place_, script_listener_);
    KeepLine();
    const bool listening = line_ && station_.line.ahead() < kMostAhead;
    const sim::Bytes sent = listening ? line_->Read(kMostAhead) : sim::Bytes{};
    const sim::Bytes received = station_.Run(sent, now);
    if (line_) line_->Write(received);
    if (recorder_) recorder_->Flush();
    KeepLine();
    PassPaperOn();
    ShowDisplay();
    WriteLogo();
    paper_.Flush();
    errors_.Flush();
}

// The terminal hangs up when the cable is out, and is there again, under its link, when it is in.
void Session::KeepLine() {
    const bool connected = station_.line.connected();
    if (connected == line_.has_value()) return;
    if (!connected) {
        if (link_) link_->Remove();
        line_.reset();
        return;
    }
    line_.emplace();
    if (link_)
        link_->LeadTo(line_->name());
    else
        errors_.Put(fmt::format("koraxsim: the line is {}\n", line_->name()));
}

void Session::PassPaperOn() try {
    const std::vector<sim::PaperElement> printed = station_.device.printed();
    if (printed.empty()) return;
    station_.device.TearOffPaper();
    const std::string text = sim::RenderText(printed);
    sheet_.insert(sheet_.end(), printed.begin(), printed.end());
    sheet_lines_ += static_cast<int>(std::ranges::count(text, '\n'));
    if (paper_file_)
        paper_file_->Add(printed);
    else
        paper_.Put(text);
} catch (const std::exception& error) {
    errors_.Put(fmt::format("koraxsim: {}\n", error.what()));
}

void Session::ShowDisplay() {
    if (!shown_ || station_.device.display_text() == *shown_) return;
    shown_ = station_.device.display_text();
    errors_.Put(fmt::format("[display] {}\n", *shown_));
}

void Session::WriteLogo() {
    if (logo_file_.empty() || station_.device.logo() == written_logo_) return;
    written_logo_ = station_.device.logo();
    try {
        WriteFile(logo_file_, sim::AsPbm(*written_logo_));
    } catch (const std::system_error& error) {
        errors_.Put(fmt::format("koraxsim: cannot write {}\n", error.what()));
    }
}

void Session::ObeyLines() {
    for (const std::string& line : orders_.TakeLines()) {
        if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
        TellOrder(line, "");
        errors_.Put(sim::Obey(line, place_) + "\n");
    }
}

// Of a script's orders only what they answer is worth a line.
void Session::TellOrder(const std::string& order, const std::string& answer) {
    if (recorder_) recorder_->Remark(Now(), "order " + order);
    if (!answer.empty() && answer != "ok") errors_.Put(answer + "\n");
}

void Session::WritePaper(const std::string& file) try {
    PassPaperOn();
    koraxsim::WritePaper(file, sheet_, station_.device.clock());
} catch (const std::runtime_error& error) {
    throw sim::OrderError(error.what());
}

void Session::CutPaper() {
    PassPaperOn();
    sheet_.clear();
    sheet_lines_ = 0;
}

int Session::PaperLines() {
    PassPaperOn();
    return sheet_lines_;
}

void Session::Quit() {
    ended_ = true;
}

}  // namespace koraxsim
