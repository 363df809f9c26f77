#include "dock/DockProfile.h"

#include "MemoryDefaults.h"
#include "dock/DockIconSize.h"
#include "dock/RecordingDock.h"
#include "platform/CoreDock.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr DockProfile usersOwn{
    .tileSize = 0.5F, .autoHide = true, .orientation = 3, .pinning = 1, .magnification = true};

TEST(DockIconSize, FollowsTheHeightAndTurnsIntoTheDocksFraction) {
    EXPECT_EQ(firstIconSize(36), 16);
    EXPECT_EQ(firstIconSize(30), 10);
    EXPECT_EQ(firstIconSize(73.9), 53);
    EXPECT_EQ(firstIconSize(74), 48);
    EXPECT_FLOAT_EQ(tileFraction(16), 0.25F / 112);
    EXPECT_FLOAT_EQ(tileFraction(10), (10.25F - 16) / 112);
    EXPECT_FLOAT_EQ(tileFraction(-3), (1.25F - 16) / 112);
    EXPECT_FLOAT_EQ(tileFraction(500), (128.25F - 16) / 112);
}

TEST(DockProfile, SurvivesItsStoreWithExactlyItsKeys) {
    MemoryDefaults defaults;
    usersOwn.save(defaults);
    EXPECT_EQ(DockProfile::saved(defaults), usersOwn);
    EXPECT_EQ(defaults.value("savedDockProfile"),
              PropertyValue(Data{R"({"autoHide":true,"magnification":true,"orientation":3,)"
                                 R"("pinning":1,"tileSize":0.5})"}));
    DockProfile::forgetSaved(defaults);
    EXPECT_EQ(DockProfile::saved(defaults), std::nullopt);
}

TEST(DockProfile, WhatDoesNotDecodeCountsAsNotSaved) {
    const PropertyValue stored[] = {
        Data{""},
        Data{"[]"},
        Data{"{}"},
        "a string instead of data",
        Data{R"({"autoHide":1,"magnification":true,"orientation":3,"pinning":1,"tileSize":0.5})"},
        Data{R"({"autoHide":true,"magnification":true,"orientation":-3,"pinning":1,"tileSize":1})"},
        Data{R"({"autoHide":true,"magnification":true,"orientation":3,"tileSize":0.5})"},
    };
    for (const auto& value : stored) {
        MemoryDefaults defaults;
        defaults.set("savedDockProfile", value);
        EXPECT_EQ(DockProfile::saved(defaults), std::nullopt);
    }
}

TEST(DockProfile, OneMissingGetterAndNothingIsReadOrSet) {
    const CoreDockFunction getters[] = {
        CoreDockFunction::getTileSize, CoreDockFunction::getAutoHideEnabled,
        CoreDockFunction::getOrientationAndPinning, CoreDockFunction::isMagnificationEnabled};
    for (const auto getter : getters) {
        RecordingDock dock;
        dock.missing = {getter};
        EXPECT_EQ(DockProfile::current(dock), std::nullopt);
        usersOwn.apply(dock, usersOwn.tileSize);
        EXPECT_THAT(dock.calls, IsEmpty());
    }
}

TEST(DockProfile, ApplyingTouchesOnlyWhatDiffers) {
    RecordingDock dock;
    usersOwn.apply(dock, usersOwn.tileSize);
    EXPECT_THAT(dock.calls, ElementsAre("size 0.5000", "size 0.5000", "hide true", "place 3 1",
                                        "magnify true"));
    EXPECT_EQ(DockProfile::current(dock), usersOwn);
    dock.calls.clear();
    usersOwn.apply(dock, 0.5019F);
    EXPECT_THAT(dock.calls, IsEmpty()) << "a size within 0.002 is the same size";
    usersOwn.apply(dock, 0.5021F);
    EXPECT_THAT(dock.calls, ElementsAre("size 0.5021", "size 0.5021"));
}

TEST(DockProfile, AMissingSetterIsSkipped) {
    RecordingDock dock;
    dock.missing = {CoreDockFunction::setTileSize, CoreDockFunction::setAutoHideEnabled,
                    CoreDockFunction::setOrientationAndPinning};
    usersOwn.apply(dock, usersOwn.tileSize);
    EXPECT_THAT(dock.calls, ElementsAre("magnify true"));
    EXPECT_FALSE(canResize(dock));
}

TEST(DockProfile, UnderTheBarTheDockStandsStillAtTheBottom) {
    EXPECT_EQ(usersOwn.underBar(), (DockProfile{.tileSize = 0.5F,
                                                .autoHide = false,
                                                .orientation = 2,
                                                .pinning = 1,
                                                .magnification = false}));
}

} // namespace
} // namespace larkspan
