// Calls of the exported functions written as text, for tables of cases:
//   pReadFooterLines & & null          & a cell or buffer to be filled, null a null pointer
//   pReceiptItem 1 'Chleb' 1 0 2 0 'kg' 250 &500     a cell that holds 500 before the call
// Texts are written as a script's bytes are: 'text', 'text'28, B9'leb', 61x300.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct Outcome {
    struct Value {
        bool is_text;
        std::string written;  // "-" for a cell or buffer that the call left untouched
    };
    std::vector<Value> values;  // the result, then the cells and buffers in their order
    int32_t last_error = 0;
};

// The words of a line: blanks inside quotes do not part them.
std::vector<std::string> Words(std::string_view line);

Outcome CallByText(const std::string& call);

// A value as it is written in tables: a text's bytes in one form only, numbers as they are.
std::string Written(bool is_text, const std::string& word);
