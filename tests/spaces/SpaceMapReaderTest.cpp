#include "spaces/SpaceMapReader.h"

#include "spaces/RecordedWindowServer.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

const std::vector screensAAndB{screenAt(1, "A", {0, 0, 1000, 800}),
                               screenAt(2, "B", {1000, 0, 1000, 800})};

ManagedSpace space(SpaceId id, int type = 0) {
    return {.id64 = id, .type = type, .uuid = "u"};
}

TEST(SpaceMapReader, ReadsSpacesWindowsAndWhatIsShown) {
    RecordedWindowServer server;
    server.windows = {{10, {5, 6}}, {11, {6}}, {20, {}}};
    const std::vector<ManagedDisplay> displays{
        {.displayIdentifier = "A", .currentSpace = space(11), .spaces = {space(10, 4), space(11)}},
        {.displayIdentifier = "B", .currentSpace = space(20), .spaces = {space(20)}}};

    const auto map = readSpaceMap(server, displays, screensAAndB);
    EXPECT_THAT(map.spaces, ElementsAre(Pair(1, ElementsAre(10, 11)), Pair(2, ElementsAre(20))));
    EXPECT_THAT(map.firstDesktops, ElementsAre(Pair(1, 11), Pair(2, 20)));
    EXPECT_THAT(map.fullScreen, ElementsAre(10));
    EXPECT_THAT(map.shown, ElementsAre(11, 20));
    EXPECT_THAT(map.owners, ElementsAre(Pair(10, 1), Pair(11, 1), Pair(20, 2)));
    EXPECT_THAT(map.windowSpaces,
                ElementsAre(Pair(5, ElementsAre(10)), Pair(6, ElementsAre(10, 11))));
}

TEST(SpaceMapReader, GivesSharedSpacesToEveryDisplay) {
    const RecordedWindowServer server;
    const auto map = readSpaceMap(
        server,
        {{.displayIdentifier = "Main", .currentSpace = space(3), .spaces = {space(3), space(4)}}},
        screensAAndB);
    EXPECT_THAT(map.spaces, ElementsAre(Pair(1, ElementsAre(3, 4)), Pair(2, ElementsAre(3, 4))));
    EXPECT_THAT(map.owners, ElementsAre(Pair(3, 1), Pair(4, 1)));
    EXPECT_THAT(map.shown, ElementsAre(3));
}

TEST(SpaceMapReader, LeavesOutWhatIsMalformedOrNoScreen) {
    const RecordedWindowServer server;
    const std::vector<ManagedDisplay> displays{
        {.displayIdentifier = {}, .currentSpace = space(1), .spaces = {space(1)}},
        {.displayIdentifier = "unplugged", .currentSpace = space(2), .spaces = {space(2)}},
        {.displayIdentifier = "A", .currentSpace = ManagedSpace{}, .spaces = {{}, space(3)}}};
    const auto map = readSpaceMap(server, displays, screensAAndB);
    EXPECT_THAT(map.spaces, ElementsAre(Pair(1, ElementsAre(3))));
    EXPECT_THAT(map.shown, IsEmpty());
}

TEST(SpaceMapReader, KnowsDesktopsByTheirTypeAlone) {
    const RecordedWindowServer server;
    auto first = space(5);
    first.uuid = "";
    auto untyped = space(4);
    untyped.type.reset();
    const auto map = readSpaceMap(
        server,
        {{.displayIdentifier = "A",
          .currentSpace = untyped,
          .spaces = {space(1, 4), space(2, 2), space(3, 77), untyped, first, space(6)}}},
        screensAAndB);
    EXPECT_THAT(map.spaces.at(1), ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_THAT(map.firstDesktops, ElementsAre(Pair(1, 5))) << "the one without a UUID";
    EXPECT_THAT(map.fullScreen, ElementsAre(1));
    EXPECT_THAT(map.shown, ElementsAre(4));
}

TEST(SpaceMapReader, TakesWhatIsListedTwiceOnce) {
    RecordedWindowServer server;
    server.windows = {{3, {7, 7}}, {4, {7}}};
    const auto map =
        readSpaceMap(server, {{.displayIdentifier = "A", .spaces = {space(3), space(3), space(4)}}},
                     screensAAndB);
    EXPECT_THAT(map.spaces.at(1), ElementsAre(3, 4));
    EXPECT_THAT(map.windowSpaces, ElementsAre(Pair(7, ElementsAre(3, 4))));
}

TEST(SpaceMapReader, DoesNotDependOnTheOrderOfTheDisplays) {
    RecordedWindowServer server;
    server.windows = {{3, {7}}, {4, {7}}, {5, {7}}};
    const ManagedDisplay a{.displayIdentifier = "A", .spaces = {space(3), space(4)}};
    const ManagedDisplay b{.displayIdentifier = "B", .spaces = {space(4), space(5)}};
    const auto map = readSpaceMap(server, {a, b}, screensAAndB);
    EXPECT_EQ(readSpaceMap(server, {b, a}, screensAAndB), map);
    EXPECT_EQ(map.owners.at(4), 1U) << "a Space belongs to one display";
}

TEST(SpaceMapReader, ShowsNoSpaceThatItDoesNotKnow) {
    const RecordedWindowServer server;
    for (const auto& current :
         {std::optional<ManagedSpace>(), std::optional(space(9)), std::optional(ManagedSpace{})}) {
        const auto map = readSpaceMap(
            server,
            {{.displayIdentifier = "A", .currentSpace = current, .spaces = {space(3), space(0)}}},
            screensAAndB);
        EXPECT_THAT(map.shown, IsEmpty());
        EXPECT_THAT(map.spaces.at(1), ElementsAre(3)) << "0 is not a Space";
    }
}

} // namespace
} // namespace larkspan
