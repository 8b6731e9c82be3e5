// The modal notice of the debug mode.
#pragma once

namespace platform {

// Shows the text (code page 1250) until the user confirms it.
void ShowNotice(const char* caption, const char* text);

}  // namespace platform
