#include "adapters/sim/world/Privacy.h"

#include <array>
#include <utility>

namespace larkspan::sim {

namespace {

struct Names {
    Permission permission;
    std::string_view name;
    std::string_view pane;
};

constexpr std::array names{
    Names{Permission::accessibility, "accessibility", "Privacy_Accessibility"},
    Names{Permission::screenRecording, "screenRecording", "Privacy_ScreenCapture"}};

constexpr std::string_view settings = "x-apple.systempreferences:com.apple.preference.security?";

} // namespace

std::string_view permissionName(Permission permission) {
    return names[static_cast<std::size_t>(permission)].name;
}

std::optional<Permission> permissionNamed(std::string_view name) {
    for (const Names& each : names) {
        if (each.name == name) return each.permission;
    }
    return std::nullopt;
}

void Privacy::ask(Permission permission) {
    const bool isForScreen = permission == Permission::screenRecording;
    if (isForScreen && std::exchange(hasAskedForScreen_, true)) return;
    prompt_ = permission;
}

void Privacy::answer(bool opensSettings) {
    if (opensSettings && prompt_) pane_ = prompt_;
    prompt_.reset();
}

bool Privacy::open(std::string_view url) {
    if (!url.starts_with(settings)) return false;
    url.remove_prefix(settings.size());
    for (const Names& each : names) {
        if (each.pane == url) pane_ = each.permission;
    }
    return true;
}

} // namespace larkspan::sim
