#include "adapters/freedesktop/FreedesktopTrash.h"
#include "adapters/freedesktop/PinnedFile.h"
#include "adapters/freedesktop/entries/LoginEntry.h"

#include "adapters/freedesktop/DesktopFolders.h"
#include "adapters/freedesktop/entries/ExecLine.h"
#include "platform/LoginItem.h"

#include <gmock/gmock.h>

namespace larkspan::freedesktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class PinnedFileTest : public DesktopFolders {
  protected:
    PinnedFile open() {
        return {folder_.path("home/.config/larkspan/pinned.json"), defaults_,
                [this](const std::string& line) { reports_.push_back(line); }};
    }
    static std::vector<std::string> identifiers(const PinnedFile& file) {
        std::vector<std::string> result;
        const auto list = file.copyAppValue("persistent-apps");
        if (!list || !list->as<PropertyValue::Array>()) return {"no list"};
        for (const auto& each : *list->as<PropertyValue::Array>()) {
            const auto& tile = *each.as<PropertyValue::Dictionary>();
            const auto& data = *tile.at("tile-data").as<PropertyValue::Dictionary>();
            result.push_back(*data.at("bundle-identifier").as<std::string>());
        }
        return result;
    }
    static PropertyValue listOf(const std::string& identifier) {
        using Dictionary = PropertyValue::Dictionary;
        return PropertyValue::Array{
            Dictionary{{"tile-data", Dictionary{{"bundle-identifier", identifier}}}}};
    }

    std::vector<std::string> reports_;
};

TEST_F(PinnedFileTest, TheFirstListHasTheDefaultsAndIsKept) {
    install("files", "MimeType=inode/directory;\nCategories=FileManager;");
    install("web", "MimeType=x-scheme-handler/https;\nCategories=WebBrowser;", "The Web");
    EXPECT_THAT(identifiers(open()), ElementsAre("web"));
    EXPECT_THAT(folder_.read("home/.config/larkspan/pinned.json"), HasSubstr("The Web"));
    install("a-web", "MimeType=x-scheme-handler/https;\nCategories=WebBrowser;");
    EXPECT_THAT(identifiers(open()), ElementsAre("web"));
}

TEST_F(PinnedFileTest, SynchronisingWritesChanges) {
    auto file = open();
    file.setAppValue("persistent-apps", listOf("one"));
    EXPECT_THAT(identifiers(open()), IsEmpty());
    EXPECT_TRUE(file.synchronize());
    EXPECT_THAT(identifiers(open()), ElementsAre("one"));
}

TEST_F(PinnedFileTest, OutsideChangesAreAnnouncedAndOwnOnesAreNot) {
    auto file = open();
    file.setAppValue("persistent-apps", listOf("one"));
    ASSERT_TRUE(file.synchronize());
    int changes = 0;
    const Handle subscription = file.subscribe([&] { ++changes; });
    ASSERT_TRUE(file.announcesChanges());
    bool haveSeenWriting = false;
    FolderWatch witness([&] { haveSeenWriting = true; });
    witness.add(folder_.path("home/.config/larkspan"));
    file.setAppValue("persistent-apps", listOf("two"));
    ASSERT_TRUE(file.synchronize());
    folder_.write("home/.config/larkspan/settings.json", "{}");
    ASSERT_TRUE(qt::runUntil([&] { return haveSeenWriting; }));
    EXPECT_EQ(changes, 0);

    auto other = open();
    other.setAppValue("persistent-apps", listOf("three"));
    ASSERT_TRUE(other.synchronize());
    ASSERT_TRUE(qt::runUntil([&] { return changes > 0; }));
    EXPECT_THAT(identifiers(file), ElementsAre("three"));
}

TEST_F(PinnedFileTest, DamagedFileIsSetAside) {
    folder_.write("home/.config/larkspan/pinned.json", "{\"persistent-apps\": [");
    EXPECT_THAT(identifiers(open()), IsEmpty());
    EXPECT_THAT(reports_, ElementsAre(HasSubstr("pinned.json.damaged")));
    EXPECT_EQ(folder_.read("home/.config/larkspan/pinned.json.damaged"), "{\"persistent-apps\": [");
}

class LoginEntryTest : public DesktopFolders {
  protected:
    LoginEntry login(const std::string& program = "/opt/lark span/larkspan") {
        return {environment_, program, [](const std::string&) {}};
    }
    const std::string file_ = "home/.config/autostart/larkspan.desktop";
};

TEST_F(LoginEntryTest, StatusFollowsTheFile) {
    auto item = login();
    EXPECT_EQ(item.status(), LoginItem::Status::notRegistered);
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(item.status(), LoginItem::Status::enabled);
    folder_.write(file_, folder_.read(file_) + "X-GNOME-Autostart-enabled=false\n");
    EXPECT_EQ(item.status(), LoginItem::Status::notRegistered);
    folder_.write(file_, "[Desktop Entry]\nHidden=true\n");
    EXPECT_EQ(item.status(), LoginItem::Status::notRegistered);
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(item.status(), LoginItem::Status::enabled);
    EXPECT_TRUE(item.unregisterItem());
    EXPECT_FALSE(item.unregisterItem()) << "it is not registered";
    EXPECT_EQ(item.status(), LoginItem::Status::notRegistered);
}

TEST_F(LoginEntryTest, AnyPathIsQuotedCorrectly) {
    for (const std::string program :
         {"/usr/bin/larkspan", "/a b/larkspan", "/50%/l", R"(/a"b$c`d\e/l)"}) {
        ASSERT_TRUE(login(program).registerItem());
        const auto entry = parseDesktopEntry(folder_.read(file_), XdgFolders(environment_));
        ASSERT_TRUE(entry) << program;
        EXPECT_THAT(commandLines(*entry, entry->exec, {}), ElementsAre(ElementsAre(program)));
    }
}

class FreedesktopTrashTest : public DesktopFolders {};

TEST_F(FreedesktopTrashTest, CountsAndFollowsFiles) {
    std::string opened;
    FreedesktopTrash trash(environment_, [&](const std::string& path) { opened = path; });
    EXPECT_EQ(trash.entryCount(), 0u) << "before anything was thrown away";
    ASSERT_TRUE(trash.announcesChanges());
    int changes = 0;
    const Handle subscription = trash.subscribe([&] { ++changes; });
    const std::string files = "home/.local/share/Trash/files/";
    folder_.write(files + "old letter", "");
    ASSERT_TRUE(qt::runUntil([&] { return changes > 0; }));
    EXPECT_EQ(trash.entryCount(), 1u);

    changes = 0;
    folder_.write(files + "folder/with/more", "");
    folder_.write(files + ".DS_Store", "");
    ASSERT_TRUE(qt::runUntil([&] { return changes > 0; }));
    EXPECT_EQ(trash.entryCount(), 3u);
    EXPECT_TRUE(trash.holdsDesktopServicesFile());

    changes = 0;
    std::filesystem::remove_all(folder_.path("home/.local/share/Trash"));
    ASSERT_TRUE(qt::runUntil([&] { return changes > 0; }));
    EXPECT_EQ(trash.entryCount(), 0u);
    changes = 0;
    folder_.write(files + "again", "");
    ASSERT_TRUE(qt::runUntil([&] { return changes > 0; }));
    EXPECT_EQ(trash.entryCount(), 1u);

    trash.open();
    EXPECT_EQ(opened, folder_.path("home/.local/share/Trash/files"));
}

TEST_F(FreedesktopTrashTest, AnUnreadableFolderHasNoCount) {
    folder_.write("home/.local/share/Trash/files", "a file where the folder should be");
    const FreedesktopTrash trash(environment_, [](const std::string&) {});
    EXPECT_EQ(trash.entryCount(), std::nullopt);
}

} // namespace
} // namespace larkspan::freedesktop
