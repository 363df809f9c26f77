#pragma once

#include "adapters/freedesktop/entries/DefaultApplications.h"
#include "adapters/freedesktop/entries/DesktopEntries.h"
#include "adapters/qt/QtScheduler.h"
#include "adapters/qt/RunLoop.h"
#include "adapters/qt/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace larkspan::freedesktop {

/// A desktop's files in the test's own folder: `home`, `data` for all users, `bin` as PATH.
class DesktopFolders : public testing::Test {
  protected:
    DesktopFolders() {
        std::filesystem::create_directories(folder_.path("home/.local/share/applications"));
        std::filesystem::create_directories(folder_.path("data/applications"));
    }

    /// Installs an application for all users; `keys` are further lines.
    void install(const std::string& id, const std::string& keys, const std::string& name = "Name") {
        folder_.write("data/applications/" + id + ".desktop",
                      "[Desktop Entry]\nType=Application\nName=" + name + "\n" + keys + "\n");
    }
    std::string installProgram(const std::string& name, const std::string& script = "") {
        const auto path = folder_.write("bin/" + name, "#!/bin/sh\n" + script + "\n");
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        return path;
    }
    static std::string idOf(const DesktopEntryRef& entry) { return entry ? entry->id : ""; }

    QCoreApplication& application_ = qt::testApplication();
    TemporaryFolder folder_;
    qt::QtScheduler scheduler_;
    Environment environment_{{{"HOME", folder_.path("home")},
                              {"XDG_DATA_DIRS", folder_.path("data")},
                              {"XDG_CONFIG_DIRS", folder_.path("etc")},
                              {"XDG_CURRENT_DESKTOP", "XFCE"},
                              {"LANG", "de_AT.UTF-8"},
                              {"PATH", folder_.path("bin") + ":/usr/bin:/bin"}}};
    DesktopEntries entries_{environment_, scheduler_};
    DefaultApplications defaults_{environment_, entries_};
};

} // namespace larkspan::freedesktop
