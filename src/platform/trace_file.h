// The file that records the line, and the environment that names it. Nothing here allocates.
#pragma once

#include <cstddef>

namespace platform {

// The value of a variable of the environment; false when it is not set or does not fit.
bool ReadEnvironment(const char* name, char* value, std::size_t size);

// Opens a file for appending, made for its owner alone; at most one is open. False when that cannot
// be done. `is_new` tells whether there is nothing in it.
bool OpenTraceFile(const char* path, bool& is_new);
void AppendToTraceFile(const char* text, std::size_t length);
void CloseTraceFile();

}  // namespace platform
