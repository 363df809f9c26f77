#include "ui/BarOnScreen.h"

#include <QGuiApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace larkspan::ui {

namespace {

/// The tile among the windows, in display coordinates.
Rect frameOnDisplay(BarOnScreen& bar, const std::string& id) {
    const auto& tiles = bar.bar().tiles();
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        if (tiles[i].id() != id || !tiles[i].slot()) continue;
        const Rect tile = bar.bar().frameOfTile(static_cast<int>(i));
        return {tile.x, 900 - tile.maxY(), tile.width, tile.height};
    }
    return {};
}

/// The window of that type that shows; nullptr for none.
template <typename Window>
const Window* shownWindow() {
    for (const QWindow* window : QGuiApplication::topLevelWindows())
        if (const auto* found = qobject_cast<const Window*>(window); found && found->isVisible())
            return found;
    return nullptr;
}

} // namespace

TEST(QuickBarPanel, TellsWhereTheTilesOfRunningAppsAre) {
    BarOnScreen bar;
    bar.openApps({"Mail", "Notes"});
    bar.mac.pin("com.example.Notes");
    bar.start();
    const auto notes = bar.mac.pidOf("com.example.Notes");
    const auto told = [&] { return bar.dressing.tiles.at(notes); };
    const Rect before = told();
    EXPECT_EQ(before, frameOnDisplay(bar, "com.example.Notes"))
        << "among the windows, though it is pinned, too";
    bar.mac.quit(bar.mac.pidOf("com.example.Mail"));
    bar.settle();
    EXPECT_NE(told(), before);
    EXPECT_EQ(told(), frameOnDisplay(bar, "com.example.Notes"));
    bar.app.useSystemDock();
    bar.settle();
    EXPECT_TRUE(bar.dressing.tiles.empty());
}

TEST(QuickBarPanel, TheLabelAndTheMenuStandAboveTheTile) {
    BarOnScreen bar;
    bar.openApps({"Mail"});
    bar.start();
    const int mail = bar.tileOf("Mail");
    const Rect tile = frameOnDisplay(bar, "com.example.Mail");
    const QPoint middle(qRound(tile.x + tile.width / 2), 40);
    QTest::mouseMove(&bar.panel().window(), middle);
    EXPECT_EQ(*bar.bar().litTile, mail);
    EXPECT_TRUE(bar.app.store().isPointerOnBar());
    const auto* label = shownWindow<LabelWindow>();
    ASSERT_NE(label, nullptr);
    EXPECT_NEAR(label->geometry().center().x(), middle.x(), 1);
    EXPECT_LT(label->geometry().bottom(), tile.y);

    QTest::mouseClick(&bar.panel().window(), Qt::RightButton, {}, middle);
    bar.settle();
    EXPECT_EQ(shownWindow<LabelWindow>(), nullptr);
    const auto* menu = shownWindow<MenuWindow>();
    ASSERT_NE(menu, nullptr);
    EXPECT_LT(menu->geometry().bottom(), tile.y);
    bar.app.useSystemDock();
    EXPECT_EQ(shownWindow<MenuWindow>(), nullptr) << "it goes with its bar";
}

} // namespace larkspan::ui
