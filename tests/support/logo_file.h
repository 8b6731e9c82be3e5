// A column of 8 dots on the left, in the format of the logo files.
#pragma once

#include <cstdio>
#include <fstream>
#include <string>

class LogoFile {
  public:
    explicit LogoFile(std::string name) : name_(std::move(name)) {
        std::string bytes(62 + 64 * 24, '\xFF');
        const std::string head = {'B', 'M', 0,      0, 0, 0, 0,  0, 0, 0, 62, 0, 0, 0, 40, 0,
                                  0,   0,   '\xC0', 0, 0, 0, 64, 0, 0, 0, 1,  0, 1, 0, 0,  0};
        bytes.replace(0, 62, std::string(62, '\0')).replace(0, head.size(), head);
        for (size_t row = 0; row < 64; ++row) bytes[62 + 24 * row] = '\0';
        std::ofstream(name_, std::ios::binary) << bytes;
    }
    ~LogoFile() { std::remove(name()); }
    LogoFile(const LogoFile&) = delete;
    LogoFile& operator=(const LogoFile&) = delete;

    const char* name() const { return name_.c_str(); }

  private:
    std::string name_;
};
