#include "ui/permissions/PermissionsWindow.h"

#include "adapters/sim/SimMac.h"
#include "ui/keepPicture.h"
#include "ui/parts/SymbolItem.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace larkspan::ui {

namespace {

class PermissionsWindowTest : public testing::Test {
  protected:
    PermissionsWindowTest() {
        mac.refuseAccessibility();
        mac.refuseScreenRecording();
    }
    ~PermissionsWindowTest() override { QGuiApplication::setLayoutDirection(Qt::LeftToRight); }

    /// One item of each row, in the order of the rows.
    template <typename Item>
    std::vector<Item*> items(const char* name) {
        std::vector<Item*> found;
        for (QQuickItem* row : view()->childItems())
            for (Item* item : row->findChildren<Item*>(name))
                found.push_back(item);
        return found;
    }
    QQuickItem* view() { return permissionsWindow.window()->contentItem()->childItems().front(); }
    std::vector<QString> symbols() {
        std::vector<QString> names;
        for (SymbolItem* item : items<SymbolItem>("symbol"))
            names.push_back(item->property("symbol").toString());
        return names;
    }
    QImage picture(const char* name) {
        const QImage picture = permissionsWindow.window()->grabWindow();
        keepPicture(picture, name);
        return picture;
    }

    sim::SimMac mac;
    Platform platform = mac.platform();
    PermissionsModel permissions{platform.scheduler, platform.accessibility, platform.screenCapture,
                                 platform.applications, platform.application};
    Views views;
    Appearance appearance;
    PermissionsWindow permissionsWindow{permissions, views, appearance};
    const QString check = "checkmark.circle.fill";
    const QString mark = "exclamationmark.circle.fill";
};

} // namespace

TEST_F(PermissionsWindowTest, TheWindowIsMadeWhenFirstShownAndKept) {
    EXPECT_EQ(permissionsWindow.window(), nullptr);
    permissions.show();
    QQuickWindow* window = permissionsWindow.window();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->size(), QSize(480, 320));
    EXPECT_EQ(window->title(), "Larkspan");
    const QPoint off = window->geometry().center() - window->screen()->availableGeometry().center();
    EXPECT_LE(off.manhattanLength(), 2);
    window->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    permissions.show();
    EXPECT_EQ(permissionsWindow.window(), window);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(PermissionsWindowTest, ClosingTheWindowEndsTheReading) {
    permissions.show();
    EXPECT_GT(mac.scheduler.timerCount(), 0U);
    permissionsWindow.window()->close();
    EXPECT_FALSE(permissionsWindow.window()->isVisible());
    EXPECT_FALSE(*permissions.isShown);
    EXPECT_EQ(mac.scheduler.timerCount(), 0U);
}

TEST_F(PermissionsWindowTest, ARowsSymbolTurnsWithItsPermission) {
    permissions.show();
    EXPECT_EQ(symbols(), (std::vector{mark, mark}));
    const QImage missing = picture("permissions-missing");
    mac.refuseAccessibility(false);
    mac.scheduler.runFor(0.6);
    EXPECT_EQ(symbols(), (std::vector{check, mark}));
    EXPECT_FALSE(items<QQuickItem>("grant")[0]->isVisible());
    EXPECT_TRUE(items<QQuickItem>("grant")[1]->isVisible());
    const QImage granted = picture("permissions-half");
    const QRect symbol = items<SymbolItem>("symbol")[0]->mapRectToScene({0, 0, 28, 28}).toRect();
    // The disc beside its sign: orange, then green.
    const QPoint disc(symbol.center().x(), symbol.top() + 3);
    EXPECT_GT(qRed(missing.pixel(disc)), qGreen(missing.pixel(disc)) + 50);
    EXPECT_GT(qGreen(granted.pixel(disc)), qRed(granted.pixel(disc)) + 50);
}

TEST_F(PermissionsWindowTest, EachButtonAsksForItsOwnPermissionByPointerAndByKey) {
    permissions.show();
    QQuickWindow* window = permissionsWindow.window();
    const auto buttons = items<QQuickItem>("grant");
    ASSERT_EQ(buttons.size(), 2U);
    const auto center = [](QQuickItem* item) {
        return item->mapRectToScene({0, 0, item->width(), item->height()}).center().toPoint();
    };
    QTest::mouseClick(window, Qt::LeftButton, {}, center(buttons[0]));
    EXPECT_EQ(mac.accessibility.trustRequests(), 1);
    EXPECT_EQ(mac.screenCapture.requests(), 0);
    QTest::keyClick(window, Qt::Key_Tab);
    QTest::keyClick(window, Qt::Key_Tab);
    EXPECT_TRUE(buttons[1]->hasActiveFocus());
    picture("permissions-keyboard");
    QTest::keyClick(window, Qt::Key_Space);
    EXPECT_EQ(mac.accessibility.trustRequests(), 1);
    EXPECT_EQ(mac.screenCapture.requests(), 1);
}

TEST_F(PermissionsWindowTest, FollowsDarkContrastAndDirection) {
    permissions.show();
    mac.refuseScreenRecording(false);
    mac.scheduler.runFor(2);
    const QPoint corner(4, 4);
    EXPECT_GT(qGray(picture("permissions-light").pixel(corner)), 200);
    appearance.set({.isDark = true});
    EXPECT_LT(qGray(picture("permissions-dark").pixel(corner)), 60);
    appearance.set({.isDark = true, .increasesContrast = true});
    picture("permissions-contrast");
    const double left = items<SymbolItem>("symbol")[0]->mapToScene({0, 0}).x();
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    const double mirrored = items<SymbolItem>("symbol")[0]->mapToScene({0, 0}).x();
    picture("permissions-right-to-left");
    EXPECT_DOUBLE_EQ(mirrored, 480 - left - 28);
}

} // namespace larkspan::ui
