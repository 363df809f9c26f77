#pragma once

#include "platform/LoginItem.h"
#include "platform/TrashFolder.h"
#include "platform/contract/Adapter.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace larkspan::contract {

/// The Trash, and the user who fills and empties it.
class TrashWorld {
  public:
    virtual ~TrashWorld() = default;
    virtual TrashFolder& trash() = 0;
    virtual void throwAway(const std::string& name) = 0;
    virtual void empty() = 0;
    /// Makes the folder unreadable.
    virtual void makeUnreadable() = 0;
    /// How often a folder has been shown to the user.
    virtual std::size_t opened() = 0;
    virtual bool runUntil(const std::function<bool()>& condition) = 0;
};

/// What every Trash folder must do.
class TrashContract : public testing::TestWithParam<Adapter<TrashWorld>> {
  protected:
    std::unique_ptr<TrashWorld> world_ = GetParam().make();
    TrashFolder& trash_ = world_->trash();
};

TEST_P(TrashContract, HiddenEntriesCountToo) {
    EXPECT_EQ(trash_.entryCount(), 0U);
    EXPECT_FALSE(trash_.holdsDesktopServicesFile());
    world_->throwAway("letter");
    EXPECT_EQ(trash_.entryCount(), 1U);
    EXPECT_FALSE(trash_.holdsDesktopServicesFile());
    world_->throwAway(".DS_Store");
    EXPECT_EQ(trash_.entryCount(), 2U);
    EXPECT_TRUE(trash_.holdsDesktopServicesFile());
    world_->empty();
    EXPECT_EQ(trash_.entryCount(), 0U);
    EXPECT_FALSE(trash_.holdsDesktopServicesFile());
}

TEST_P(TrashContract, AFolderThatCannotBeReadHasNoCount) {
    world_->makeUnreadable();
    EXPECT_EQ(trash_.entryCount(), std::nullopt);
    EXPECT_FALSE(trash_.holdsDesktopServicesFile());
}

TEST_P(TrashContract, OpeningShowsTheFolder) {
    trash_.open();
    EXPECT_EQ(world_->opened(), 1U);
}

TEST_P(TrashContract, FillingAndEmptyingAreAnnouncedIfPromised) {
    if (!trash_.announcesChanges()) GTEST_SKIP() << "has to be polled";
    std::optional<std::size_t> seen;
    int callsAfterItsEnd = 0;
    const Handle subscription = trash_.subscribe([&] { seen = trash_.entryCount(); });
    Handle ended = trash_.subscribe([&] { ++callsAfterItsEnd; });
    ended.reset();
    world_->throwAway("letter");
    EXPECT_TRUE(world_->runUntil([&] { return seen == 1U; }));
    world_->empty();
    EXPECT_TRUE(world_->runUntil([&] { return seen == 0U; }));
    world_->throwAway("second letter");
    EXPECT_TRUE(world_->runUntil([&] { return seen == 1U; }));
    EXPECT_EQ(callsAfterItsEnd, 0);
}

/// The login item, and a system that may refuse.
class LoginItemWorld {
  public:
    virtual ~LoginItemWorld() = default;
    virtual LoginItem& item() = 0;
    /// The user turns the item off in the system's settings.
    virtual void switchOff() = 0;
    /// The system refuses to register from now on.
    virtual void refuse() = 0;
};

/// What every login item must do.
class LoginItemContract : public testing::TestWithParam<Adapter<LoginItemWorld>> {
  protected:
    using Status = LoginItem::Status;

    std::unique_ptr<LoginItemWorld> world_ = GetParam().make();
    LoginItem& item_ = world_->item();
};

TEST_P(LoginItemContract, RegisteringTakesEffectAtOnceAndCanBeUndone) {
    EXPECT_EQ(item_.status(), Status::notRegistered);
    EXPECT_TRUE(item_.registerItem());
    EXPECT_EQ(item_.status(), Status::enabled);
    EXPECT_TRUE(item_.registerItem()) << "registering twice is allowed";
    EXPECT_TRUE(item_.unregisterItem());
    EXPECT_EQ(item_.status(), Status::notRegistered);
}

TEST_P(LoginItemContract, UnregisteringAnUnregisteredItemFails) {
    EXPECT_FALSE(item_.unregisterItem());
    EXPECT_EQ(item_.status(), Status::notRegistered);
}

TEST_P(LoginItemContract, AnItemTurnedOffElsewhereCanBeTurnedOn) {
    ASSERT_TRUE(item_.registerItem());
    world_->switchOff();
    EXPECT_NE(item_.status(), Status::enabled);
    EXPECT_TRUE(item_.registerItem());
    EXPECT_EQ(item_.status(), Status::enabled);
}

TEST_P(LoginItemContract, ARefusalIsReportedAndKeepsTheStatus) {
    world_->refuse();
    EXPECT_FALSE(item_.registerItem());
    EXPECT_EQ(item_.status(), Status::notRegistered);
}

} // namespace larkspan::contract
