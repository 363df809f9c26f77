#pragma once

#include "platform/ScreenCapture.h"
#include "platform/contract/Adapter.h"

#include <gtest/gtest.h>
#include <memory>

namespace larkspan::contract {

/// A system that grants or refuses what a program asks, if it ever refuses.
class ScreenCaptureWorld {
  public:
    virtual ~ScreenCaptureWorld() = default;
    virtual ScreenCapture& screenCapture() = 0;
    /// Answers false where nothing can be refused.
    virtual bool refuse() = 0;
    virtual void grant() = 0;
    /// How often the user was asked.
    virtual int prompts() = 0;
};

/// What every adapter of the permission to record the screen must do.
class ScreenCaptureContract : public testing::TestWithParam<Adapter<ScreenCaptureWorld>> {
  protected:
    std::unique_ptr<ScreenCaptureWorld> world_ = GetParam().make();
    ScreenCapture& capture_ = world_->screenCapture();
};

TEST_P(ScreenCaptureContract, WhatIsGrantedIsSaidWithoutAskingTheUser) {
    world_->grant();
    EXPECT_TRUE(capture_.preflightAccess());
    EXPECT_TRUE(capture_.preflightAccess());
    EXPECT_EQ(world_->prompts(), 0);
    EXPECT_TRUE(capture_.requestAccess());
}

TEST_P(ScreenCaptureContract, OnlyARequestAsksTheUserAndItsAnswerIsThatOfNow) {
    if (!world_->refuse()) GTEST_SKIP() << "nothing is refused here";
    EXPECT_FALSE(capture_.preflightAccess());
    EXPECT_EQ(world_->prompts(), 0);
    EXPECT_FALSE(capture_.requestAccess());
    EXPECT_EQ(world_->prompts(), 1);
    world_->grant();
    EXPECT_TRUE(capture_.preflightAccess());
}

} // namespace larkspan::contract
