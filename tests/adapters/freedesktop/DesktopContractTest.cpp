#include "adapters/freedesktop/FreedesktopTrash.h"
#include "adapters/freedesktop/PinnedFile.h"
#include "adapters/freedesktop/entries/DefaultApplications.h"
#include "adapters/freedesktop/entries/DesktopEntries.h"
#include "adapters/freedesktop/entries/LoginEntry.h"
#include "adapters/qt/PropertyJson.h"
#include "adapters/qt/QtScheduler.h"
#include "adapters/qt/RunLoop.h"
#include "adapters/qt/TemporaryFolder.h"
#include "adapters/x11/X11CoreDock.h"
#include "adapters/x11/X11ScreenCapture.h"
#include "platform/CoreDock.h"
#include "platform/DockPreferences.h"
#include "platform/LoginItem.h"
#include "platform/ScreenCapture.h"
#include "platform/TrashFolder.h"
#include "platform/contract/CoreDockContract.h"
#include "platform/contract/DockPreferencesContract.h"
#include "platform/contract/ScreenCaptureContract.h"
#include "platform/contract/ShellContract.h"

#include <filesystem>

namespace larkspan::contract {
namespace {

/// A user's home folder, and a desktop on which nothing is installed.
struct Home {
    QCoreApplication& application = qt::testApplication();
    TemporaryFolder folder;
    freedesktop::Environment environment{{{"HOME", folder.path()},
                                          {"XDG_DATA_DIRS", folder.path("none")},
                                          {"XDG_CONFIG_DIRS", folder.path("none")},
                                          {"PATH", "/usr/bin:/bin"}}};
};

class PinnedFileWorld : public DockPreferencesWorld {
  public:
    DockPreferences& preferences() override { return file_; }
    std::optional<PropertyValue> readElsewhere(const std::string& key) override {
        const auto values = stored();
        const auto found = values.find(key);
        // Before anything was stored, the list has the desktop's default apps.
        if (found == values.end()) return PropertyValue(PropertyValue::Array{});
        return found->second;
    }
    void writeElsewhere(const std::string& key, const PropertyValue& value) override {
        auto values = stored();
        values[key] = value;
        home_.folder.write("pinned/pinned.json", qt::jsonText(values));
    }
    bool runUntil(const std::function<bool()>& condition) override {
        return qt::runUntil(condition);
    }

  private:
    PropertyValue::Dictionary stored() const {
        auto values = qt::parseJsonText(home_.folder.read("pinned/pinned.json"));
        return values.value_or(PropertyValue::Dictionary{});
    }
    std::string makeFolder() {
        std::filesystem::create_directories(home_.folder.path("pinned"));
        return home_.folder.path("pinned/pinned.json");
    }

    Home home_;
    qt::QtScheduler scheduler_;
    freedesktop::DesktopEntries entries_{home_.environment, scheduler_};
    freedesktop::DefaultApplications defaults_{home_.environment, entries_};
    freedesktop::PinnedFile file_{makeFolder(), defaults_, [](const std::string&) {}};
};

class FreedesktopTrashWorld : public TrashWorld {
  public:
    TrashFolder& trash() override { return trash_; }
    void throwAway(const std::string& name) override { home_.folder.write(files_ + name, ""); }
    void empty() override {
        for (const auto& entry : std::filesystem::directory_iterator(home_.folder.path(files_)))
            std::filesystem::remove_all(entry.path());
    }
    void makeUnreadable() override { home_.folder.write(".local/share/Trash", "no folder"); }
    std::size_t opened() override { return opened_; }
    bool runUntil(const std::function<bool()>& condition) override {
        return qt::runUntil(condition);
    }

  private:
    const std::string files_ = ".local/share/Trash/files/";
    Home home_;
    std::size_t opened_ = 0;
    freedesktop::FreedesktopTrash trash_{home_.environment,
                                         [this](const std::string&) { ++opened_; }};
};

class LoginEntryWorld : public LoginItemWorld {
  public:
    LoginItem& item() override { return entry_; }
    void switchOff() override {
        home_.folder.write(".config/autostart/larkspan.desktop", "[Desktop Entry]\nHidden=true\n");
    }
    // A file is where the folder should be.
    void refuse() override { home_.folder.write(".config/autostart", ""); }

  private:
    Home home_;
    freedesktop::LoginEntry entry_{home_.environment, "/usr/bin/larkspan",
                                   [](const std::string&) {}};
};

class NoDockWorld : public CoreDockWorld {
  public:
    CoreDock& dock() override { return dock_; }
    bool hasDock() override { return false; }

  private:
    x11::X11CoreDock dock_;
};

class OpenScreenWorld : public ScreenCaptureWorld {
  public:
    ScreenCapture& screenCapture() override { return capture_; }
    bool refuse() override { return false; }
    void grant() override {}
    int prompts() override { return 0; }

  private:
    x11::X11ScreenCapture capture_;
};

INSTANTIATE_TEST_SUITE_P(X11, CoreDockContract,
                         testing::Values(adapter<CoreDockWorld, NoDockWorld>("X11CoreDock")));
INSTANTIATE_TEST_SUITE_P(
    X11, ScreenCaptureContract,
    testing::Values(adapter<ScreenCaptureWorld, OpenScreenWorld>("X11ScreenCapture")));
INSTANTIATE_TEST_SUITE_P(
    Files, DockPreferencesContract,
    testing::Values(adapter<DockPreferencesWorld, PinnedFileWorld>("PinnedFile")));
INSTANTIATE_TEST_SUITE_P(
    Files, TrashContract,
    testing::Values(adapter<TrashWorld, FreedesktopTrashWorld>("FreedesktopTrash")));
INSTANTIATE_TEST_SUITE_P(Files, LoginItemContract,
                         testing::Values(adapter<LoginItemWorld, LoginEntryWorld>("LoginEntry")));

} // namespace
} // namespace larkspan::contract
