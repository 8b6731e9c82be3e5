// Recordings of a line, as text: written as it happens, and read back.
//
//     # korax line 1 2026-01-31T12:00:00
//     0.001146 > 1bff
//     0.002291 < 06
//
// Seconds since the start, ">" to the device or "<" from it, the bytes. A remark begins with "#".
// The driver appends its sessions to one file: each begins with "# opened", and its seconds at 0.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "sim/line.h"

namespace sim {

/// Writes what it hears; the text goes to `write`.
class Recorder : public LineTap {
  public:
    Recorder(std::function<void(std::string_view)> write, std::chrono::sys_seconds start);

    void Byte(const LineByte& byte) override;
    void Remark(LineTime at, std::string_view text) override;
    /// Ends the line begun: what comes next begins another.
    void Flush();

  private:
    std::function<void(std::string_view)> write_;
    LineByte first_;    // of the line begun
    std::string line_;  // its bytes as hex; empty when none is begun
};

/// Bytes of one direction, or a remark.
struct RecordedEvent {
    LineTime at{};
    Direction direction = Direction::ToDevice;
    Bytes bytes;
    std::string remark;  // then there are no bytes
};

/// From one beginning of the seconds to the next.
using RecordedSession = std::vector<RecordedEvent>;

struct RecordingError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A last line that is torn is read as far as it goes, as is one that another session was appended
/// to. Throws RecordingError, with the number of the line.
std::vector<RecordedSession> ReadRecording(std::string_view text);

}  // namespace sim
