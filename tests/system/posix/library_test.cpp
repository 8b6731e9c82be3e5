// The finished library as the linker shows it, held against the reviewed list and the header.
#include <algorithm>
#include <array>
#include <cstdio>
#include <regex>
#include <set>

#include "system/simulator_process.h"

namespace {

using Names = std::set<std::string>;

const std::string kSource = PROJECT_SOURCE_DIR;

std::string OutputOf(const std::string& command) {
    std::string output;
    std::array<char, 4096> part;
    FILE* pipe = popen(command.c_str(), "r");
    while (size_t count = fread(part.data(), 1, part.size(), pipe))
        output.append(part.data(), count);
    EXPECT_EQ(0, pclose(pipe)) << command;
    return output;
}

Names Matches(const std::string& text, const std::string& pattern) {
    const std::regex regex(pattern);
    Names names;
    for (std::sregex_iterator at(text.begin(), text.end(), regex), end; at != end; ++at)
        names.insert((*at)[1]);
    return names;
}

}  // namespace

TEST(Library, ExportsWhatIsListedDeclaredAndDocumented) {
    const Names exported =
        Matches(OutputOf("nm -D --defined-only " KORAXDR_LIBRARY), R"( T (\w+))");
    EXPECT_GT(exported.size(), 50u);
    for (const auto& [file, pattern] : {std::pair("/src/exports.txt", R"((?:^|\n)(\w+))"),
                                        {"/include/koraxdr.h", R"(KORAX_CALL (\w+)\()"},
                                        {"/docs/functions.md", R"(`((?!KORAX)\w+)`)"}}) {
        const Names named = Matches(Contents(kSource + file), pattern);
        Names differing;
        std::ranges::set_symmetric_difference(exported, named,
                                              std::inserter(differing, differing.end()));
        EXPECT_EQ(Names(), differing) << file;
    }
    EXPECT_EQ("", OutputOf(kSource + "/script/functions-page --check"));
}

TEST(Library, ImportsNoAllocatorAndNoExceptionRuntime) {
    const Names imported =
        Matches(OutputOf("nm -D --undefined-only " KORAXDR_LIBRARY), R"([Uw] (\w+))");
    const std::regex unwanted(
        "malloc|calloc|realloc|free|_Zn.*|_Zd.*|__cxa_(?!finalize).*|_Unwind.*|"
        "__gxx_personality.*");
    for (const std::string& name : imported) {
        // The sanitizers bring their own runtime, which is not the library's doing.
        if (name.find("asan") != std::string::npos || name.find("ubsan") != std::string::npos)
            return;
        EXPECT_FALSE(std::regex_match(name, unwanted)) << name;
    }
    const Names needed =
        Matches(OutputOf("readelf -d " KORAXDR_LIBRARY), R"(NEEDED.*\[([^\]]+)\])");
    EXPECT_EQ(Names{"libc.so.6"}, needed);
}
