#include "ui/MenuWindow.h"

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

} // namespace larkspan::ui
