#include "ui/BarOnScreen.h"
#include "ui/bar/TileItem.h"

#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

namespace larkspan::ui {

namespace {

int tileOf(BarOnScreen& bar, const std::string& name) {
    TileModel& tiles = *bar.scene().tiles();
    for (int i = 0; i < tiles.rowCount(); ++i)
        if (tiles.row(i).item.name == name) return i;
    return -1;
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
    const QPointF place = bar.scene().tileFrame(tileOf(bar, name)).center();
    QTest::mouseClick(&bar.panel().window(), button, keys, place.toPoint());
    bar.settle();
}

} // namespace

TEST(Click, BringsAnAppForwardAndSendsItAway) {
    BarOnScreen bar;
    bar.openApps({"Mail", "Notes"});
    bar.start();
    click(bar, "Mail");
    EXPECT_EQ(bar.mac.frontmost(), bar.mac.pidOf("com.example.Mail"));
    EXPECT_TRUE(bar.scene().row(tileOf(bar, "Mail")).isFront);
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
    BarOnScreen bar;
    bar.openApps({"Mail"});
    bar.start();
    std::vector<ClickModifiers> clicked;
    QObject::connect(&bar.scene(), &BarScene::tileClicked, &bar.scene(),
                     [&](int, ClickModifiers modifiers) { clicked.push_back(modifiers); });
    for (const Case& each : cases) {
        click(bar, "Mail", each.button, each.keys);
        ASSERT_FALSE(clicked.empty());
        EXPECT_EQ(clicked.back(), each.modifiers) << clicked.size();
    }
    EXPECT_EQ(clicked.size(), std::size(cases));
}

TEST(Click, WithOptionHidesTheAppLeftBehind) {
    BarOnScreen bar;
    bar.openApps({"Mail", "Notes"});
    bar.start();
    click(bar, "Mail", Qt::LeftButton, Qt::MetaModifier);
    EXPECT_EQ(bar.mac.frontmost(), bar.mac.pidOf("com.example.Mail"));
    EXPECT_TRUE(bar.mac.world().app(bar.mac.pidOf("com.example.Notes"))->hidden);
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
    BarScene& scene = bar.scene();
    QSignalSpy barMenu(&scene, &BarScene::barMenuRequested);
    QSignalSpy tileMenu(&scene, &BarScene::menuRequested);
    const auto click = [&bar](double x) {
        QTest::mouseClick(&bar.panel().window(), Qt::RightButton, {}, QPoint(qRound(x), 40));
    };
    const double divider =
        scene.viewX() +
        scene.marks()->data(scene.marks()->index(0), MarkModel::SlotXRole).toDouble();
    click(divider);
    click(scene.glass().left() + 4);
    EXPECT_EQ(barMenu.count(), 2);
    EXPECT_EQ(tileMenu.count(), 0);
    EXPECT_EQ(barMenu.at(0).at(0).toDouble(), qRound(divider));
    click(scene.tileFrame(0).center().x());
    click(scene.glass().left() - 40);
    EXPECT_EQ(barMenu.count(), 2);
    EXPECT_EQ(tileMenu.count(), 1);
}

TEST(Keyboard, WalksOverTheTilesAndOpensOne) {
    BarOnScreen bar;
    bar.openApps({"Mail", "Notes"});
    bar.start();
    BarScene& scene = bar.scene();
    EXPECT_FALSE(scene.pressKey(Qt::Key_Right, {}));
    scene.setKeyboard(true);
    EXPECT_EQ(scene.litTile(), 0);
    scene.pressKey(Qt::Key_Left, {});
    EXPECT_EQ(scene.row(scene.litTile()).section, TileRow::Section::trash);
    scene.pressKey(Qt::Key_M, "m");
    EXPECT_EQ(scene.litTile(), tileOf(bar, "Mail"));
    scene.pressKey(Qt::Key_Return, "\r");
    bar.settle();
    EXPECT_EQ(bar.mac.frontmost(), bar.mac.pidOf("com.example.Mail"));
    EXPECT_FALSE(scene.hasKeyboard());
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
    bar.scene().refresh();
    std::vector<std::string> names;
    for (int i = 0; i < 50; ++i)
        names.push_back("App" + std::to_string(i));
    bar.openApps(names);
    bar.mac.scheduler.runFor(3);
    bar.scene().refresh();
    ASSERT_GT(tileItems(*bar.panel().window().contentItem()).size(), 50U);
    EXPECT_TRUE(QTest::qWaitFor([&bar] {
        const auto tiles = tileItems(*bar.panel().window().contentItem());
        return std::all_of(tiles.begin(), tiles.end(),
                           [](const TileItem* tile) { return tile->y() == 0; });
    }));
}

TEST(Panel, ManyAppsScrollAndCanAllBeReached) {
    BarOnScreen bar;
    std::vector<std::string> names;
    for (int i = 0; i < 70; ++i)
        names.push_back("App" + std::to_string(i));
    bar.openApps(names);
    bar.start();
    BarScene& scene = bar.scene();
    ASSERT_TRUE(scene.scrolls());
    scene.scrollBy(100000);
    const QRectF last = scene.tileFrame(scene.tiles()->rowCount() - 1);
    EXPECT_LE(last.right(), scene.viewX() + scene.viewWidth());
    EXPECT_GE(last.left(), scene.viewX());
}

} // namespace larkspan::ui
