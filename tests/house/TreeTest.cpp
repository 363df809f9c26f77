#include "SourceTree.h"

#include <gtest/gtest.h>

#include <regex>

namespace larkspan::house {
namespace {

const std::vector<std::string> everywhere = {"src",  "tests", "bench",   "docs",
                                             "demo", "cmake", "scripts", ".ci"};
const std::vector<std::string> allText = {".h",     ".cpp", ".mm",   ".qml", ".txt",
                                          ".cmake", ".md",  ".json", ".sh",  ""};

TEST(Tree, NoFileIsTooLong) {
    struct Limit {
        std::vector<std::string> endings;
        std::size_t lines;
    };
    std::vector<std::string> errors;
    for (const auto& limit : {Limit{{".h", ".cpp", ".mm"}, 450}, Limit{{".qml"}, 300}}) {
        for (const auto& path : filesUnder({"src", "tests", "bench"}, limit.endings)) {
            const auto lines = linesOf(path).size();
            if (lines > limit.lines)
                errors.push_back(path + ":1: " + std::to_string(lines) + " lines, more than " +
                                 std::to_string(limit.lines));
        }
    }
    EXPECT_TRUE(errors.empty()) << listed(errors);
}

TEST(Tree, NoVagueNames) {
    const std::regex vague(
        R"((^|/)(utils?|helpers?|common|misc|manager)(/|\.)|(Utils?|Helpers?)\.)");
    for (const auto& path : filesUnder({"src", "tests", "bench"}, allText))
        EXPECT_FALSE(std::regex_search(path, vague)) << path << ": name it after what it is";
}

struct Banned {
    const char* pattern;
    const char* why;
};

/// Words that must not be used in the tree; here they are written so that they do not match
/// themselves.
const Banned bannedWords[] = {
    {R"((TO)DO(?!\([^)]+\): \S))", "say why and when: TO"
                                   "DO(reason): what"},
    {R"(FIX(ME)|\bXX(X)\b)", "mend it, or write it where a user looks"},
    {R"((/ho)me/\w|(/Use)rs/\w|(/wo)rk/\w)", "a path of one machine"},
    {R"(\b(Pa)rt \d|\b(iss)ue #?\d)", "say it here: the reader has no other paper"},
    {R"(std::(this_thread::sleep)_|\b(u|nano)?slee(p)\s*\(\d)", "wait for a condition instead"},
};

TEST(Tree, NoBannedWords) {
    std::vector<std::string> errors;
    for (const auto& banned : bannedWords) {
        const std::regex pattern(banned.pattern);
        for (const auto& path : filesUnder(everywhere, allText))
            for (const auto& line : linesOf(path))
                if (std::regex_search(line.text, pattern)) errors.push_back(at(line, banned.why));
    }
    EXPECT_TRUE(errors.empty()) << listed(errors);
}

// Only the scheduler knows the time: a rule that reads a clock cannot run in virtual time.
TEST(Tree, NoClockBesideTheScheduler) {
    const std::regex clock(
        R"(std::chrono::\w+_clock::now|clock_gettime\(|\btime\((nullptr|NULL|0)\))");
    std::vector<std::string> errors;
    for (const auto& path : filesUnder({"src"}, {".h", ".cpp", ".mm"})) {
        if (path.find("Scheduler") != std::string::npos || path.starts_with("src/adapters/qt/") ||
            path.starts_with("src/adapters/x11/") || path.starts_with("src/adapters/freedesktop/"))
            continue;
        for (const auto& line : linesOf(path))
            if (std::regex_search(line.text, clock))
                errors.push_back(at(line, "take the Scheduler"));
    }
    EXPECT_TRUE(errors.empty()) << listed(errors);
}

TEST(Tree, HeadersAreIncludedOnce) {
    for (const auto& path : filesUnder({"src"}, {".h"})) {
        const auto lines = linesOf(path);
        ASSERT_FALSE(lines.empty()) << path;
        EXPECT_EQ(lines.front().text, "#pragma once") << path;
    }
}

} // namespace
} // namespace larkspan::house
