#include "adapters/mac/PrivateFunction.h"
#include "adapters/mac/WindowMove.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace larkspan::mac {
namespace {

int answer() {
    return 42;
}

/// The functions of a system, and the names that were looked up.
struct Library {
    std::vector<std::string> names;
    std::vector<std::string> lookedFor;

    SymbolLookup lookup() {
        return [this](const char* name) {
            lookedFor.emplace_back(name);
            const bool isThere = std::ranges::find(names, name) != names.end();
            return isThere ? reinterpret_cast<void*>(&answer) : nullptr;
        };
    }
};

TEST(PrivateFunction, IsLookedUpOnFirstUseNewestNameFirst) {
    struct Case {
        std::vector<std::string> names;
        bool isFound;
        std::vector<std::string> lookedFor;
    };
    const Case cases[] = {
        {{"SLSAnswer", "CGSAnswer"}, true, {"SLSAnswer"}},
        {{"CGSAnswer"}, true, {"SLSAnswer", "CGSAnswer"}},
        {{}, false, {"SLSAnswer", "CGSAnswer"}},
    };
    for (const auto& each : cases) {
        Library library{.names = each.names, .lookedFor = {}};
        const SymbolLookup lookup = library.lookup();
        const PrivateFunction<int()> function(lookup, {"SLSAnswer", "CGSAnswer"});
        EXPECT_TRUE(library.lookedFor.empty()) << "before the first use";
        for (int use = 0; use < 3; ++use) {
            ASSERT_EQ(function.get() != nullptr, each.isFound);
            if (each.isFound) {
                EXPECT_EQ(function.get()(), 42);
            }
        }
        EXPECT_EQ(library.lookedFor, each.lookedFor);
    }
}

TEST(PrivateFunction, RacingThreadsLookItUpOnce) {
    std::atomic<int> lookups = 0;
    const SymbolLookup lookup = [&](const char*) {
        ++lookups;
        return reinterpret_cast<void*>(&answer);
    };
    for (int round = 0; round < 100; ++round) {
        const PrivateFunction<int()> function(lookup, {"SLSAnswer"});
        std::atomic<int> waiting = 4;
        std::atomic<int> found = 0;
        std::vector<std::thread> threads;
        for (int thread = 0; thread < 4; ++thread)
            threads.emplace_back([&] {
                // All start at the same time.
                --waiting;
                while (waiting > 0)
                    std::this_thread::yield();
                if (function.get() == &answer) ++found;
            });
        for (auto& thread : threads)
            thread.join();
        ASSERT_EQ(found, 4);
        ASSERT_EQ(lookups, round + 1);
    }
}

TEST(WindowMove, EachSystemHasItsMethod) {
    struct Case {
        long major;
        long minor;
        WindowMove expected;
    };
    const Case cases[] = {
        {11, 7, WindowMove::managedSpace},
        {12, 6, WindowMove::managedSpace},
        {12, 7, WindowMove::compatibilityNumber},
        {13, 5, WindowMove::managedSpace},
        {13, 6, WindowMove::compatibilityNumber},
        {14, 4, WindowMove::managedSpace},
        {14, 5, WindowMove::compatibilityNumber},
        {15, 0, WindowMove::none},
        {15, 7, WindowMove::none},
        {26, 0, WindowMove::bridgedOperation},
        {27, 1, WindowMove::bridgedOperation},
    };
    for (const auto& each : cases)
        EXPECT_EQ(windowMoveOf(each.major, each.minor), each.expected)
            << each.major << '.' << each.minor;
}

} // namespace
} // namespace larkspan::mac
