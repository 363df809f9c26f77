#pragma once

#include "adapters/freedesktop/entries/DesktopEntries.h"

#include <string>
#include <string_view>
#include <vector>

namespace larkspan::freedesktop {

/// Which application opens what, as the user chose or the desktop suggests. Reads its lists on
/// every call. Main thread only.
class DefaultApplications {
  public:
    DefaultApplications(const Environment& environment, const DesktopEntries& entries);

    /// The application for a MIME type or a scheme such as "x-scheme-handler/https".
    DesktopEntryRef forType(std::string_view mimeType) const;
    /// The application for a file by its name and contents, or for a folder.
    DesktopEntryRef forFile(const std::string& path) const;
    /// The file manager, which the bar shows as Finder.
    DesktopEntryRef fileManager() const;
    DesktopEntryRef terminal() const;
    /// The pinned apps until the user changes them: browser, mail, terminal and text editor, as far
    /// as they are installed.
    std::vector<DesktopEntryRef> firstPinned() const;

  private:
    DesktopEntryRef fromLists(std::string_view mimeType) const;
    DesktopEntryRef fromEntries(std::string_view mimeType, std::string_view category) const;

    const Environment& environment_;
    XdgFolders folders_;
    const DesktopEntries& entries_;
};

} // namespace larkspan::freedesktop
