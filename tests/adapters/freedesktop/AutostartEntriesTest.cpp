#include "adapters/freedesktop/entries/AutostartEntries.h"

#include "adapters/freedesktop/DesktopFolders.h"

namespace larkspan::freedesktop {
namespace {

class AutostartEntriesTest : public DesktopFolders {
  protected:
    AutostartEntriesTest() { install("writer", "Exec=writer %U"); }

    const std::string own = "home/.config/autostart/writer.desktop";
    const std::string everybodys = "etc/autostart/writer.desktop";
    InstalledApplications installed{entries_, defaults_};
    AutostartEntries autostart{environment_, installed};
    const std::string writer = folder_.path("data/applications/writer.desktop");
    const std::string entry = "[Desktop Entry]\nType=Application\nName=Name\nExec=writer %U\n";
};

TEST_F(AutostartEntriesTest, AnAppIsOpenedByACopyOfItsEntry) {
    EXPECT_EQ(autostart.opensAtLogin(writer), false);
    EXPECT_TRUE(autostart.setOpensAtLogin(writer, true));
    EXPECT_EQ(folder_.read(own), entry);
    EXPECT_EQ(autostart.opensAtLogin(writer), true);
    EXPECT_TRUE(autostart.setOpensAtLogin(writer, false));
    EXPECT_EQ(folder_.read(own), "");
    EXPECT_EQ(autostart.opensAtLogin(writer), false);
}

TEST_F(AutostartEntriesTest, UserFileTurnsOffASystemEntry) {
    folder_.write(everybodys, entry);
    EXPECT_EQ(autostart.opensAtLogin(writer), true);
    EXPECT_TRUE(autostart.setOpensAtLogin(writer, false));
    EXPECT_EQ(autostart.opensAtLogin(writer), false);
    EXPECT_EQ(folder_.read(everybodys), entry);
    EXPECT_TRUE(autostart.setOpensAtLogin(writer, true));
    EXPECT_EQ(autostart.opensAtLogin(writer), true);
    EXPECT_EQ(folder_.read(own), "") << "the system's file counts again";
}

TEST_F(AutostartEntriesTest, AnEntryTurnedOffElsewhereCanBeTurnedOn) {
    for (const char* off : {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n"}) {
        folder_.write(own, entry + off);
        EXPECT_EQ(autostart.opensAtLogin(writer), false) << off;
        EXPECT_TRUE(autostart.setOpensAtLogin(writer, true));
        EXPECT_EQ(autostart.opensAtLogin(writer), true) << off;
    }
}

TEST_F(AutostartEntriesTest, UnknownAppsAndFailuresAreReported) {
    EXPECT_EQ(autostart.opensAtLogin("/nowhere"), std::nullopt);
    EXPECT_FALSE(autostart.setOpensAtLogin("/nowhere", true));
    // A file is where the folder should be.
    folder_.write("home/.config/autostart", "");
    EXPECT_FALSE(autostart.setOpensAtLogin(writer, true));
}

} // namespace
} // namespace larkspan::freedesktop
