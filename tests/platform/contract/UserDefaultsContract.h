#pragma once

#include "platform/UserDefaults.h"
#include "platform/contract/Adapter.h"

#include <gtest/gtest.h>
#include <memory>

namespace larkspan::contract {

/// The user's preferences, and what may happen to the program.
class UserDefaultsWorld {
  public:
    virtual ~UserDefaultsWorld() = default;
    virtual UserDefaults& defaults() = 0;
    /// Kills the program and starts it again: what it had not stored is lost.
    virtual void killAndRestart() = 0;
    /// Makes storing fail from now on.
    virtual void breakStorage() = 0;
};

/// What every adapter of the user defaults must do.
class UserDefaultsContract : public testing::TestWithParam<Adapter<UserDefaultsWorld>> {
  protected:
    UserDefaults& defaults() { return world_->defaults(); }

    std::unique_ptr<UserDefaultsWorld> world_ = GetParam().make();
};

TEST_P(UserDefaultsContract, AValueTakesEffectAtOnceAndKeepsItsType) {
    EXPECT_EQ(defaults().value("size"), std::nullopt);
    for (const PropertyValue& value :
         {PropertyValue(72), PropertyValue(72.0), PropertyValue("72"), PropertyValue(true)}) {
        defaults().set("size", value);
        EXPECT_EQ(defaults().value("size"), value);
    }
}

TEST_P(UserDefaultsContract, SynchronisedValuesSurviveAKill) {
    const PropertyValue list = PropertyValue::Array{1, 1.0, "1", Data{std::string("\0\xff", 2)},
                                                    PropertyValue::Dictionary{{"key", false}}};
    defaults().set("list", list);
    defaults().set("number", 5);
    ASSERT_TRUE(defaults().synchronize());
    world_->killAndRestart();
    EXPECT_EQ(defaults().value("list"), list);
    EXPECT_EQ(defaults().value("number"), PropertyValue(5));
}

TEST_P(UserDefaultsContract, ARemovedValueStaysRemoved) {
    defaults().set("first", 1);
    defaults().set("second", 2);
    ASSERT_TRUE(defaults().synchronize());
    defaults().remove("first");
    defaults().remove("never there");
    EXPECT_EQ(defaults().value("first"), std::nullopt);
    ASSERT_TRUE(defaults().synchronize());
    world_->killAndRestart();
    EXPECT_EQ(defaults().value("first"), std::nullopt);
    EXPECT_EQ(defaults().value("second"), PropertyValue(2));
}

TEST_P(UserDefaultsContract, AFailureToStoreIsReportedAndKeptInMemory) {
    world_->breakStorage();
    defaults().set("size", 72);
    EXPECT_FALSE(defaults().synchronize());
    EXPECT_EQ(defaults().value("size"), PropertyValue(72));
}

} // namespace larkspan::contract
