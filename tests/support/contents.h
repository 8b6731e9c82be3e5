#pragma once

#include <cstdint>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

inline std::string Contents(const std::string& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

// A file whose lines are a number and what belongs to it, but for comments.
inline std::map<int32_t, std::string> NumberedLines(const std::string& file) {
    std::map<int32_t, std::string> lines;
    std::istringstream input(Contents(file));
    for (std::string line; std::getline(input, line);) {
        if (line.starts_with('#')) continue;
        std::size_t digits = 0;
        const int32_t number = std::stoi(line, &digits);
        lines[number] = line.size() > digits ? line.substr(digits + 1) : "";
    }
    return lines;
}
