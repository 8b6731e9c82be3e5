// The debug log: a small formatter that writes trace lines to standard output and to a file.
#pragma once

#include <cstdint>

// Directives: %d (one or two digits behind it are a width, the first of two being the units), %s,
// %F (text appended to the log file's name "debug.txt"). The first argument is not used.
void Printf(int32_t ignored, const char* format, ...);

// Appends the text and a line break to the file; a file that cannot be opened is passed over.
void ToFile(const char* file_name, const char* text);
