// The transport: a pseudo-terminal whose other side hosts open as a serial port, and a stable name
// for it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "sim/koraxsim/descriptor.h"

namespace koraxsim {

class PseudoTerminal {
  public:
    /// Opens one, in raw mode. Throws std::system_error.
    PseudoTerminal();

    /// Name of the device that hosts open.
    const std::string& name() const { return name_; }

    /// Bytes from the host, at most `most`, without waiting.
    std::vector<std::uint8_t> Read(std::size_t most);
    /// Sends without waiting. Like a serial line, it loses what nobody reads.
    void Write(std::span<const std::uint8_t> bytes);
    /// To poll for bytes from the host.
    int line() const { return master_.get(); }

    /// To poll for hosts that go away, and what has to be done then.
    int departures() const { return watch_.get(); }
    void TakeDeparture();

  private:
    Descriptor master_;
    std::string name_;
    Descriptor slave_;  // held open, so that the line survives hosts that come and go
    Descriptor watch_;
};

/// A symbolic link to the device for as long as this lives.
class DeviceLink {
  public:
    /// Replaces the link of a run that was killed. The link of a run that lives, or anything else
    /// in the way, is an error (std::system_error).
    DeviceLink(std::filesystem::path link, const std::string& device);
    ~DeviceLink();
    DeviceLink(const DeviceLink&) = delete;
    DeviceLink& operator=(const DeviceLink&) = delete;

    /// While the device is away there is no link; the name stays claimed.
    void Remove();
    void LeadTo(const std::string& device);

  private:
    bool Ours() const;

    std::filesystem::path link_;
    std::string device_;
    Descriptor claim_;
};

}  // namespace koraxsim
