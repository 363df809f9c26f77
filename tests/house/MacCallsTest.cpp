#include "SourceTree.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>

namespace larkspan::house {
namespace {

std::set<std::string> namesIn(const std::vector<std::string>& paths, const std::regex& pattern) {
    std::set<std::string> names;
    for (const auto& path : paths)
        for (const auto& line : linesOf(path))
            for (auto match = std::sregex_iterator(line.text.begin(), line.text.end(), pattern);
                 match != std::sregex_iterator(); ++match)
                names.insert((*match)[1]);
    return names;
}

std::set<std::string> documentedNames() {
    return namesIn({"docs/macos.md"}, std::regex("`([^`]+)`"));
}

// No compiler can check an undeclared function, so the page must give the source of its type.
TEST(MacCalls, EveryPrivateFunctionIsDocumented) {
    const auto names = namesIn({"src/adapters/mac/PrivateFunctions.h"},
                               std::regex(R"re("(_?(?:SLS|CGS|CoreDock|AX)\w+)")re"));
    EXPECT_GT(names.size(), 15U) << "hardly any name was found in the table of private functions";
    const auto documented = documentedNames();
    for (const auto& name : names)
        EXPECT_TRUE(documented.contains(name)) << name << " is missing in docs/macos.md";
}

TEST(MacCalls, EveryClassFoundByNameIsDocumented) {
    const auto names = namesIn(filesUnder({"src/adapters/mac"}, {".h", ".mm"}),
                               std::regex(R"re(NSClassFromString\(@"(\w+)"\))re"));
    EXPECT_FALSE(names.empty());
    const auto documented = documentedNames();
    for (const auto& name : names)
        EXPECT_TRUE(documented.contains(name)) << name << " is missing in docs/macos.md";
}

// A lookup elsewhere would not be in the table, and not on the page.
TEST(MacCalls, PrivateFunctionsAreLookedUpInTheirTableOnly) {
    for (const auto& path : filesUnder({"src"}, {".h", ".cpp", ".mm"}))
        for (const auto& line : linesOf(path))
            EXPECT_TRUE(line.text.find("dlsym(") == std::string::npos ||
                        path == "src/adapters/mac/PrivateFunctions.mm")
                << at(line, "add it to PrivateFunctions.h");
}

} // namespace
} // namespace larkspan::house
