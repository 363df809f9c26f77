#pragma once

#include "platform/DockPreferences.h"
#include "platform/contract/Adapter.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace larkspan::contract {

/// The Dock's preferences as this program sees them, and another program that changes them.
class DockPreferencesWorld {
  public:
    virtual ~DockPreferencesWorld() = default;
    virtual DockPreferences& preferences() = 0;
    /// What another program reads now.
    virtual std::optional<PropertyValue> readElsewhere(const std::string& key) = 0;
    virtual void writeElsewhere(const std::string& key, const PropertyValue& value) = 0;
    virtual bool runUntil(const std::function<bool()>& condition) = 0;
};

/// What every adapter of the Dock's preferences must do.
class DockPreferencesContract : public testing::TestWithParam<Adapter<DockPreferencesWorld>> {
  protected:
    static PropertyValue listOf(const std::string& identifier) {
        using Dictionary = PropertyValue::Dictionary;
        return PropertyValue::Array{
            Dictionary{{"tile-data", Dictionary{{"bundle-identifier", identifier}}}}};
    }

    std::unique_ptr<DockPreferencesWorld> world_ = GetParam().make();
    DockPreferences& preferences_ = world_->preferences();
    const std::string key_ = "persistent-apps";
};

TEST_P(DockPreferencesContract, TheListExistsAndOtherKeysDoNot) {
    const auto list = preferences_.copyAppValue(key_);
    ASSERT_TRUE(list);
    EXPECT_TRUE(list->as<PropertyValue::Array>());
    EXPECT_EQ(preferences_.copyAppValue("no such key"), std::nullopt);
}

TEST_P(DockPreferencesContract, AChangeIsVisibleToOthersOnceSynchronised) {
    const auto before = world_->readElsewhere(key_);
    preferences_.setAppValue(key_, listOf("one"));
    EXPECT_EQ(preferences_.copyAppValue(key_), listOf("one"));
    EXPECT_EQ(world_->readElsewhere(key_), before);
    EXPECT_TRUE(preferences_.synchronize());
    EXPECT_EQ(world_->readElsewhere(key_), listOf("one"));
    EXPECT_EQ(preferences_.copyAppValue(key_), listOf("one"));
}

TEST_P(DockPreferencesContract, SynchronisingReadsChangesOfOthers) {
    world_->writeElsewhere(key_, listOf("theirs"));
    EXPECT_TRUE(preferences_.synchronize());
    EXPECT_EQ(preferences_.copyAppValue(key_), listOf("theirs"));
}

TEST_P(DockPreferencesContract, SynchronisingKeepsOtherKeysOfOthers) {
    preferences_.setAppValue(key_, listOf("ours"));
    world_->writeElsewhere("tilesize", 64);
    world_->writeElsewhere(key_, listOf("theirs"));
    EXPECT_TRUE(preferences_.synchronize());
    EXPECT_EQ(world_->readElsewhere(key_), listOf("ours"));
    EXPECT_EQ(world_->readElsewhere("tilesize"), PropertyValue(64));
}

TEST_P(DockPreferencesContract, OutsideChangesAreAnnouncedIfPromised) {
    if (!preferences_.announcesChanges()) GTEST_SKIP() << "has to be polled";
    int calls = 0;
    int callsAfterItsEnd = 0;
    std::optional<PropertyValue> seen;
    const Handle subscription = preferences_.subscribe([&] {
        ++calls;
        preferences_.synchronize();
        seen = preferences_.copyAppValue(key_);
    });
    Handle ended = preferences_.subscribe([&] { ++callsAfterItsEnd; });
    ended.reset();
    world_->writeElsewhere(key_, listOf("theirs"));
    EXPECT_TRUE(world_->runUntil([&] { return calls > 0; }));
    EXPECT_EQ(seen, listOf("theirs"));
    EXPECT_EQ(callsAfterItsEnd, 0);
}

} // namespace larkspan::contract
