#include "dock/PinnedApps.h"

#include "dock/dockProcess.h"
#include "dock/fileUrl.h"

#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

namespace larkspan {
namespace {

using Array = PropertyValue::Array;
using Dictionary = PropertyValue::Dictionary;

constexpr std::string_view listKey = "persistent-apps";
constexpr int terminateSignal = 15;
/// The kind of `_CFURLString`: 0 is a POSIX path, 15 a full URL.
constexpr int urlStringType = 15;

/// An entry that is not an app has no identifier: it stays behind an app, or at the front.
struct OldEntries {
    std::map<std::string, PropertyValue> apps;
    /// By the identifier of the app in front of them; "" is the front of the list.
    std::map<std::string, Array> followers;
};

Array readList(const DockPreferences& dock) {
    const auto stored = dock.copyAppValue(listKey);
    const auto* array = stored ? stored->as<Array>() : nullptr;
    return array ? *array : Array{};
}

const PropertyValue* find(const PropertyValue& value, const std::string& key) {
    const auto* dictionary = value.as<Dictionary>();
    if (!dictionary) return nullptr;
    const auto found = dictionary->find(key);
    return found == dictionary->end() ? nullptr : &found->second;
}

std::optional<std::string> identifierOf(const PropertyValue& entry) {
    const auto* tile = find(entry, "tile-data");
    const auto* identifier = tile ? find(*tile, "bundle-identifier") : nullptr;
    const auto* text = identifier ? identifier->as<std::string>() : nullptr;
    if (!text || text->empty()) return std::nullopt;
    return *text;
}

std::string withoutExtension(std::string name) {
    const auto dot = name.rfind('.');
    if (dot != std::string::npos && dot > 0) name.resize(dot);
    return name;
}

PropertyValue makeEntry(const std::string& identifier, const Workspace& workspace) {
    Dictionary tile{{"bundle-identifier", identifier}};
    if (const auto path = workspace.urlForApplication(identifier)) {
        tile["file-label"] = withoutExtension(workspace.displayName(*path));
        tile["file-data"] =
            Dictionary{{"_CFURLString", fileUrl(*path)}, {"_CFURLStringType", urlStringType}};
    }
    return Dictionary{{"tile-type", "file-tile"}, {"tile-data", std::move(tile)}};
}

OldEntries sortOut(const Array& list, const std::set<std::string>& staying) {
    OldEntries old;
    std::string anchor;
    for (const auto& entry : list) {
        const auto identifier = identifierOf(entry);
        if (!identifier) {
            old.followers[anchor].push_back(entry);
        } else if (staying.contains(*identifier) && old.apps.emplace(*identifier, entry).second) {
            anchor = *identifier;
        }
    }
    return old;
}

void append(Array& list, const OldEntries& old, const std::string& anchor) {
    const auto found = old.followers.find(anchor);
    if (found != old.followers.end())
        list.insert(list.end(), found->second.begin(), found->second.end());
}

Array newList(const Array& oldList, const std::vector<std::string>& identifiers,
              const Workspace& workspace) {
    const auto old = sortOut(oldList, {identifiers.begin(), identifiers.end()});
    std::set<std::string> written;
    Array list;
    append(list, old, "");
    for (const auto& identifier : identifiers) {
        if (!written.insert(identifier).second) continue;
        const auto found = old.apps.find(identifier);
        if (found != old.apps.end()) {
            list.push_back(found->second);
            append(list, old, identifier);
        } else if (identifier != finderIdentifier) {
            // Finder is in the Dock without an entry.
            list.push_back(makeEntry(identifier, workspace));
        }
    }
    return list;
}

void restartDock(const Workspace& workspace, ApplicationControl& applications) {
    if (const auto dock = dockProcess(workspace)) applications.sendSignal(*dock, terminateSignal);
}

} // namespace

std::vector<std::string> pinnedAppIdentifiers(DockPreferences& dock) {
    dock.synchronize();
    std::vector<std::string> identifiers;
    for (const auto& entry : readList(dock))
        if (auto identifier = identifierOf(entry)) identifiers.push_back(std::move(*identifier));
    return identifiers;
}

void writePinnedApps(DockPreferences& dock, Workspace& workspace, ApplicationControl& applications,
                     const std::vector<std::string>& identifiers) {
    dock.synchronize();
    dock.setAppValue(listKey, newList(readList(dock), identifiers, workspace));
    dock.synchronize();
    restartDock(workspace, applications);
}

} // namespace larkspan
