// Stands between this program and the system: the serial calls, the waits and the message box are
// written down with their arguments and answered from here. What the driver asks of the system is
// seen call by call, modem lines and failures included, which no pseudo-terminal has.
#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <vector>

namespace call_recorder {

inline constexpr DWORD kFailure = 31;  // the error of the call that fails

inline struct Calls {
    std::vector<std::string> seen;
    std::string failing;                 // the name of the call that fails from now on
    std::map<std::string, DWORD> moved;  // bytes that ReadFile and WriteFile move, if not all
    bool aborting = false;               // a damaged byte came: no transfer until ClearCommError
} recorded;

/// The calls since the last time this was asked, a line each.
std::string Taken();

/// Puts the recorder between this program and the system, for good.
void Install();

}  // namespace call_recorder
