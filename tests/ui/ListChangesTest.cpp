#include "ui/bar/ListChanges.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace larkspan::ui {

namespace {

/// Letters stand for elements; what is in both strings stays the same element.
std::vector<ListChange> changesBetween(const std::string& before, const std::string& after) {
    std::vector<std::optional<std::size_t>> sources;
    for (const char letter : after) {
        const auto old = before.find(letter);
        sources.push_back(old == std::string::npos ? std::nullopt : std::optional(old));
    }
    return listChanges(before.size(), sources);
}

std::string applied(std::string list, const std::string& after,
                    const std::vector<ListChange>& changes) {
    for (const ListChange& change : changes) {
        if (change.kind == ListChange::Kind::insert) {
            list.insert(change.to, 1, after[change.element]);
            continue;
        }
        const char letter = list[change.from];
        list.erase(change.from, 1);
        if (change.kind == ListChange::Kind::move) list.insert(change.to, 1, letter);
    }
    return list;
}

} // namespace

TEST(ListChanges, TakeTheFewestSteps) {
    struct Case {
        const char* before;
        const char* after;
        std::size_t steps;
    };
    for (const Case& one :
         {Case{"", "", 0}, Case{"abc", "abc", 0}, Case{"", "abc", 3}, Case{"abc", "", 3},
          Case{"abcde", "eabcd", 1}, Case{"abcde", "bcdea", 1}, Case{"abc", "cba", 2},
          Case{"abcd", "axcd", 2}, Case{"abcdef", "afx", 5}}) {
        const auto changes = changesBetween(one.before, one.after);
        EXPECT_EQ(changes.size(), one.steps) << one.before << " to " << one.after;
        EXPECT_EQ(applied(one.before, one.after, changes), one.after);
    }
}

TEST(ListChanges, LeadFromAnyListToAnyOther) {
    constexpr unsigned seed = 20;
    std::mt19937 random(seed);
    const auto shuffled = [&random] {
        std::string letters = "abcdefghijklmnop";
        std::shuffle(letters.begin(), letters.end(), random);
        return letters.substr(0, random() % letters.size());
    };
    for (int round = 0; round < 500; ++round) {
        const std::string before = shuffled();
        const std::string after = shuffled();
        ASSERT_EQ(applied(before, after, changesBetween(before, after)), after)
            << "seed " << seed << ", round " << round << ", from " << before;
    }
}

} // namespace larkspan::ui
