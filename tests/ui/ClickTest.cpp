#include "ui/BarOnScreen.h"
#include "ui/bar/TileItem.h"
#include "ui/bar/clickModifiers.h"

#include <QGuiApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

namespace larkspan::ui {

namespace {

QPoint placeOf(BarOnScreen& bar, int tile) {
    const Rect frame = bar.bar().frameOfTile(tile);
    return QPointF(frame.x + frame.width / 2, 72 - frame.y - frame.height / 2).toPoint();
}

std::vector<TileItem*> tileItems(const QQuickItem& item) {
    std::vector<TileItem*> tiles;
    for (QQuickItem* child : item.childItems()) {
        if (auto* tile = qobject_cast<TileItem*>(child)) tiles.push_back(tile);
        for (TileItem* tile : tileItems(*child))
            tiles.push_back(tile);
    }
    return tiles;
}

void click(BarOnScreen& bar, const std::string& name, Qt::MouseButton button = Qt::LeftButton,
           Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(&bar.panel().window(), button, keys, placeOf(bar, bar.tileOf(name)));
    bar.settle();
}

} // namespace

TEST(Click, BringsAnAppForwardAndSendsItAway) {
    BarOnScreen bar;
    bar.openApps({"Mail", "Notes"});
    bar.start();
    click(bar, "Mail");
    EXPECT_EQ(bar.mac.frontmost(), bar.mac.pidOf("com.example.Mail"));
    click(bar, "Mail");
    EXPECT_NE(bar.mac.frontmost(), bar.mac.pidOf("com.example.Mail"));
}

TEST(Click, TakesTheKeysAndButtonsThatStandForAMacs) {
    struct Case {
        Qt::MouseButton button;
        Qt::KeyboardModifiers keys;
        ClickModifiers modifiers;
    };
    const Case cases[] = {
        {Qt::LeftButton, {}, {}},
        {Qt::LeftButton, Qt::AltModifier, {.option = true}},
        {Qt::LeftButton, Qt::MetaModifier, {.option = true}},
        {Qt::LeftButton, Qt::ControlModifier, {.command = true}},
        {Qt::LeftButton, Qt::MetaModifier | Qt::ControlModifier, {.option = true, .command = true}},
        {Qt::LeftButton, Qt::ShiftModifier, {.newInstance = true}},
        {Qt::MiddleButton, {}, {.newInstance = true}},
    };
    for (const Case& each : cases)
        EXPECT_EQ(clickModifiers(each.button, each.keys), each.modifiers)
            << each.button << " " << each.keys.toInt();
}

TEST(Click, WithOptionHidesTheAppLeftBehind) {
    BarOnScreen bar;
    bar.openApps({"Mail", "Notes"});
    bar.start();
    click(bar, "Mail", Qt::LeftButton, Qt::MetaModifier);
    EXPECT_EQ(bar.mac.frontmost(), bar.mac.pidOf("com.example.Mail"));
    EXPECT_TRUE(bar.mac.world().app(bar.mac.pidOf("com.example.Notes"))->hidden);
}

TEST(Click, OfTheMiddleButtonOpensAnotherInstance) {
    BarOnScreen bar;
    bar.openApps({"Mail"});
    bar.start();
    const auto processes = bar.mac.world().apps.size();
    click(bar, "Mail", Qt::MiddleButton);
    EXPECT_EQ(bar.mac.world().apps.size(), processes + 1);
}

TEST(Click, NextToTheTilesDoesNothing) {
    BarOnScreen bar;
    bar.openApps({"Mail", "Notes"});
    bar.start();
    QTest::mouseClick(&bar.panel().window(), Qt::LeftButton, {}, QPoint(3, 3));
    bar.settle();
    EXPECT_EQ(bar.mac.frontmost(), bar.mac.pidOf("com.example.Notes"));
}

TEST(Click, OfTheOtherButtonBesideTheTilesOpensTheBarsMenu) {
    BarOnScreen bar;
    bar.openApps({"Mail"});
    bar.start();
    BarViewModel& model = bar.model();
    const auto menuAt = [&bar](double x) {
        QTest::mouseClick(&bar.panel().window(), Qt::RightButton, {}, QPoint(qRound(x), 40));
        bar.settle();
        const Menu& menu = bar.app.overlay()->menu();
        const std::string first = menu.empty() ? "" : menu.front().title;
        bar.app.overlay()->closeMenu();
        return first;
    };
    const double divider = model.viewX() + bar.bar().layout().marks.front().x;
    EXPECT_EQ(menuAt(divider), "Style");
    EXPECT_EQ(menuAt(model.glass().left() + 4), "Style");
    EXPECT_EQ(menuAt(placeOf(bar, bar.tileOf("Mail")).x()), "Mail");
    EXPECT_EQ(menuAt(placeOf(bar, bar.tileOf("Trash")).x()), "Open");
    EXPECT_EQ(menuAt(model.glass().left() - 40), "");
}

TEST(Keyboard, KeysGoToTheBarThatHasIt) {
    BarOnScreen bar;
    bar.openApps({"Mail", "Notes"});
    bar.start();
    const auto press = [&bar](Qt::Key key) { QTest::keyClick(&bar.panel().window(), key); };
    press(Qt::Key_Right);
    EXPECT_EQ(*bar.bar().litTile, -1);
    bar.bar().setKeyboard(true);
    press(Qt::Key_Left);
    EXPECT_EQ(*bar.bar().litTile, bar.tileOf("Trash"));
    press(Qt::Key_M);
    EXPECT_EQ(*bar.bar().litTile, bar.tileOf("Mail"));
    press(Qt::Key_Return);
    bar.settle();
    EXPECT_EQ(bar.mac.frontmost(), bar.mac.pidOf("com.example.Mail"));
    EXPECT_FALSE(*bar.bar().hasKeyboard);
}

TEST(Panel, HoldsItsStripWhileItShows) {
    BarOnScreen bar;
    bar.start();
    EXPECT_GT(bar.dressing.dressed, 0);
    EXPECT_EQ(bar.dressing.strip, 72);
    bar.panel().orderOut();
    EXPECT_EQ(bar.dressing.strip, 0);
}

TEST(Panel, TilesThatWereRisingComeToRestInACrowdToo) {
    BarOnScreen bar;
    bar.start();
    bar.appearance.set({});
    bar.openApps({"Mail", "Notes"});
    bar.mac.scheduler.runFor(3);
    std::vector<std::string> names;
    for (int i = 0; i < 50; ++i)
        names.push_back("App" + std::to_string(i));
    bar.openApps(names);
    bar.mac.scheduler.runFor(3);
    ASSERT_GT(tileItems(*bar.panel().window().contentItem()).size(), 50U);
    EXPECT_TRUE(QTest::qWaitFor([&bar] {
        const auto tiles = tileItems(*bar.panel().window().contentItem());
        return std::all_of(tiles.begin(), tiles.end(),
                           [](const TileItem* tile) { return tile->y() == 0; });
    }));
}

} // namespace larkspan::ui
