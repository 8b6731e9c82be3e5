#include "sim/koraxsim/pseudo_terminal.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <termios.h>

#include <array>

namespace koraxsim {
namespace {

std::string NameOfSlave(int master) {
    std::array<char, 128> name{};
    if (grantpt(master) != 0 || unlockpt(master) != 0 ||
        ptsname_r(master, name.data(), name.size()) != 0)
        ThrowSystemError("pseudo-terminal");
    return name.data();
}

void MakeRaw(int terminal) {
    termios settings{};
    if (tcgetattr(terminal, &settings) != 0) ThrowSystemError("settings of the pseudo-terminal");
    cfmakeraw(&settings);
    if (tcsetattr(terminal, TCSANOW, &settings) != 0)
        ThrowSystemError("settings of the pseudo-terminal");
}

}  // namespace

PseudoTerminal::PseudoTerminal()
    : master_(open("/dev/ptmx", O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC), "pseudo-terminal"),
      name_(NameOfSlave(master_.get())),
      slave_(open(name_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC), name_),
      watch_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC), "watching the pseudo-terminal") {
    MakeRaw(slave_.get());
    if (inotify_add_watch(watch_.get(), name_.c_str(), IN_CLOSE) < 0)
        ThrowSystemError("watching the pseudo-terminal");
}

std::vector<std::uint8_t> PseudoTerminal::Read(std::size_t most) {
    std::vector<std::uint8_t> bytes(most);
    const ssize_t count = read(master_.get(), bytes.data(), bytes.size());
    if (count < 0 && errno != EAGAIN && errno != EINTR) ThrowSystemError(name_);
    bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return bytes;
}

void PseudoTerminal::Write(std::span<const std::uint8_t> bytes) {
    if (bytes.empty()) return;
    const ssize_t count = write(master_.get(), bytes.data(), bytes.size());
    if (count < 0 && errno != EAGAIN && errno != EINTR) ThrowSystemError(name_);
}

// A serial port forgets that it was opened exclusively when its last user closes it. This one is
// never closed for good, so a host that was killed would keep it from all others.
void PseudoTerminal::TakeDeparture() {
    std::array<char, 4096> events;
    while (read(watch_.get(), events.data(), events.size()) > 0) {
    }
    ioctl(slave_.get(), TIOCNXCL);
}

DeviceLink::DeviceLink(std::filesystem::path link, const std::string& device)
    : link_(std::move(link)), device_(device) {
    namespace fs = std::filesystem;
    if (fs::is_symlink(fs::symlink_status(link_)) && (Ours() || !fs::exists(link_)))
        fs::remove(link_);
    fs::create_symlink(device_, link_);
}

DeviceLink::~DeviceLink() {
    std::error_code ignored;
    if (Ours()) std::filesystem::remove(link_, ignored);
}

bool DeviceLink::Ours() const {
    std::error_code absent;
    return std::filesystem::read_symlink(link_, absent) == device_;
}

}  // namespace koraxsim
