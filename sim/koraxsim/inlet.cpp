#include "sim/koraxsim/inlet.h"

#include <array>
#include <csignal>

namespace koraxsim {

// Reading from a terminal in its background fails then, instead of stopping this program.
Inlet::Inlet() {
    std::signal(SIGTTIN, SIG_IGN);
}

std::vector<std::string> Inlet::TakeLines() {
    constexpr std::size_t kLongestLine = 4096;
    std::array<char, 256> bytes;
    const ssize_t count = read(STDIN_FILENO, bytes.data(), bytes.size());
    open_ = count > 0 && rest_.size() < kLongestLine;
    if (count > 0) rest_.append(bytes.data(), static_cast<std::size_t>(count));
    std::vector<std::string> lines;
    for (std::size_t end; (end = rest_.find('\n')) != std::string::npos; rest_.erase(0, end + 1))
        lines.push_back(rest_.substr(0, end));
    return lines;
}

}  // namespace koraxsim
