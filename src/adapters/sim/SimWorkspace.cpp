#include "adapters/sim/SimWorkspace.h"

#include "adapters/sim/world/DrawnIcon.h"

#include <utility>

namespace larkspan::sim {

std::vector<RunningApplication> SimWorkspace::runningApplications() const {
    std::vector<RunningApplication> running;
    running.reserve(world_.apps.size());
    for (const App& app : world_.apps)
        running.push_back(world_.snapshot(app));
    return running;
}

std::optional<RunningApplication> SimWorkspace::frontmostApplication() const {
    const App* app = world_.app(world_.reportedFrontmost);
    if (!app) return std::nullopt;
    return world_.snapshot(*app);
}

std::optional<std::string>
SimWorkspace::urlForApplication(std::string_view bundleIdentifier) const {
    const auto found = world_.installed.find(bundleIdentifier);
    if (found == world_.installed.end()) return std::nullopt;
    return found->second.path;
}

std::string SimWorkspace::displayName(std::string_view url) const {
    while (url.size() > 1 && url.ends_with('/'))
        url.remove_suffix(1);
    return std::string(url.substr(url.rfind('/') + 1));
}

ImageRef SimWorkspace::icon(std::string_view url) const {
    for (const auto& [identifier, app] : world_.installed) {
        if (app.path == url) return app.icon;
    }
    return genericApplicationIcon();
}

ImageRef SimWorkspace::genericApplicationIcon() const {
    static const ImageRef generic = std::make_shared<DrawnIcon>("");
    return generic;
}

Handle SimWorkspace::subscribe(std::function<void(const WorkspaceEvent&)> callback) {
    return world_.workspaceEvents.subscribe(std::move(callback));
}

} // namespace larkspan::sim
