#include "ui/menu/MenuWindow.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace larkspan::ui {

namespace {

class MenuWindowTest : public testing::Test {
  protected:
    void open(const Menu& lines) { menu.open(lines, {700, 828, 50, 72}, {0, 0, 1440, 900}, true); }

    Views views;
    Appearance appearance;
    MenuWindow menu{views, appearance};
};

} // namespace

TEST_F(MenuWindowTest, IsAsWideAsItsLongestLine) {
    const std::string title = "A window whose title is far from short";
    open({{.title = "Open"}});
    const int narrow = menu.width();
    open({{.title = "Open"}, {.title = title}});
    QFont font = QGuiApplication::font();
    font.setPixelSize(13);
    EXPECT_GT(menu.width(), QFontMetricsF(font).horizontalAdvance(QString::fromStdString(title)));
    open({{.title = "Open"}});
    EXPECT_EQ(menu.width(), narrow);
}

TEST_F(MenuWindowTest, IsAsHighAsAllItsLines) {
    open({{.title = "Open"}, {.title = "Quit"}});
    const int without = menu.height();
    open({{.title = "Open"}, MenuItem::separator(), {.title = "Quit"}});
    EXPECT_GT(menu.height(), without);
}

TEST_F(MenuWindowTest, StandsAboveItsTileAndOnTheScreen) {
    open({{.title = "Open"}, {.title = "Quit"}});
    EXPECT_NEAR(menu.geometry().center().x(), 725, 1);
    EXPECT_LT(menu.geometry().bottom(), 828);
    menu.open({{.title = "Open"}}, {1400, 828, 40, 72}, {0, 0, 1440, 900}, true);
    EXPECT_LT(menu.geometry().right(), 1440);
}

TEST_F(MenuWindowTest, KeysSkipWhatCannotBeChosen) {
    std::string chosen;
    const auto choose = [&chosen](const char* what) { return [&chosen, what] { chosen = what; }; };
    open({{.kind = MenuItem::Kind::heading, .title = "Style"},
          {.title = "Bar", .action = choose("bar")},
          MenuItem::separator(),
          {.title = "Big", .isEnabled = false},
          {.title = "Island", .action = choose("island")}});
    menu.lightFirst();
    EXPECT_EQ(menu.current(), 1);
    QTest::keyClick(&menu, Qt::Key_Down);
    EXPECT_EQ(menu.current(), 4);
    QTest::keyClick(&menu, Qt::Key_Down);
    EXPECT_EQ(menu.current(), 1);
    QTest::keyClick(&menu, Qt::Key_I);
    QTest::keyClick(&menu, Qt::Key_Return);
    EXPECT_EQ(chosen, "island");
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(MenuWindowTest, TheOptionKeyChangesLinesInTheirPlaces) {
    std::string chosen;
    const auto line = [&chosen](const std::string& title) {
        MenuItem item{.title = title};
        item.action = [&chosen, title] { chosen = title; };
        return item;
    };
    auto hide = line("Hide");
    hide.alternate =
        std::make_shared<const MenuItem>(line("Hide all the others, which is a longer line"));
    open({line("Show"), hide, line("Quit")});
    const QRect place = menu.geometry();
    const auto title = [this](int row) {
        return menu.lines()->data(menu.lines()->index(row), MenuModel::TitleRole).toString();
    };
    menu.setCurrent(1);
    QTest::keyPress(&menu, Qt::Key_Alt);
    EXPECT_EQ(title(1), "Hide all the others, which is a longer line");
    EXPECT_EQ(title(2), "Quit");
    EXPECT_EQ(menu.current(), 1);
    EXPECT_EQ(menu.geometry(), place);
    QTest::keyRelease(&menu, Qt::Key_Alt);
    EXPECT_EQ(title(1), "Hide");
    QTest::keyPress(&menu, Qt::Key_Alt);
    QTest::keyClick(&menu, Qt::Key_Return, Qt::AltModifier);
    EXPECT_EQ(chosen, "Hide all the others, which is a longer line");
}

TEST_F(MenuWindowTest, AKeyThatWasLetGoElsewhereIsNoticedAtTheNextMove) {
    MenuItem quit{.title = "Quit"};
    quit.alternate = std::make_shared<const MenuItem>(MenuItem{.title = "Force Quit"});
    open({quit});
    QTest::keyPress(&menu, Qt::Key_Alt);
    ASSERT_EQ(menu.lines()->item(0).title, "Force Quit");
    QTest::mouseMove(&menu, QPoint(5, 5));
    EXPECT_EQ(menu.lines()->item(0).title, "Quit");
}

TEST_F(MenuWindowTest, AnOpenMenuGrowsUpwardsAndKeepsItsLight) {
    open({{.title = "Options"}, {.title = "Quit"}});
    const int bottom = menu.geometry().bottom();
    const int height = menu.height();
    menu.setCurrent(1);
    open({{.title = "Inbox"}, {.title = "Drafts"}, {.title = "Options"}, {.title = "Quit"}});
    EXPECT_GT(menu.height(), height);
    EXPECT_EQ(menu.geometry().bottom(), bottom);
    EXPECT_EQ(menu.current(), 3);
}

} // namespace larkspan::ui
