#include "dock/DockProfile.h"

#include "MemoryDefaults.h"
#include "adapters/sim/SimMac.h"
#include "dock/DockIconSize.h"

#include <gtest/gtest.h>

namespace larkspan {
namespace {

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
    for (const auto* getter :
         {"CoreDockGetTileSize", "CoreDockGetAutoHideEnabled", "CoreDockGetOrientationAndPinning",
          "CoreDockIsMagnificationEnabled"}) {
        sim::SimMac mac;
        mac.removeFunction(getter);
        EXPECT_EQ(DockProfile::current(mac.coreDock), std::nullopt);
        usersOwn.apply(mac.coreDock, usersOwn.tileSize);
        EXPECT_EQ(mac.coreDock.setCalls(), 0) << getter;
    }
}

TEST(DockProfile, ApplyingTouchesOnlyWhatDiffers) {
    sim::SimMac mac;
    usersOwn.apply(mac.coreDock, usersOwn.tileSize);
    EXPECT_EQ(mac.coreDock.setCalls(), 5) << "the size is set twice";
    EXPECT_EQ(DockProfile::current(mac.coreDock), usersOwn);
    usersOwn.apply(mac.coreDock, 0.5019F);
    EXPECT_EQ(mac.coreDock.setCalls(), 5) << "a size within 0.002 is the same size";
    usersOwn.apply(mac.coreDock, 0.5021F);
    EXPECT_EQ(mac.coreDock.setCalls(), 7);
}

TEST(DockProfile, AMissingSetterIsSkipped) {
    sim::SimMac mac;
    for (const auto* setter :
         {"CoreDockSetTileSize", "CoreDockSetAutoHideEnabled", "CoreDockSetOrientationAndPinning"})
        mac.removeFunction(setter);
    usersOwn.apply(mac.coreDock, usersOwn.tileSize);
    EXPECT_EQ(mac.coreDock.setCalls(), 1);
    EXPECT_TRUE(mac.coreDock.isMagnificationEnabled());
    EXPECT_FALSE(canResize(mac.coreDock));
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
