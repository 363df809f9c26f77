#include "adapters/sim/world/Privacy.h"

#include <array>
#include <utility>

namespace larkspan::sim {

namespace {

struct PermissionName {
    Permission permission;
    std::string_view name;
    std::string_view pane;
};

constexpr std::array permissionNames{
    PermissionName{Permission::accessibility, "accessibility", "Privacy_Accessibility"},
    PermissionName{Permission::screenRecording, "screenRecording", "Privacy_ScreenCapture"}};

constexpr std::string_view privacySettings =
    "x-apple.systempreferences:com.apple.preference.security?";

} // namespace

std::string_view permissionName(Permission permission) {
    return permissionNames[static_cast<std::size_t>(permission)].name;
}

std::optional<Permission> permissionNamed(std::string_view name) {
    for (const PermissionName& each : permissionNames) {
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
    if (!url.starts_with(privacySettings)) return false;
    url.remove_prefix(privacySettings.size());
    for (const PermissionName& each : permissionNames) {
        if (each.pane == url) pane_ = each.permission;
    }
    return true;
}

} // namespace larkspan::sim
