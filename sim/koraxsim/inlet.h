// Lines from standard input, without waiting for them.
#pragma once

#include <unistd.h>

#include <string>
#include <vector>

namespace koraxsim {

class Inlet {
  public:
    Inlet();

    /// To poll for more, or -1 when nothing comes any more: at the end of the input, or once it
    /// turns out that this program runs in the background of a terminal, whose lines are for
    /// others.
    int waiting() const { return open_ ? STDIN_FILENO : -1; }

    /// Reads what is there (the poll has told so): the lines that are complete.
    std::vector<std::string> TakeLines();

  private:
    bool open_ = true;
    std::string rest_;  // of a line that is not complete
};

}  // namespace koraxsim
