#include "adapters/freedesktop/entries/AutostartEntries.h"

#include "adapters/freedesktop/entries/KeyFile.h"
#include "adapters/qt/WholeFile.h"

#include <fmt/format.h>

#include <unistd.h>

namespace larkspan::freedesktop {

bool isStartedAtLogin(std::string_view autostartFile) {
    bool isStarted = !autostartFile.empty();
    // Desktops use either key to turn an entry off in their settings.
    readKeyFile(autostartFile, [&](std::string_view, std::string_view key, std::string_view value) {
        if (key == "Hidden" && value == "true") isStarted = false;
        if (key == "X-GNOME-Autostart-enabled" && value == "false") isStarted = false;
        return isStarted;
    });
    return isStarted;
}

AutostartEntries::AutostartEntries(const Environment& environment,
                                   const InstalledApplications& installed)
    : folders_(environment)
    , installed_(installed) {}

std::string AutostartEntries::ownPath(const DesktopEntry& entry) const {
    return fmt::format("{}/autostart/{}.desktop", folders_.configHome, entry.id);
}

bool AutostartEntries::isStartedForEverybody(const DesktopEntry& entry) const {
    for (const auto& folder : folders_.configDirs) {
        const auto text = readText(fmt::format("{}/autostart/{}.desktop", folder, entry.id));
        if (!text.empty()) return isStartedAtLogin(text);
    }
    return false;
}

bool AutostartEntries::isStarted(const DesktopEntry& entry) const {
    const auto own = readText(ownPath(entry));
    return own.empty() ? isStartedForEverybody(entry) : isStartedAtLogin(own);
}

std::optional<bool> AutostartEntries::opensAtLogin(std::string_view application) const {
    const auto entry = installed_.atPath(application);
    return entry ? std::optional(isStarted(*entry)) : std::nullopt;
}

bool AutostartEntries::setOpensAtLogin(std::string_view application, bool opens) {
    const auto entry = installed_.atPath(application);
    if (!entry) return false;
    const qt::WholeFile own(ownPath(*entry));
    if (isStartedForEverybody(*entry) == opens)
        unlink(own.path().c_str());
    else if (opens)
        own.write(readText(entry->path));
    else
        own.write(
            fmt::format("[Desktop Entry]\nType=Application\nName={}\nHidden=true\n", entry->name));
    return isStarted(*entry) == opens;
}

} // namespace larkspan::freedesktop
