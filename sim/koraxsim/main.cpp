// koraxsim: a simulated fiscal device on a pseudo-terminal, its paper on standard output.
#include <fcntl.h>
#include <fmt/format.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <exception>

#include "sim/decode.h"
#include "sim/koraxsim/files.h"
#include "sim/koraxsim/options.h"
#include "sim/koraxsim/session.h"
#include "sim/names.h"

namespace koraxsim {
namespace {

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

void Decode(const Settings& settings) {
    const auto exchanges =
        sim::Decode(sim::ReadRecording(ReadFile(settings.decoded)), settings.device);
    fmt::print("{}", settings.json ? sim::DecodedJson(exchanges) : sim::DecodedText(exchanges));
}

void Perform(const Settings& settings) {
    switch (settings.task) {
        case Task::Commands:
            fmt::print("{}", sim::CommandsText());
            return;
        case Task::Decode:
            Decode(settings);
            return;
        case Task::Device:
            const Descriptor signals = EndingSignals();
            Session(settings).Run(signals);
            return;
    }
}

}  // namespace
}  // namespace koraxsim

int main(int argc, char** argv) try {
    koraxsim::KeepStandardStreams();
    koraxsim::Settings settings;
    if (const auto code = koraxsim::ParseCommandLine(argc, argv, settings)) return *code;
    koraxsim::Perform(settings);
    return 0;
} catch (const std::exception& error) {
    fmt::print(stderr, "koraxsim: {}\n", error.what());
    return 1;
}
