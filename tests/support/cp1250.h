// Text as an application passes it to the driver: code page 1250.
#pragma once

#include <iconv.h>

#include <string>

inline std::string Cp1250(const std::string& utf8) {
    std::string in = utf8, out(utf8.size(), '\0');
    char *source = in.data(), *target = out.data();
    std::size_t source_left = in.size(), target_left = out.size();
    const iconv_t converter = iconv_open("CP1250", "UTF-8");
    iconv(converter, &source, &source_left, &target, &target_left);
    iconv_close(converter);
    out.resize(out.size() - target_left);
    return out;
}
