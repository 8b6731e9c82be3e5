// The finished library as the linker shows it, held against the reviewed list and the header.
#include <algorithm>
#include <array>
#include <cstdio>
#include <regex>
#include <set>

#include "system/simulator_process.h"

namespace {

using Names = std::set<std::string>;

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
    for (std::sregex_iterator at(text.begin(), text.end(), regex), end; at != end; ++at) {
        names.insert((*at)[1]);
    }
    return names;
}

Names Difference(const Names& a, const Names& b) {
    Names only;
    std::set_difference(a.begin(), a.end(), b.begin(), b.end(), std::inserter(only, only.end()));
    return only;
}

const std::string kSource = PROJECT_SOURCE_DIR;

Names Exported() {
    return Matches(OutputOf("nm -D --defined-only " KORAXDR_LIBRARY), R"( T (\w+))");
}

}  // namespace

TEST(Library, ShowsExactlyTheReviewedList) {
    const Names listed =
        Matches(system_tests::Contents(kSource + "/src/exports.txt"), R"((?:^|\n)(\w+))");
    ASSERT_GT(listed.size(), 50u);
    EXPECT_EQ(Names(), Difference(listed, Exported())) << "listed, not exported";
    EXPECT_EQ(Names(), Difference(Exported(), listed)) << "exported, not listed";
}

TEST(Library, HeaderDeclaresWhatIsExported) {
    const Names declared =
        Matches(system_tests::Contents(kSource + "/include/koraxdr.h"), R"(KORAX_CALL (\w+)\()");
    EXPECT_EQ(Names(), Difference(declared, Exported())) << "declared, not exported";
    EXPECT_EQ(Names(), Difference(Exported(), declared)) << "exported, not declared";
}

TEST(Library, DocumentationNamesWhatIsExported) {
    const std::string page = system_tests::Contents(kSource + "/docs/functions.md");
    const Names documented = Matches(page, "`(\\w+)`");
    EXPECT_EQ(Names(), Difference(documented, Exported())) << "documented, not exported";
    EXPECT_EQ(Names(), Difference(Exported(), documented)) << "exported, not documented";
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

TEST(Library, CarriesAVersionedName) {
    const Names soname =
        Matches(OutputOf("readelf -d " KORAXDR_LIBRARY), R"(soname: \[([^\]]+)\])");
    EXPECT_EQ(Names{"libkoraxdr.so.4"}, soname);
}
