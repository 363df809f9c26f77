#pragma once

#include "platform/StatusBar.h"
#include "platform/contract/Adapter.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace larkspan::contract {

/// The system's status bar, as the user sees and uses it.
class StatusBarWorld {
  public:
    virtual ~StatusBarWorld() = default;
    virtual StatusBar& statusBar() = 0;
    /// The descriptions of the shown items, in any order.
    virtual std::vector<std::string> shown() = 0;
    /// The user chooses the item with that title from the menu of the only status item; false if
    /// that is not possible.
    virtual bool choose(const std::string& title) = 0;
    virtual bool runUntil(const std::function<bool()>& condition) = 0;
};

/// What every status bar must do.
class StatusBarContract : public testing::TestWithParam<Adapter<StatusBarWorld>> {
  protected:
    using Texts = std::vector<std::string>;

    bool comesToShow(const Texts& texts) {
        return world_->runUntil([&] { return world_->shown() == texts; });
    }

    std::unique_ptr<StatusBarWorld> world_ = GetParam().make();
    StatusBar& statusBar_ = world_->statusBar();
};

TEST_P(StatusBarContract, AnItemIsShownUntilItsHandleEnds) {
    EXPECT_TRUE(comesToShow({}));
    const StatusItem item{.symbol = "dock.rectangle", .accessibilityDescription = "Larkspan"};
    Handle handle = statusBar_.show(item);
    EXPECT_TRUE(comesToShow({"Larkspan"}));
    handle.reset();
    EXPECT_TRUE(comesToShow({}));
    handle = statusBar_.show(item);
    EXPECT_TRUE(comesToShow({"Larkspan"})) << "it can be shown again";
}

TEST_P(StatusBarContract, ItsMenuItemsRunTheirActions) {
    Texts chosen;
    const Menu menu{{.title = "First", .action = [&] { chosen.emplace_back("First"); }},
                    MenuItem::separator(),
                    {.title = "Second", .action = [&] { chosen.emplace_back("Second"); }}};
    const Handle handle = statusBar_.show(
        {.symbol = "dock.rectangle", .accessibilityDescription = "Larkspan", .menu = menu});
    ASSERT_TRUE(comesToShow({"Larkspan"}));
    EXPECT_TRUE(world_->choose("Second"));
    EXPECT_TRUE(world_->runUntil([&] { return chosen == Texts{"Second"}; }));
    EXPECT_TRUE(world_->choose("First"));
    EXPECT_TRUE(world_->runUntil([&] { return chosen == Texts{"Second", "First"}; }));
    EXPECT_FALSE(world_->choose("Third"));
}

TEST_P(StatusBarContract, AnActionMayRemoveTheItem) {
    Handle handle;
    const Menu menu{{.title = "Go", .action = [&] { handle.reset(); }}};
    handle = statusBar_.show(
        {.symbol = "dock.rectangle", .accessibilityDescription = "Larkspan", .menu = menu});
    ASSERT_TRUE(comesToShow({"Larkspan"}));
    EXPECT_TRUE(world_->choose("Go"));
    EXPECT_TRUE(comesToShow({}));
}

} // namespace larkspan::contract
