#include "sim/koraxsim/pseudo_terminal.h"

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <termios.h>

#include <array>
#include <cstddef>
#include <cstdlib>

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

// A name in the kernel that ends with its process: while it is bound, the link has a living owner.
Descriptor Claim(const std::filesystem::path& link) {
    Descriptor claim(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0), "claim of the link");
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::string name = "koraxsim:" + std::filesystem::absolute(link).lexically_normal().string();
    constexpr std::size_t kLongest = sizeof address.sun_path - 1;  // behind the zero of such a name
    if (name.size() > kLongest) name.erase(0, name.size() - kLongest);
    name.copy(address.sun_path + 1, kLongest);
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
    if (bind(claim.get(), reinterpret_cast<const sockaddr*>(&address), length) != 0)
        ThrowSystemError("link " + link.string());
    return claim;
}

// A killed run's link still leads to a terminal's name, which may be another terminal's by now.
bool LeftBehind(const std::filesystem::path& link) {
    std::error_code absent;
    return std::filesystem::read_symlink(link, absent).string().starts_with("/dev/pts/");
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
// never closed for good, so a host that was killed would keep it from all others. And it drops the
// parity bit: a host whose settings are there already, but for that, is told that they were
// refused. So something that does nothing here is left for the next host to change.
void PseudoTerminal::TakeDeparture() {
    std::array<char, 4096> events;
    while (read(watch_.get(), events.data(), events.size()) > 0) {
    }
    ioctl(slave_.get(), TIOCNXCL);
    termios settings{};
    if (tcgetattr(slave_.get(), &settings) != 0) return;
    settings.c_cflag &= ~static_cast<tcflag_t>(CLOCAL);
    tcsetattr(slave_.get(), TCSANOW, &settings);
}

DeviceLink::DeviceLink(std::filesystem::path link, const std::string& device)
    : link_(std::move(link)), device_(device), claim_(Claim(link_)) {
    if (LeftBehind(link_)) std::filesystem::remove(link_);
    std::filesystem::create_symlink(device_, link_);
}

DeviceLink::~DeviceLink() {
    Remove();
}

void DeviceLink::Remove() {
    std::error_code ignored;
    if (Ours()) std::filesystem::remove(link_, ignored);
}

void DeviceLink::LeadTo(const std::string& device) {
    device_ = device;
    std::filesystem::create_symlink(device_, link_);
}

bool DeviceLink::Ours() const {
    std::error_code absent;
    return std::filesystem::read_symlink(link_, absent) == device_;
}

}  // namespace koraxsim
