#pragma once

#include "adapters/freedesktop/XdgFolders.h"
#include "adapters/freedesktop/entries/InstalledApplications.h"
#include "platform/LoginItems.h"

#include <string>
#include <string_view>
#include <vector>

namespace larkspan::freedesktop {

/// Whether the desktop starts the application of this autostart file at login; false for an empty
/// text.
bool isStartedAtLogin(std::string_view autostartFile);

/// The applications opened at login: copies of their desktop files in the user's autostart folder.
/// An application that the system's autostart folders open is turned off by a file in the user's
/// folder.
class AutostartEntries : public LoginItems {
  public:
    AutostartEntries(const Environment& environment, const InstalledApplications& installed);

    std::optional<bool> opensAtLogin(std::string_view application) const override;
    bool setOpensAtLogin(std::string_view application, bool opens) override;

  private:
    std::string ownPath(const DesktopEntry& entry) const;
    bool isStartedForEverybody(const DesktopEntry& entry) const;
    bool isStarted(const DesktopEntry& entry) const;

    XdgFolders folders_;
    const InstalledApplications& installed_;
};

} // namespace larkspan::freedesktop
