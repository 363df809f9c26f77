#pragma once

#include "platform/ScreenCapture.h"
#include "platform/contract/Adapter.h"

#include <gtest/gtest.h>
#include <memory>

namespace larkspan::contract {

/// A system that grants or refuses the permission, if it can refuse it.
class ScreenCaptureWorld {
  public:
    virtual ~ScreenCaptureWorld() = default;
    virtual ScreenCapture& screenCapture() = 0;
    /// Returns false if this system cannot refuse it.
    virtual bool refuse() = 0;
    virtual void grant() = 0;
    /// How often the user was prompted.
    virtual int prompts() = 0;
};

/// What every adapter of the permission to record the screen must do.
class ScreenCaptureContract : public testing::TestWithParam<Adapter<ScreenCaptureWorld>> {
  protected:
    std::unique_ptr<ScreenCaptureWorld> world_ = GetParam().make();
    ScreenCapture& capture_ = world_->screenCapture();
};

TEST_P(ScreenCaptureContract, AGrantIsReadWithoutAPrompt) {
    world_->grant();
    EXPECT_TRUE(capture_.preflightAccess());
    EXPECT_TRUE(capture_.preflightAccess());
    EXPECT_EQ(world_->prompts(), 0);
    EXPECT_TRUE(capture_.requestAccess());
}

TEST_P(ScreenCaptureContract, OnlyARequestPromptsTheUser) {
    if (!world_->refuse()) GTEST_SKIP() << "this system cannot refuse it";
    EXPECT_FALSE(capture_.preflightAccess());
    EXPECT_EQ(world_->prompts(), 0);
    EXPECT_FALSE(capture_.requestAccess());
    EXPECT_EQ(world_->prompts(), 1);
    world_->grant();
    EXPECT_TRUE(capture_.preflightAccess());
}

} // namespace larkspan::contract
