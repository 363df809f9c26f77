#pragma once

#include "adapters/freedesktop/FolderWatch.h"
#include "adapters/freedesktop/entries/DesktopEntry.h"
#include "platform/Scheduler.h"
#include "platform/Signal.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan::freedesktop {

/// The installed applications. Read on first use, cached, and read again after a folder of desktop
/// files changed. Main thread only.
class DesktopEntries {
  public:
    DesktopEntries(const Environment& environment, Scheduler& scheduler);

    /// The entry with that id (without ".desktop"), displayed or not; nullptr if none is installed.
    DesktopEntryRef find(std::string_view id) const;
    /// The entry of that file, if the file is the one that counts for its id.
    DesktopEntryRef atPath(std::string_view path) const;
    /// The application that a window belongs to, by the two names of its WM_CLASS and the path of
    /// its process's executable, each of which may be empty. In this order: an equal
    /// `StartupWMClass`; an id that equals a name (also in lower case) or whose last part after a
    /// dot does; an `Exec` that starts exactly that executable. There is no fuzzy matching.
    DesktopEntryRef match(std::string_view instance, std::string_view className,
                          std::string_view executable) const;
    /// Every installed application, by id.
    std::vector<DesktopEntryRef> all() const;

    /// Called a moment after applications were installed, changed or removed.
    Handle subscribe(std::function<void()> callback);

  private:
    using ById = std::map<std::string, DesktopEntryRef, std::less<>>;

    const ById& entries() const;
    void readFolder(const std::string& folder, const std::string& prefix, int depth) const;
    void addFile(const std::string& path, std::string id) const;
    DesktopEntryRef matchStartupClass(std::string_view name) const;
    DesktopEntryRef matchId(std::string_view name) const;
    DesktopEntryRef matchExecutable(std::string_view executable) const;
    void foldersChanged();

    const Environment& environment_;
    XdgFolders folders_;
    Scheduler& scheduler_;
    Signal<> changed_;
    mutable FolderWatch watch_;
    Handle settling_;
    mutable bool isRead_ = false;
    mutable ById entries_;
};

} // namespace larkspan::freedesktop
