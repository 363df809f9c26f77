#include "model/Classification.h"
#include "model/ItemIdentity.h"
#include "model/PinnedSection.h"
#include "model/WindowChangeLine.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;

RunningApplication process(ProcessId pid, std::optional<std::string> bundle) {
    return {.pid = pid, .bundleIdentifier = std::move(bundle)};
}

TEST(ItemIdentity, IsTheBundleOfItsFirstProcessOnly) {
    EXPECT_THAT(itemIds({process(1, "a"), process(2, {}), process(3, "a"), process(4, "a"),
                         process(5, "b")}),
                ElementsAre("a", "pid:2", "pid:3", "pid:4", "b"));
}

TEST(PinnedSection, HasFinderFirstAndEachAppOnce) {
    EXPECT_THAT(pinnedSection({}), ElementsAre("com.apple.finder"));
    EXPECT_THAT(pinnedSection({"b", "a", "com.apple.finder", "b"}),
                ElementsAre("com.apple.finder", "b", "a"));
}

TEST(PinnedSection, AlwaysHoldsFinder) {
    EXPECT_TRUE(isPinned("com.apple.finder", {}));
    EXPECT_TRUE(isPinned("a", {"b", "a"}));
    EXPECT_FALSE(isPinned("pid:1", {"b", "a"}));
}

TEST(Sections, AreDecidedByWindowsUnlessTilesKeepStill) {
    constexpr auto windowApps = Section::windowApps;
    constexpr auto background = Section::background;
    const struct {
        const char* name;
        SectionFacts facts;
        Section section;
    } cases[] = {
        {"with windows", {.pid = 1, .hasWindows = true}, windowApps},
        {"without windows", {.pid = 1}, background},
        {"hidden", {.pid = 1, .isHidden = true}, windowApps},
        {"not running", {.pid = 0, .isHidden = true, .hasWindows = true}, background},
        {"held window app", {.pid = 1, .wasWindowApp = true, .isHeld = true}, windowApps},
        {"held background app",
         {.pid = 1, .hasWindows = true, .wasBackgroundApp = true, .isHeld = true},
         background},
        {"new while held", {.pid = 1, .hasWindows = true, .isHeld = true}, windowApps},
        {"allowed to move while held",
         {.pid = 1, .wasWindowApp = true, .isHeld = true, .mayRegroup = true},
         background},
        {"not held any more", {.pid = 1, .wasWindowApp = true}, background},
    };
    for (const auto& [name, facts, section] : cases)
        EXPECT_EQ(sectionOf(facts), section) << name;
}

TEST(WindowChangeLine, NamesWhatIsThereAndWhatIsGone) {
    EXPECT_EQ(windowChangeLine({{7, {1}}, {8, {1}}}, {{7, {{1, 10}}}, {8, {{1, 10}}}},
                               {{7, {1, 2}}, {8, {1}}}, {{7, {{1, 11}, {2, 20}}}, {8, {{1, 10}}}}),
              "pid 7 windows now for [displays 1, 2 Spaces 11, 20], none left for [Spaces 10]");
    EXPECT_EQ(windowChangeLine({{7, {1}}}, {}, {}, {}),
              "pid 7 windows now for [none], none left for [display 1]");
    EXPECT_EQ(windowChangeLine({{7, {1}}}, {}, {{7, {1}}}, {}), "");
}

} // namespace
} // namespace larkspan
