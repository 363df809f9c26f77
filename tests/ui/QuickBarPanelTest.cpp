#include "ui/BarOnScreen.h"

#include <gtest/gtest.h>

namespace larkspan::ui {

namespace {

/// The last tile of that name, in display coordinates.
Rect frameOnDisplay(BarOnScreen& bar, const std::string& name) {
    const TileModel& tiles = *bar.scene().tiles();
    for (int i = tiles.rowCount() - 1; i >= 0; --i) {
        if (tiles.row(i).item.name != name) continue;
        const Rect tile = bar.panel().tileOnScreen(i);
        return {tile.x, 900 - tile.maxY(), tile.width, tile.height};
    }
    return {};
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
    EXPECT_EQ(before, frameOnDisplay(bar, "Notes"))
        << "among the windows, though it is pinned, too";
    bar.mac.quit(bar.mac.pidOf("com.example.Mail"));
    bar.settle();
    EXPECT_NE(told(), before);
    EXPECT_EQ(told(), frameOnDisplay(bar, "Notes"));
    bar.app.useSystemDock();
    bar.settle();
    EXPECT_TRUE(bar.dressing.tiles.empty());
}

} // namespace larkspan::ui
