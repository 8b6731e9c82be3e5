// A file descriptor that closes itself, and the error of a system call as an exception.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

namespace koraxsim {

[[noreturn]] inline void ThrowSystemError(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

class Descriptor {
  public:
    Descriptor() = default;
    /// Takes a descriptor over; a negative one throws the error of the call that failed to get it.
    Descriptor(int descriptor, const std::string& what) : descriptor_(descriptor) {
        if (descriptor < 0) ThrowSystemError(what);
    }
    ~Descriptor() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    Descriptor(Descriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }

    int get() const { return descriptor_; }

  private:
    int descriptor_ = -1;
};

}  // namespace koraxsim
