#include "ui/parts/DesktopAppearance.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace larkspan::ui {

TEST(DesktopAppearance, FollowsTheDesktopsSettingsFile) {
    struct Case {
        const char* lines;
        Appearance::Values expected;
    };
    for (const Case& one :
         {Case{"", {}}, Case{"gtk-application-prefer-dark-theme=1", {.isDark = true}},
          Case{"gtk-application-prefer-dark-theme=true", {.isDark = true}},
          Case{"gtk-application-prefer-dark-theme=0", {}},
          Case{"gtk-theme-name=Adwaita-dark", {.isDark = true}},
          Case{"gtk-theme-name=Darkness", {}},
          Case{"gtk-theme-name=HighContrast", {.increasesContrast = true}},
          Case{"gtk-enable-animations=0", {.reducesMotion = true}}}) {
        const QTemporaryDir folder;
        QDir(folder.path()).mkpath("gtk-3.0");
        QFile file(folder.filePath("gtk-3.0/settings.ini"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("[Settings]\n") + one.lines + "\n");
        file.close();
        EXPECT_EQ(desktopAppearance(folder.path()), one.expected) << one.lines;
    }
}

} // namespace larkspan::ui
