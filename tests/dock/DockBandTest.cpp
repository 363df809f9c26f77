#include "dock/DockBand.h"

#include "adapters/sim/SimMac.h"
#include "dock/FixedScreens.h"

#include <gtest/gtest.h>

namespace larkspan {
namespace {

TEST(DockBand, EachScreenWithAStripHasOneInScreenOrder) {
    FixedScreens screens;
    screens.add(1, {0, 0, 1920, 1080}, 70);
    screens.add(2, {1920, 0, 1280, 720}, 0);
    screens.add(3, {-1000, 200, 1000, 800}, 0.5);
    const auto bands = DockBand::bands(screens);
    ASSERT_EQ(bands.size(), 2U);
    EXPECT_EQ(bands[0].screen.display, 1U);
    EXPECT_EQ(bands[0].frame, (Rect{0, 0, 1920, 70}));
    EXPECT_EQ(bands[1].screen.display, 3U);
    EXPECT_EQ(bands[1].frame, (Rect{-1000, 200, 1000, 0.5}));
}

TEST(DockBand, TheDiagnosisNamesHidingBeforeTheSide) {
    sim::SimMac mac;
    EXPECT_EQ(DockBand::whyNoBand(mac.coreDock), std::nullopt);
    mac.setDock({.place = {3, 1}});
    EXPECT_TRUE(DockBand::whyNoBand(mac.coreDock)->starts_with("The Dock is on the side"));
    mac.setDock({.autoHide = true, .place = {3, 1}});
    EXPECT_TRUE(DockBand::whyNoBand(mac.coreDock)->starts_with("The Dock is set to hide itself"));
    mac.removeFunction("CoreDockGetTileSize");
    EXPECT_EQ(DockBand::whyNoBand(mac.coreDock),
              "The Dock holds no space at the bottom of any screen.");
}

} // namespace
} // namespace larkspan
