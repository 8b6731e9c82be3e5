#include "sim/koraxsim/options.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <ctime>
#include <map>
#include <stdexcept>

#include "sim/faults.h"
#include "sim/koraxsim/files.h"
#include "sim/option_text.h"

namespace koraxsim {
namespace {

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

// What --fault takes: the device's faults, and two that have orders of their own.
std::vector<std::string> FaultNames() {
    std::vector<std::string> names = {"no-paper", "silent"};
    for (const sim::DeviceFault& fault : sim::DeviceFaults()) names.emplace_back(fault.name);
    return names;
}

sim::Script ReadScript(const std::string& name) {
    const std::string text = ReadFile(name);
    try {
        return sim::Script(text);
    } catch (const sim::OrderError& error) {
        throw sim::OrderError(fmt::format("{}, {}", name, error.what()));
    }
}

}  // namespace

std::chrono::sys_seconds LocalTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return std::chrono::sys_seconds{std::chrono::seconds{timegm(&local)}};
}

std::optional<int> ParseCommandLine(int argc, char** argv, Settings& settings) {
    CLI::App app{
        "A simulated fiscal device on a pseudo-terminal. Prints the name of the device to open, "
        "then the paper as it grows. Lines of input are orders; \"help\" lists them. Ends on "
        "Ctrl-C.",
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
    app.add_option("--fault", settings.faults, "start with a fault; may be repeated")
        ->check(CLI::IsMember(FaultNames()));
    app.add_option("--order", settings.orders, "begin with an order; may be repeated");
    std::string script;
    app.add_option("--script", script, "orders that wait for their time or an exchange");
    app.add_option("--record", settings.record, "write what passes on the line here");
    app.add_option("--answer-delay", settings.answer_delay_ms, "delay every answer by milliseconds")
        ->check(CLI::Range(0, 60000));
    app.add_option("--baud", settings.baud, "keep the pace of a line with 11 bits a byte")
        ->check(CLI::Range(150, 115200));
    app.add_subcommand("commands", "list the names of all exchanges")->final_callback([&] {
        settings.task = Task::Commands;
    });
    CLI::App* decode = app.add_subcommand("decode", "show what a recording holds");
    decode->add_option("FILE", settings.decoded, "the recording")->required();
    decode->add_flag("--json", settings.json, "as one array of JSON");
    decode->final_callback([&] { settings.task = Task::Decode; });
    app.require_subcommand(0, 1);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error);
    }
    if (const sim::CodePage page = kCodePages.at(code_page); page != sim::CodePage::Cp852)
        settings.device.code_page = page;
    if (!display_kind.empty()) settings.device.display = kDisplays.at(display_kind);
    for (const std::string& order : settings.orders) sim::Order{order};
    if (!script.empty()) settings.script = ReadScript(script);
    if (!rates.empty()) settings.device.vat_rates = sim::RatesFromText(settings.device.type, rates);
    settings.device.clock = clock.empty() ? LocalTime() : ClockFromText(clock);
    settings.device.daily_reports = PastDays(past_days, settings.device.clock);
    return std::nullopt;
}

}  // namespace koraxsim
