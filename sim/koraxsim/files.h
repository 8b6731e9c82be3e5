// Files as a whole, and one that grows.
#pragma once

#include <string>
#include <string_view>

#include "sim/koraxsim/descriptor.h"

namespace koraxsim {

/// Throws std::system_error.
std::string ReadFile(const std::string& name);
/// Replaces the file. Throws std::system_error.
void WriteFile(const std::string& name, std::string_view contents);

/// A file begun anew, for its owner's eyes only.
class GrowingFile {
  public:
    /// Throws std::system_error, as all of this does.
    explicit GrowingFile(const std::string& name);
    void Append(std::string_view text);

  private:
    std::string name_;
    Descriptor file_;
};

}  // namespace koraxsim
