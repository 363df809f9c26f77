#include "SourceTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>

namespace larkspan::house {
namespace {

struct Word {
    /// Part of what the pattern matches: searched first, since a regular expression is slow.
    const char* part;
    const char* pattern;
    const char* instead;
};

/// Words that the documentation of Qt, X11 and Apple does not use in this way.
const Word words[] = {
    {"ompl", R"(\b[Cc]ompl(ain|aints?)\b)", "error"},
    {"anew", R"(\banew\b)", "again"},
    {" no ", R"(\b(?!there )(?!There )\w+ (is|are) no (?!longer\b|more\b|later\b|wider\b))",
     "is not a"},
    {" of", R"(\b(tell|tells|told|telling|hear|hears|heard) of\b)",
     "report, announce, be notified"},
    {"Answers", R"(\bAnswers (whether|true|false|the|how|what|why|0|nothing)\b)", "Returns"},
    {"no sense", R"(\bmakes no sense\b)", "is invalid"},
};

/// The file that lists the words.
const std::string exception = "tests/house/WordsTest.cpp";

std::vector<std::string> filesToCheck() {
    auto paths = filesUnder({"src", "tests", "bench", "demo", "docs", "scripts", ".ci"},
                            {".h", ".cpp", ".mm", ".qml", ".txt", ".md", ".json", ""});
    for (const auto* file : {"README.md", "CONTRIBUTING.md", "CHANGELOG.md", "Makefile"})
        paths.emplace_back(file);
    std::erase(paths, exception);
    return paths;
}

bool isIn(const std::string& text, const Word& word) {
    return text.find(word.part) != std::string::npos &&
           std::regex_search(text, std::regex(word.pattern));
}

TEST(Words, AreThoseOfThePlatformsDocumentation) {
    std::vector<std::string> errors;
    const auto paths = filesToCheck();
    EXPECT_GT(paths.size(), 300U) << "is the tree at LARKSPAN_SOURCE_ROOT?";
    for (const auto& path : paths)
        for (const auto& line : linesOf(path))
            for (const auto& word : words)
                if (isIn(line.text, word))
                    errors.push_back(at(line, std::string("better: ") + word.instead));
    EXPECT_TRUE(errors.empty()) << listed(errors);
}

// Tests the patterns themselves, which must neither match everything nor nothing.
TEST(Words, ThePatternsMatchWhatTheyShould) {
    const auto isFound = [](const std::string& text) {
        return std::ranges::any_of(words, [&](const auto& word) { return isIn(text, word); });
    };
    for (const auto* text : {"one complaint", "read anew", "what is no app", "it tells of Spaces",
                             "Answers whether it ran"})
        EXPECT_TRUE(isFound(text)) << text;
    for (const auto* text : {"there is no Dock", "There are no tiles", "it is no longer there",
                             "the server answers", "a renewal", "compile"})
        EXPECT_FALSE(isFound(text)) << text;
}

} // namespace
} // namespace larkspan::house
