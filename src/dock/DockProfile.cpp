#include "dock/DockProfile.h"

#include <cmath>
#include <nlohmann/json.hpp>

namespace larkspan {
namespace {

using nlohmann::json;

constexpr std::string_view savedKey = "savedDockProfile";
constexpr float leastSizeChange = 0.002F;

bool hasGetters(const CoreDock& dock) {
    return dock.has(CoreDockFunction::getTileSize) &&
           dock.has(CoreDockFunction::getAutoHideEnabled) &&
           dock.has(CoreDockFunction::getOrientationAndPinning) &&
           dock.has(CoreDockFunction::isMagnificationEnabled);
}

template <typename T>
bool take(const json& object, const char* key, bool (json::*isType)() const noexcept, T& value) {
    const auto found = object.find(key);
    if (found == object.end() || !((*found).*isType)()) return false;
    value = found->get<T>();
    return true;
}

std::optional<DockProfile> decode(const std::string& bytes) {
    const auto object = json::parse(bytes, nullptr, false);
    if (!object.is_object()) return std::nullopt;
    DockProfile profile;
    const bool isWhole =
        take(object, "tileSize", &json::is_number, profile.tileSize) &&
        take(object, "autoHide", &json::is_boolean, profile.autoHide) &&
        take(object, "orientation", &json::is_number_unsigned, profile.orientation) &&
        take(object, "pinning", &json::is_number_unsigned, profile.pinning) &&
        take(object, "magnification", &json::is_boolean, profile.magnification);
    return isWhole ? std::optional(profile) : std::nullopt;
}

} // namespace

std::optional<DockProfile> DockProfile::current(const CoreDock& dock) {
    if (!hasGetters(dock)) return std::nullopt;
    DockProfile profile;
    const auto place = dock.orientationAndPinning();
    profile.orientation = place.orientation;
    profile.pinning = place.pinning;
    profile.tileSize = dock.tileSize();
    profile.autoHide = dock.isAutoHideEnabled();
    profile.magnification = dock.isMagnificationEnabled();
    return profile;
}

std::optional<DockProfile> DockProfile::saved(const UserDefaults& defaults) {
    const auto stored = defaults.value(savedKey);
    const auto* data = stored ? stored->as<Data>() : nullptr;
    return data ? decode(data->bytes) : std::nullopt;
}

bool DockProfile::save(UserDefaults& defaults) const {
    const json object{{"tileSize", tileSize},
                      {"autoHide", autoHide},
                      {"orientation", orientation},
                      {"pinning", pinning},
                      {"magnification", magnification}};
    defaults.set(savedKey, Data{object.dump()});
    if (defaults.synchronize()) return true;
    forgetSaved(defaults);
    return false;
}

void DockProfile::forgetSaved(UserDefaults& defaults) {
    defaults.remove(savedKey);
}

DockProfile DockProfile::underBar() const {
    DockProfile profile = *this;
    profile.orientation = bottom;
    profile.autoHide = false;
    profile.magnification = false;
    return profile;
}

void DockProfile::apply(CoreDock& dock, float fraction) const {
    const auto now = current(dock);
    if (!now) return;
    if (std::abs(fraction - now->tileSize) > leastSizeChange) setTileSizeTwice(dock, fraction);
    if (autoHide != now->autoHide && dock.has(CoreDockFunction::setAutoHideEnabled))
        dock.setAutoHideEnabled(autoHide);
    const bool isElsewhere = orientation != now->orientation || pinning != now->pinning;
    if (isElsewhere && dock.has(CoreDockFunction::setOrientationAndPinning))
        dock.setOrientationAndPinning({orientation, pinning});
    if (magnification != now->magnification && dock.has(CoreDockFunction::setMagnificationEnabled))
        dock.setMagnificationEnabled(magnification);
}

bool canResize(const CoreDock& dock) {
    return dock.has(CoreDockFunction::setTileSize);
}

std::optional<std::string_view> whyNoResize(const CoreDock& dock) {
    if (canResize(dock)) return std::nullopt;
    return "Larkspan cannot resize the Dock on this Mac, so the height stays as it is.";
}

void setTileSizeTwice(CoreDock& dock, float fraction) {
    if (!canResize(dock)) return;
    dock.setTileSize(fraction);
    dock.setTileSize(fraction);
}

} // namespace larkspan
