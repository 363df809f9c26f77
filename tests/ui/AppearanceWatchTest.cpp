#include "ui/parts/AppearanceWatch.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPalette>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace larkspan::ui {

namespace {

class AppearanceWatchTest : public testing::Test {
  protected:
    QString file() const { return folder.filePath("gtk-3.0/settings.ini"); }
    static QByteArray theme(const char* name) {
        return QByteArray("[Settings]\ngtk-theme-name=") + name + "\n";
    }
    void overwrite(const QByteArray& content) const {
        QFile target(file());
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        target.write(content);
    }
    void replace(const QByteArray& content) const {
        QSaveFile target(file());
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        target.write(content);
        ASSERT_TRUE(target.commit());
    }
    bool becomes(const Appearance::Values& values) {
        return QTest::qWaitFor([&] {
            return Appearance::Values{appearance.isDark(), appearance.reducesMotion(),
                                      appearance.increasesContrast()} == values;
        });
    }

    QTemporaryDir folder;
    Appearance appearance;
};

} // namespace

TEST_F(AppearanceWatchTest, FollowsAFileThatAppearsIsWrittenAndReplaced) {
    const AppearanceWatch watch(appearance, folder.path());
    EXPECT_FALSE(appearance.isDark());
    QDir(folder.path()).mkpath("gtk-3.0");
    QCoreApplication::processEvents();
    overwrite(theme("Night-dark"));
    EXPECT_TRUE(becomes({.isDark = true}));
    overwrite(theme("Day"));
    EXPECT_TRUE(becomes({}));
    replace(theme("HighContrast"));
    EXPECT_TRUE(becomes({.increasesContrast = true}));
    replace(theme("Night-dark") + "gtk-enable-animations=0\n");
    EXPECT_TRUE(becomes({.isDark = true, .reducesMotion = true}));
    QFile::remove(file());
    EXPECT_TRUE(becomes({}));
    overwrite(theme("Night-dark"));
    EXPECT_TRUE(becomes({.isDark = true}));
}

TEST_F(AppearanceWatchTest, FollowsThePalette) {
    const AppearanceWatch watch(appearance, folder.path());
    const QPalette before = QGuiApplication::palette();
    QGuiApplication::setPalette(QPalette(QColor(30, 30, 30)));
    EXPECT_TRUE(becomes({.isDark = true}));
    QGuiApplication::setPalette(before);
    EXPECT_TRUE(becomes({}));
}

} // namespace larkspan::ui
