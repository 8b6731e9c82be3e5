#include "sim/koraxsim/outlet.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace koraxsim {
namespace {

constexpr std::size_t kMostUnread = 1 << 20;
// A pipe that polls as writable takes this much without blocking, whatever its descriptor's mode.
constexpr std::size_t kPortion = 512;

}  // namespace

void Outlet::Put(std::string_view text) {
    if (text_.size() + text.size() <= kMostUnread) text_ += text;
}

void Outlet::Flush(int patience) {
    while (!text_.empty()) {
        pollfd ready{descriptor_, POLLOUT, 0};
        if (poll(&ready, 1, patience) <= 0 || !(ready.revents & POLLOUT)) {
            // A reader that is gone for good wants nothing more.
            if (ready.revents & (POLLERR | POLLHUP | POLLNVAL)) text_.clear();
            return;
        }
        const ssize_t count = write(descriptor_, text_.data(), std::min(text_.size(), kPortion));
        if (count < 0 && errno != EINTR && errno != EAGAIN) {
            text_.clear();
            return;
        }
        if (count > 0) text_.erase(0, static_cast<std::size_t>(count));
    }
}

}  // namespace koraxsim
