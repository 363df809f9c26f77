#pragma once

#include "platform/CoreDock.h"
#include "platform/contract/Adapter.h"

#include <gtest/gtest.h>
#include <memory>

namespace larkspan::contract {

/// The system Dock, or a desktop that has none.
class CoreDockWorld {
  public:
    virtual ~CoreDockWorld() = default;
    virtual CoreDock& dock() = 0;
    /// Whether this desktop has a Dock whose settings can be read and changed.
    virtual bool hasDock() = 0;
};

/// What every adapter of the Dock's settings must do.
class CoreDockContract : public testing::TestWithParam<Adapter<CoreDockWorld>> {
  protected:
    static constexpr CoreDockFunction functions[] = {
        CoreDockFunction::getTileSize,
        CoreDockFunction::setTileSize,
        CoreDockFunction::getAutoHideEnabled,
        CoreDockFunction::setAutoHideEnabled,
        CoreDockFunction::getOrientationAndPinning,
        CoreDockFunction::setOrientationAndPinning,
        CoreDockFunction::isMagnificationEnabled,
        CoreDockFunction::setMagnificationEnabled,
        CoreDockFunction::sendNotification,
    };

    std::unique_ptr<CoreDockWorld> world_ = GetParam().make();
    CoreDock& dock_ = world_->dock();
};

TEST_P(CoreDockContract, ADesktopHasAllDockFunctionsOrNone) {
    for (const auto function : functions)
        EXPECT_EQ(dock_.has(function), world_->hasDock()) << static_cast<int>(function);
}

TEST_P(CoreDockContract, EachSettingIsReadBackAndIndependent) {
    if (!world_->hasDock()) GTEST_SKIP() << "there is no Dock here";
    dock_.setTileSize(0.25F);
    dock_.setAutoHideEnabled(true);
    dock_.setMagnificationEnabled(true);
    dock_.setOrientationAndPinning({3, 1});
    EXPECT_FLOAT_EQ(dock_.tileSize(), 0.25F);
    EXPECT_TRUE(dock_.isAutoHideEnabled());
    EXPECT_TRUE(dock_.isMagnificationEnabled());
    EXPECT_EQ(dock_.orientationAndPinning(), (OrientationAndPinning{3, 1}));
    dock_.setAutoHideEnabled(false);
    EXPECT_FALSE(dock_.isAutoHideEnabled());
    EXPECT_TRUE(dock_.isMagnificationEnabled());
    EXPECT_EQ(dock_.orientationAndPinning(), (OrientationAndPinning{3, 1}));
}

TEST_P(CoreDockContract, AnIconSizeBelowTheMinimumIsAccepted) {
    if (!world_->hasDock()) GTEST_SKIP() << "there is no Dock here";
    const float tenPixels = (10.25F - 16) / 112;
    dock_.setTileSize(tenPixels);
    EXPECT_FLOAT_EQ(dock_.tileSize(), tenPixels);
}

} // namespace larkspan::contract
