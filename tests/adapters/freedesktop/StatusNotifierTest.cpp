#include "adapters/freedesktop/bus/StatusNotifier.h"
#include "adapters/freedesktop/PanelOnBus.h"
#include "adapters/freedesktop/bus/StatusNotifierItem.h"
#include "adapters/qt/RunLoop.h"
#include "platform/StatusBar.h"
#include "platform/contract/StatusBarContract.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace larkspan::freedesktop {
namespace {

class StatusNotifierTest : public testing::Test {
  protected:
    StatusItem item() {
        MenuItem use{.title = "Use_it", .action = [this] { ++uses_; }};
        MenuItem off{.title = "Off", .isEnabled = false, .action = [this] { ++uses_; }};
        return {"dock.rectangle", "Larkspan", {use, MenuItem::separator(), off}};
    }

    PanelOnBus panel_;
    std::vector<std::string> reports_;
    StatusNotifier notifier_{[this](const std::string& line) { reports_.push_back(line); }};
    int uses_ = 0;
};

TEST_F(StatusNotifierTest, APanelThatStartsLaterShowsTheItemAndItsMenu) {
    const Handle shown = notifier_.show(item());
    EXPECT_THAT(reports_, testing::ElementsAre(testing::HasSubstr("start larkspan again")));

    panel_.appear();
    ASSERT_TRUE(
        qt::runUntil([&] { return panel_.shown() == std::vector<std::string>{"Larkspan"}; }));
    EXPECT_EQ(panel_.label(1), "Use__it") << "one underscore would be an access key";
    EXPECT_EQ(panel_.label(9), "");
    const auto layout = panel_.call(StatusNotifierItem::menuPath, "com.canonical.dbusmenu",
                                    "GetLayout", {0, -1, QStringList()});
    EXPECT_EQ(layout.signature(), "u(ia{sv}av)");

    panel_.click(3);
    panel_.click(7);
    EXPECT_EQ(uses_, 0) << "a disabled item and one that does not exist";
    panel_.click(1);
    EXPECT_TRUE(qt::runUntil([&] { return uses_ == 1; }));
}

class StatusNotifierWorld : public contract::StatusBarWorld {
  public:
    StatusNotifierWorld() { panel_.appear(); }
    StatusBar& statusBar() override { return notifier_; }
    std::vector<std::string> shown() override { return panel_.shown(); }
    bool choose(const std::string& title) override { return panel_.choose(title); }
    bool runUntil(const std::function<bool()>& condition) override {
        return qt::runUntil(condition);
    }

  private:
    PanelOnBus panel_;
    StatusNotifier notifier_{[](const std::string&) {}};
};

} // namespace
} // namespace larkspan::freedesktop

namespace larkspan::contract {
INSTANTIATE_TEST_SUITE_P(
    Bus, StatusBarContract,
    testing::Values(adapter<StatusBarWorld, freedesktop::StatusNotifierWorld>("StatusNotifier")));
} // namespace larkspan::contract
