// The driver's variables by their names, with the values that they have when the library is loaded:
// tests restore, set and look at them by this one list.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

struct Variable {
    std::function<int64_t()> get;
    std::function<void(int64_t)> set;
    int64_t loaded;
};

const std::map<std::string, Variable>& Variables();

// The names of those that differ from the values of a library just loaded.
std::string ChangedVariables();
