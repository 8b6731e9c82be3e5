// The paper as a file: text that grows as it is printed, or a picture of the whole.
#pragma once

#include <chrono>
#include <fstream>
#include <span>
#include <string>
#include <vector>

#include "sim/paper.h"

namespace koraxsim {

enum class PaperFormat { Text, Svg, Png, Pdf };

/// The format that the ending of a file's name stands for. Throws std::runtime_error for an ending
/// that none has.
PaperFormat PaperFormatOf(const std::string& file);

/// Writes elements into a file, which is begun anew; `now` is the device's time. Throws
/// std::runtime_error.
void WritePaper(const std::string& file, std::span<const sim::PaperElement> paper,
                std::chrono::sys_seconds now);

class PaperFile {
  public:
    /// Begins the file anew. Throws std::runtime_error.
    explicit PaperFile(std::string name);

    /// Takes what has been printed. Text is in the file when this returns; throws
    /// std::runtime_error where it cannot be written, and then takes no more of it.
    void Add(std::span<const sim::PaperElement> printed);
    /// Writes a picture of all that has been printed. Throws std::runtime_error.
    void Finish(std::chrono::sys_seconds now);

  private:
    std::string name_;
    PaperFormat format_;
    std::ofstream text_;
    std::vector<sim::PaperElement> sheet_;  // of a picture
};

}  // namespace koraxsim
