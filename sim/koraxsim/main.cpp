// koraxsim: a simulated fiscal device on a pseudo-terminal, its paper on standard output.
#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <ctime>
#include <deque>
#include <exception>
#include <fstream>
#include <map>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "sim/device.h"
#include "sim/koraxsim/inlet.h"
#include "sim/koraxsim/outlet.h"
#include "sim/koraxsim/paper_file.h"
#include "sim/koraxsim/pseudo_terminal.h"
#include "sim/option_text.h"
#include "sim/render/text.h"

namespace koraxsim {
namespace {

using Clock = std::chrono::steady_clock;

struct Settings {
    sim::DeviceOptions device;
    sim::FaultPanel faults;
    std::string link;
    bool trace = false;
    bool display = false;
    std::string logo;
    std::string paper = "-";  // or a file
    int baud = 0;             // 0: as fast as it goes
};

const std::map<std::string, bool sim::FaultPanel::*> kFaults = {
    {"no-paper", &sim::FaultPanel::no_paper},
    {"printer-failure", &sim::FaultPanel::printer_failure},
    {"no-printer-controller", &sim::FaultPanel::no_printer_controller},
    {"cmos-erased", &sim::FaultPanel::cmos_erased},
    {"no-producer-data", &sim::FaultPanel::no_producer_data},
    {"no-user-data", &sim::FaultPanel::no_user_data},
    {"read-only", &sim::FaultPanel::read_only},
    {"service-jumper", &sim::FaultPanel::service_jumper},
    {"no-customer-display", &sim::FaultPanel::no_customer_display},
    {"pending-daily-report", &sim::FaultPanel::pending_daily_report},
    {"silent", &sim::FaultPanel::silent},
};

const std::map<std::string, sim::CodePage> kCodePages = {
    {"852", sim::CodePage::Cp852},
    {"1250", sim::CodePage::Cp1250},
    {"mazovia", sim::CodePage::Mazovia},
};

const std::map<std::string, sim::DisplayKind> kDisplays = {
    {"none", sim::DisplayKind::None},
    {"one-line", sim::DisplayKind::OneLine},
    {"numbered", sim::DisplayKind::Numbered},
    {"two-lines", sim::DisplayKind::TwoLines},
};

// The wall clock, as the device on the counter shows it.
std::chrono::sys_seconds LocalTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return std::chrono::sys_seconds{std::chrono::seconds{timegm(&local)}};
}

std::chrono::sys_seconds ClockFromText(const std::string& text) {
    const auto clock = sim::TimeFromText(text);
    if (!clock)
        throw std::invalid_argument(fmt::format(
            "\"{}\" is no time of the years 2000 to 2099 like 2026-01-31T12:00:00", text));
    return *clock;
}

// Reports of the days before `today`, each with a little more sold than the one before.
std::vector<sim::DailyReport> PastDays(int count, std::chrono::sys_seconds today) {
    std::vector<sim::DailyReport> reports;
    for (int number = 1; number <= count; ++number)
        reports.push_back(
            {.number = number,
             .made = today - std::chrono::days{count - number + 1},
             .receipts = number,
             .totals = {1000 * number},
             .rates = {2300, 800, 500, 0, sim::kRateUnused, sim::kRateUnused, sim::kRateExempt}});
    return reports;
}

// Fills the settings from the command line; an exit code when there is nothing left to do.
std::optional<int> ParseCommandLine(int argc, char** argv, Settings& settings) {
    CLI::App app{
        "A simulated fiscal device on a pseudo-terminal. Prints the name of the device to open, "
        "then the paper as it grows. The name of a fault as a line of input switches it on and "
        "off. Ends on Ctrl-C.",
        "koraxsim"};
    app.set_version_flag("--version", "koraxsim " KORAXSIM_VERSION);
    app.add_option("--type", settings.device.type, "device type")
        ->check(CLI::Range(sim::kFirstType, sim::kLastType))
        ->capture_default_str();
    app.add_option("--program-version", settings.device.program_version,
                   "version of the device's program (default: a current one)")
        ->check(CLI::Range(0, 255));
    std::string code_page = "852";
    app.add_option("--code-page", code_page, "code page of the device's texts (types 8 to 12)")
        ->check(CLI::IsMember(kCodePages))
        ->capture_default_str();
    app.add_option("--link", settings.link, "keep a symbolic link to the device here");
    app.add_flag("--trace", settings.trace, "show every exchange on standard error");
    app.add_flag("--display", settings.display,
                 "show the text of the customer display on standard error when it changes");
    std::string display_kind;
    app.add_option("--display-kind", display_kind,
                   "customer display of types 1, 2, 3, 5 and 6 (default: the type's usual one)")
        ->check(CLI::IsMember(kDisplays));
    app.add_option("--paper", settings.paper,
                   "write the paper here: .txt grows by the line, a picture (.svg, .png) or pages "
                   "(.pdf) are made at the end; -: as text on standard output")
        ->capture_default_str();
    app.add_option("--logo", settings.logo, "write the logo here (PBM) when it has come");
    app.add_option("--number", settings.device.unique_number, "unique number, 11 characters")
        ->capture_default_str();
    app.add_option("--header", settings.device.header,
                   "line above every document; up to 3, each with its --header")
        ->allow_extra_args(false);
    std::string rates;
    app.add_option(
        "--rates", rates,
        "VAT rates A to G: 23,8,5,7.5,exempt,-,- (\"-\": not in use; on types 1, 2, 3, 5 "
        "and 6 G is exempt or -)");
    std::string clock;
    app.add_option("--clock", clock,
                   "where the calendar begins: 2026-01-31T12:00:00 (default: the computer's time)");
    app.add_option("--clock-rate", settings.device.clock_rate,
                   "seconds of the calendar a second: 0 stands still")
        ->capture_default_str();
    int past_days = 0;
    app.add_option("--past-days", past_days,
                   "begin with the daily reports of so many days in memory")
        ->check(CLI::Range(0, 1000));
    std::vector<std::string> faults;
    app.add_option("--fault", faults, "start with a fault; may be repeated")
        ->check(CLI::IsMember(kFaults));
    int answer_delay = 0;
    app.add_option("--answer-delay", answer_delay, "delay every answer by milliseconds")
        ->check(CLI::Range(0, 60000));
    app.add_option("--baud", settings.baud, "keep the pace of a line with 11 bits a byte")
        ->check(CLI::Range(150, 115200));
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error);
    }
    if (const sim::CodePage page = kCodePages.at(code_page); page != sim::CodePage::Cp852)
        settings.device.code_page = page;
    if (!display_kind.empty()) settings.device.display = kDisplays.at(display_kind);
    for (const std::string& fault : faults) settings.faults.*kFaults.at(fault) = true;
    settings.faults.answer_delay = std::chrono::milliseconds{answer_delay};
    if (!rates.empty()) settings.device.vat_rates = sim::RatesFromText(settings.device.type, rates);
    settings.device.clock = clock.empty() ? LocalTime() : ClockFromText(clock);
    settings.device.daily_reports = PastDays(past_days, settings.device.clock);
    return std::nullopt;
}

// Where a standard stream is closed, the line would take its number and be written and read as it.
void KeepStandardStreams() {
    int descriptor = 0;
    while (descriptor >= 0 && descriptor <= STDERR_FILENO) descriptor = open("/dev/null", O_RDWR);
    if (descriptor >= 0) close(descriptor);
}

// Blocks the signals that end the program and makes them readable.
Descriptor EndingSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals, signal);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
    return {signalfd(-1, &signals, SFD_CLOEXEC), "signals"};
}

// Bytes on their way. With a speed each takes its time on the line, without one none at all.
class PacedBytes {
  public:
    explicit PacedBytes(int baud)
        : byte_time_(baud > 0 ? std::chrono::nanoseconds{11'000'000'000 / baud}
                              : std::chrono::nanoseconds{0}) {}

    void Push(std::span<const std::uint8_t> bytes, Clock::time_point now) {
        if (bytes_.empty()) next_ = std::max(now, last_) + byte_time_;
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    }
    /// The bytes that have arrived by now.
    sim::Bytes Pop(Clock::time_point now) {
        sim::Bytes arrived;
        for (; !bytes_.empty() && next_ <= now; next_ += byte_time_) {
            arrived.push_back(bytes_.front());
            bytes_.pop_front();
            last_ = next_;
        }
        return arrived;
    }
    std::size_t size() const { return bytes_.size(); }
    /// When the next byte arrives, if one is on its way.
    Clock::time_point next() const { return bytes_.empty() ? Clock::time_point::max() : next_; }

  private:
    std::chrono::nanoseconds byte_time_;
    std::deque<std::uint8_t> bytes_;
    Clock::time_point next_{};
    Clock::time_point last_{};  // when the last byte arrived
};

// The device between its line and its paper.
class Session {
  public:
    explicit Session(const Settings& settings)
        : device_(settings.device),
          logo_file_(settings.logo),
          from_host_(settings.baud),
          to_host_(settings.baud) {
        device_.faults() = settings.faults;
        if (settings.paper != "-") paper_file_.emplace(settings.paper);
        if (settings.display) shown_.emplace();
        if (settings.trace)
            device_.OnExchange([this](const sim::Exchange& exchange) {
                errors_.Put(sim::FormatExchange(exchange));
            });
        if (!settings.link.empty()) link_.emplace(settings.link, line_.name());
        paper_.Put(line_.name() + "\n");
        paper_.Flush();
    }

    // Works until one of the signals comes.
    void Run(const Descriptor& signals) {
        static constexpr int kPatienceAtTheEnd = 200;
        while (!WaitForEvent(signals)) Step();
        if (paper_file_) paper_file_->Finish(device_.clock());
        paper_.Flush(kPatienceAtTheEnd);
        errors_.Flush(kPatienceAtTheEnd);
    }

  private:
    // Bytes taken from the host ahead of their time, at most.
    static constexpr std::size_t kMostAhead = 4096;

    std::chrono::nanoseconds LongestWait() const {
        using namespace std::chrono_literals;
        const std::chrono::nanoseconds wait = device_.AnswerPending() ? 5ms : 250ms;
        const auto now = Clock::now();
        const auto next = std::min({now + wait, from_host_.next(), to_host_.next()});
        return std::max<std::chrono::nanoseconds>(next - now, 0ns);
    }

    bool WaitForEvent(const Descriptor& signals) {
        const int line = from_host_.size() < kMostAhead ? line_.line() : -1;
        std::array<pollfd, 6> events = {{{signals.get(), POLLIN, 0},
                                         {line, POLLIN, 0},
                                         {line_.departures(), POLLIN, 0},
                                         {panel_.waiting(), POLLIN, 0},
                                         {paper_.waiting(), POLLOUT, 0},
                                         {errors_.waiting(), POLLOUT, 0}}};
        const timespec limit{0, static_cast<long>(LongestWait().count())};
        if (ppoll(events.data(), events.size(), &limit, nullptr) < 0 && errno != EINTR)
            ThrowSystemError("poll");
        if (events[2].revents != 0) line_.TakeDeparture();
        if (events[3].revents != 0) TurnSwitches();
        return events[0].revents != 0;
    }

    void Step() {
        const auto now = Clock::now();
        TellTime(now);
        if (from_host_.size() < kMostAhead) from_host_.Push(line_.Read(kMostAhead), now);
        device_.Receive(from_host_.Pop(now));
        to_host_.Push(device_.TakeAnswer(), now);
        line_.Write(to_host_.Pop(now));
        PassPaperOn();
        ShowDisplay();
        WriteLogo();
        paper_.Flush();
        errors_.Flush();
    }

    void PassPaperOn() try {
        const std::vector<sim::PaperElement> printed = device_.printed();
        device_.TearOffPaper();
        if (paper_file_)
            paper_file_->Add(printed);
        else
            paper_.Put(sim::RenderText(printed));
    } catch (const std::exception& error) {
        errors_.Put(fmt::format("koraxsim: {}\n", error.what()));
    }

    void TurnSwitches() {
        for (const std::string& name : panel_.TakeLines()) {
            const auto fault = kFaults.find(name);
            if (fault == kFaults.end()) {
                std::string known;
                for (const auto& [word, member] : kFaults) known += " " + word;
                errors_.Put(fmt::format("[faults]{}\n", known));
                continue;
            }
            bool& on = device_.faults().*fault->second;
            on = !on;
            errors_.Put(fmt::format("[fault] {} {}\n", name, on ? "on" : "off"));
        }
    }

    void ShowDisplay() {
        if (!shown_ || device_.display_text() == *shown_) return;
        shown_ = device_.display_text();
        errors_.Put(fmt::format("[display] {}\n", *shown_));
    }

    void WriteLogo() {
        if (logo_file_.empty() || device_.logo() == written_logo_) return;
        written_logo_ = device_.logo();
        std::ofstream file(logo_file_, std::ios::binary);
        if (!(file << sim::AsPbm(*written_logo_) << std::flush))
            errors_.Put(fmt::format("koraxsim: cannot write {}\n", logo_file_));
    }

    // When this program has been kept from running, the host's bytes have been waiting for it: that
    // is no pause in its data. The calendar has gone on all the same.
    void TellTime(Clock::time_point now) {
        static constexpr std::chrono::milliseconds kMostAtOnce{500};
        const auto elapsed = std::chrono::floor<std::chrono::milliseconds>(now - told_);
        told_ += elapsed;
        if (elapsed.count() > 0) device_.Advance(std::min(elapsed, kMostAtOnce), elapsed);
    }

    sim::Device device_;
    std::optional<PaperFile> paper_file_;  // instead of standard output
    std::optional<std::string> shown_;     // on the display, if anybody wants to know
    std::string logo_file_;
    std::optional<sim::Logo> written_logo_;
    PseudoTerminal line_;
    std::optional<DeviceLink> link_;
    Outlet paper_{STDOUT_FILENO};
    Outlet errors_{STDERR_FILENO};
    Inlet panel_;
    PacedBytes from_host_;
    PacedBytes to_host_;
    Clock::time_point told_ = Clock::now();  // up to when the device knows the time
};

}  // namespace
}  // namespace koraxsim

int main(int argc, char** argv) try {
    koraxsim::KeepStandardStreams();
    koraxsim::Settings settings;
    if (const auto code = koraxsim::ParseCommandLine(argc, argv, settings)) return *code;
    const koraxsim::Descriptor signals = koraxsim::EndingSignals();
    koraxsim::Session(settings).Run(signals);
    return 0;
} catch (const std::exception& error) {
    fmt::print(stderr, "koraxsim: {}\n", error.what());
    return 1;
}
