#include "sim/koraxsim/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace koraxsim {
namespace {

void WriteAll(const Descriptor& file, std::string_view text, const std::string& name) {
    while (!text.empty()) {
        const ssize_t count = write(file.get(), text.data(), text.size());
        if (count < 0 && errno != EINTR) ThrowSystemError(name);
        if (count > 0) text.remove_prefix(static_cast<std::size_t>(count));
    }
}

}  // namespace

std::string ReadFile(const std::string& name) {
    const Descriptor file(open(name.c_str(), O_RDONLY | O_CLOEXEC), name);
    std::string contents;
    std::array<char, 65536> portion;
    while (true) {
        const ssize_t count = read(file.get(), portion.data(), portion.size());
        if (count < 0 && errno != EINTR) ThrowSystemError(name);
        if (count == 0) return contents;
        if (count > 0) contents.append(portion.data(), static_cast<std::size_t>(count));
    }
}

void WriteFile(const std::string& name, std::string_view contents) {
    constexpr int kFlags = O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC;
    WriteAll(Descriptor(open(name.c_str(), kFlags, 0666), name), contents, name);
}

// A file that is there already may be readable by others.
GrowingFile::GrowingFile(const std::string& name)
    : name_(name),
      file_(open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0600), name) {
    struct stat state {};
    const bool plain = fstat(file_.get(), &state) == 0 && S_ISREG(state.st_mode);
    if (plain && fchmod(file_.get(), 0600) != 0) ThrowSystemError(name);
}

void GrowingFile::Append(std::string_view text) {
    WriteAll(file_, text, name_);
}

}  // namespace koraxsim
