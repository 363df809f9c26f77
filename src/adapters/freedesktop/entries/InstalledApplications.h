#pragma once

#include "adapters/freedesktop/entries/DefaultApplications.h"
#include "adapters/freedesktop/entries/DesktopEntries.h"
#include "platform/Identifiers.h"

#include <optional>
#include <string>
#include <string_view>

namespace larkspan::freedesktop {

/// The desktop entry that a window belongs to.
struct EntryMatch {
    /// As `InstalledApplications::identifierOf` gives it.
    std::string identifier;
    /// Whether the window's process is the entry's own program.
    bool isOwnProcess = false;
};

/// The desktop entries by the identifiers that the bar uses: the entry's id, and Finder's for the
/// file manager. Main thread only.
class InstalledApplications {
  public:
    InstalledApplications(DesktopEntries& entries, const DefaultApplications& defaults)
        : entries_(entries)
        , defaults_(defaults) {}

    /// nullptr if it is not installed.
    DesktopEntryRef find(std::string_view bundleIdentifier) const;
    DesktopEntryRef atPath(std::string_view path) const { return entries_.atPath(path); }
    std::string identifierOf(const DesktopEntry& entry) const;
    std::optional<EntryMatch> match(const std::string& instance, const std::string& className,
                                    std::optional<ProcessId> process) const;
    /// Clears the cache; call it after the entries changed.
    void refresh() { isFileManagerKnown_ = false; }

  private:
    DesktopEntryRef fileManager() const;

    DesktopEntries& entries_;
    const DefaultApplications& defaults_;
    mutable bool isFileManagerKnown_ = false;
    mutable DesktopEntryRef fileManager_;
};

} // namespace larkspan::freedesktop
