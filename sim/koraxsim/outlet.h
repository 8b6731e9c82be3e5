// Text for standard output and standard error that never makes the device wait for its reader.
#pragma once

#include <string>
#include <string_view>

namespace koraxsim {

class Outlet {
  public:
    explicit Outlet(int descriptor) : descriptor_(descriptor) {}

    /// Takes a text. When far too much of it is unread already, it is lost.
    void Put(std::string_view text);
    /// Passes on what the reader has room for. `patience` is the longest wait in milliseconds.
    void Flush(int patience = 0);

    /// To poll for room, or -1 when there is nothing to pass on.
    int waiting() const { return text_.empty() ? -1 : descriptor_; }

  private:
    int descriptor_;
    std::string text_;
};

}  // namespace koraxsim
