#include "adapters/mac/decode/managedSpaces.h"
#include "PropertyView.h"

#include <gtest/gtest.h>

namespace larkspan::mac {
namespace {

using Array = PropertyValue::Array;
using Dictionary = PropertyValue::Dictionary;

std::optional<std::vector<ManagedDisplay>> decoded(PropertyValue value) {
    return managedDisplays(PropertyView(&value));
}

// Two displays as on a real Mac: the first desktop has an empty uuid, and the second display shows
// a full-screen app.
TEST(ManagedSpaces, ReadsTwoDisplays) {
    const Dictionary first{{"ManagedSpaceID", 1}, {"id64", 1}, {"type", 0}, {"uuid", ""}};
    const Dictionary second{
        {"ManagedSpaceID", 7}, {"id64", 7}, {"type", 0}, {"uuid", "4A0E5B62-0001"}};
    const Dictionary fullScreen{{"ManagedSpaceID", 40},
                                {"id64", 40},
                                {"type", 4},
                                {"uuid", "4A0E5B62-0002"},
                                {"TileLayoutManager", Dictionary{{"TileSpaces", Array{}}}}};
    const PropertyValue value(
        Array{Dictionary{{"Current Space", first},
                         {"Display Identifier", "37D8832A-2D66-02CA-B9F7-8F30A301B230"},
                         {"Spaces", Array{first, second}}},
              Dictionary{{"Current Space", fullScreen},
                         {"Display Identifier", "37D8832A-2D66-02CA-B9F7-8F30A301B231"},
                         {"Spaces", Array{fullScreen}},
                         {"Collapsed Space", Dictionary{{"id64", 2}}}}});
    const ManagedSpace one{1, 0, ""};
    const ManagedSpace seven{7, 0, "4A0E5B62-0001"};
    const ManagedSpace forty{40, 4, "4A0E5B62-0002"};
    EXPECT_EQ(decoded(value), (std::vector<ManagedDisplay>{
                                  {"37D8832A-2D66-02CA-B9F7-8F30A301B230", one, {one, seven}},
                                  {"37D8832A-2D66-02CA-B9F7-8F30A301B231", forty, {forty}}}));
}

TEST(ManagedSpaces, MissingOrMalformedFieldsAreAbsent) {
    struct Case {
        const char* what;
        PropertyValue display;
        ManagedDisplay expected;
    };
    const auto withSpace = [](Dictionary space) {
        return PropertyValue(Dictionary{{"Spaces", Array{std::move(space)}}});
    };
    const Case cases[] = {
        {"displays that share their Spaces",
         Dictionary{{"Display Identifier", "Main"}},
         {"Main", {}, {}}},
        {"no dictionary", "Main", {}},
        {"an identifier that is a number", Dictionary{{"Display Identifier", 69}}, {}},
        {"a current Space in words", Dictionary{{"Current Space", "1"}}, {}},
        {"an empty current Space",
         Dictionary{{"Current Space", Dictionary{}}},
         {{}, ManagedSpace{}, {}}},
        {"Spaces that are not a list", Dictionary{{"Spaces", Dictionary{{"id64", 1}}}}, {}},
        {"a Space in words", Dictionary{{"Spaces", Array{"one"}}}, {{}, {}, {{}}}},
        {"a Space without a type",
         withSpace({{"id64", 3}, {"uuid", "U"}}),
         {{}, {}, {{3, {}, "U"}}}},
        {"a type in words", withSpace({{"id64", 3}, {"type", "4"}}), {{}, {}, {{3, {}, {}}}}},
        {"a type that is a boolean", withSpace({{"type", false}}), {{}, {}, {{}}}},
        {"a type beyond every type", withSpace({{"type", std::int64_t{1} << 40}}), {{}, {}, {{}}}},
        {"the largest Space, which looks negative",
         withSpace({{"id64", -1}}),
         {{}, {}, {{~SpaceId{0}, {}, {}}}}},
        {"a Space stored as a real number", withSpace({{"id64", 12.0}}), {{}, {}, {{12, {}, {}}}}},
        {"a Space beyond what that keeps exactly", withSpace({{"id64", 1e19}}), {{}, {}, {{}}}},
    };
    for (const auto& each : cases)
        EXPECT_EQ(decoded(Array{each.display}), std::vector{each.expected}) << each.what;
}

TEST(ManagedSpaces, AFailedCallIsNotAnEmptyList) {
    EXPECT_EQ(decoded(Array{}), std::vector<ManagedDisplay>{});
    EXPECT_EQ(decoded(Dictionary{}), std::nullopt);
    EXPECT_EQ(managedDisplays(PropertyView(nullptr)), std::nullopt);
}

} // namespace
} // namespace larkspan::mac
