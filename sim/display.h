// The customer display.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sim/device.h"

namespace sim {

class Display {
  public:
    explicit Display(DisplayKind kind);

    DisplayKind kind() const { return kind_; }
    /// What it shows, place by place, without blanks at the ends.
    const std::vector<std::string>& texts() const { return texts_; }
    /// All of it in one line for people.
    std::string OneLineText() const;

    /// Puts a text in a place, cut to the place's width; false when there is no such place.
    bool Show(int place, std::string_view text);
    void Clear();

  private:
    DisplayKind kind_;
    std::vector<std::string> texts_;
};

}  // namespace sim
