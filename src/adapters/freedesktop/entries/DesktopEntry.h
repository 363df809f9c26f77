#pragma once

#include "adapters/freedesktop/XdgFolders.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan::freedesktop {

/// An additional action of an application, such as "New Private Window".
struct DesktopAction {
    std::string id;
    std::string name;
    std::string icon;
    std::string exec;

    bool operator==(const DesktopAction&) const = default;
};

/// One installed application as its desktop file describes it, in the user's language.
struct DesktopEntry {
    /// The file's path below its `applications` folder, "/" turned to "-", without ".desktop".
    std::string id;
    std::string path;
    std::string name;
    std::string icon;
    /// As written in the file: see `commandLines`.
    std::string exec;
    std::string tryExec;
    /// The folder to start in; empty for the default.
    std::string workingFolder;
    std::string startupWMClass;
    std::vector<std::string> categories;
    std::vector<std::string> mimeTypes;
    std::vector<DesktopAction> actions;
    bool isTerminal = false;
    /// Deleted by the user: the entry is treated as missing, and hides those with the same id.
    bool isHidden = false;
    /// Whether to show it in menus on this desktop.
    bool isDisplayed = true;

    bool hasCategory(std::string_view category) const;
    bool handles(std::string_view mimeType) const;
};

using DesktopEntryRef = std::shared_ptr<const DesktopEntry>;

/// Reads the text of a desktop file; absent unless it describes an application.
std::optional<DesktopEntry> parseDesktopEntry(std::string_view text, const XdgFolders& folders);

} // namespace larkspan::freedesktop
