// Copying texts into buffers of their own.
#pragma once

#include <cstddef>

// Copies a text with its terminator; at most size - 1 characters of it.
void KopiujTekst(char* target, const char* text, std::size_t size);
// Pads a text with blanks to a width; a longer one stays as it is. The buffer holds width + 1
// bytes.
void DopelnijOdstepami(char* text, std::size_t width);
