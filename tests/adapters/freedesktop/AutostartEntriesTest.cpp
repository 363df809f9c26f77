#include "adapters/freedesktop/entries/AutostartEntries.h"

#include "adapters/qt/QtScheduler.h"
#include "adapters/qt/RunLoop.h"
#include "adapters/qt/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace larkspan::freedesktop {
namespace {

class AutostartEntriesTest : public testing::Test {
  protected:
    AutostartEntriesTest() { home.write("data/applications/writer.desktop", entry); }

    const std::string entry = "[Desktop Entry]\nType=Application\nName=Writer\nExec=writer %U\n";
    const std::string own = "config/autostart/writer.desktop";
    const std::string everybodys = "xdg/autostart/writer.desktop";
    QCoreApplication& application = qt::testApplication();
    TemporaryFolder home;
    Environment environment{{{"HOME", home.path()},
                             {"XDG_DATA_HOME", home.path("data")},
                             {"XDG_CONFIG_HOME", home.path("config")},
                             {"XDG_DATA_DIRS", home.path("none")},
                             {"XDG_CONFIG_DIRS", home.path("xdg")}}};
    qt::QtScheduler scheduler;
    DesktopEntries entries{environment, scheduler};
    DefaultApplications defaults{environment, entries};
    InstalledApplications installed{entries, defaults};
    AutostartEntries autostart{environment, installed};
    const std::string writer = home.path("data/applications/writer.desktop");
};

TEST_F(AutostartEntriesTest, AnAppIsOpenedByACopyOfItsEntry) {
    EXPECT_EQ(autostart.opensAtLogin(writer), false);
    EXPECT_TRUE(autostart.setOpensAtLogin(writer, true));
    EXPECT_EQ(home.read(own), entry);
    EXPECT_EQ(autostart.opensAtLogin(writer), true);
    EXPECT_TRUE(autostart.setOpensAtLogin(writer, false));
    EXPECT_EQ(home.read(own), "");
    EXPECT_EQ(autostart.opensAtLogin(writer), false);
}

TEST_F(AutostartEntriesTest, UserFileTurnsOffASystemEntry) {
    home.write(everybodys, entry);
    EXPECT_EQ(autostart.opensAtLogin(writer), true);
    EXPECT_TRUE(autostart.setOpensAtLogin(writer, false));
    EXPECT_EQ(autostart.opensAtLogin(writer), false);
    EXPECT_EQ(home.read(everybodys), entry);
    EXPECT_TRUE(autostart.setOpensAtLogin(writer, true));
    EXPECT_EQ(autostart.opensAtLogin(writer), true);
    EXPECT_EQ(home.read(own), "") << "the system's file counts again";
}

TEST_F(AutostartEntriesTest, AnEntryTurnedOffElsewhereCanBeTurnedOn) {
    for (const char* off : {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n"}) {
        home.write(own, entry + off);
        EXPECT_EQ(autostart.opensAtLogin(writer), false) << off;
        EXPECT_TRUE(autostart.setOpensAtLogin(writer, true));
        EXPECT_EQ(autostart.opensAtLogin(writer), true) << off;
    }
}

TEST_F(AutostartEntriesTest, UnknownAppsAndFailuresAreReported) {
    EXPECT_EQ(autostart.opensAtLogin("/nowhere"), std::nullopt);
    EXPECT_FALSE(autostart.setOpensAtLogin("/nowhere", true));
    // A file is where the folder should be.
    home.write("config/autostart", "");
    EXPECT_FALSE(autostart.setOpensAtLogin(writer, true));
}

} // namespace
} // namespace larkspan::freedesktop
