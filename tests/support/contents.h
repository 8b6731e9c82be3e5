#pragma once

#include <fstream>
#include <sstream>
#include <string>

inline std::string Contents(const std::string& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}
