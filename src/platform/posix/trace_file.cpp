#include "platform/trace_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace platform {
namespace {

int file = -1;

}  // namespace

bool ReadEnvironment(const char* name, char* value, std::size_t size) {
    const char* found = std::getenv(name);
    if (found == nullptr) return false;
    const std::size_t length = strnlen(found, size);
    if (length == size) return false;
    std::memcpy(value, found, length + 1);
    return true;
}

bool OpenTraceFile(const char* path, bool& is_new) {
    CloseTraceFile();
    // A pipe that nobody reads must not hold the driver up.
    const int opened = open(path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK,
                            S_IRUSR | S_IWUSR);
    if (opened < 0) return false;
    // Not on the number of a closed standard stream, where others would write into it.
    file = fcntl(opened, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    close(opened);
    struct stat status {};
    is_new = file >= 0 && fstat(file, &status) == 0 && status.st_size == 0;
    return file >= 0;
}

void AppendToTraceFile(const char* text, std::size_t length) {
    while (file >= 0 && length > 0) {
        const ssize_t step = write(file, text, length);
        if (step < 0 && errno == EINTR) continue;
        if (step <= 0) return;
        text += step;
        length -= static_cast<std::size_t>(step);
    }
}

void CloseTraceFile() {
    if (file >= 0) close(std::exchange(file, -1));
}

}  // namespace platform
