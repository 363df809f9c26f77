#include "platform/sim/ScenarioWorld.h"

#include "platform/sim/ScenarioFields.h"

#include <fmt/format.h>
#include <utility>

namespace larkspan::sim {

namespace {

using nlohmann::json;
using Complaint = std::optional<std::string>;

const std::vector<Field>& worldFields() {
    static const std::vector<Field> fields{
        {"displays", FieldKind::text},        {"separateSpaces", FieldKind::flag},
        {"usualApps", FieldKind::flag},       {"apps", FieldKind::anything},
        {"pinned", FieldKind::texts},         {"running", FieldKind::texts},
        {"settings", FieldKind::anything},    {"accessibility", FieldKind::flag},
        {"screenRecording", FieldKind::flag}, {"announcesChanges", FieldKind::flag},
        {"missing", FieldKind::texts},        {"trash", FieldKind::index},
        {"starts", FieldKind::flag},          {"dock", FieldKind::anything},
    };
    return fields;
}

const std::vector<Field>& appFields() {
    static const std::vector<Field> fields{{"id", FieldKind::text, true},
                                           {"name", FieldKind::text, true},
                                           {"seconds", FieldKind::number},
                                           {"window", FieldKind::flag}};
    return fields;
}

const std::vector<Field>& dockFields() {
    static const std::vector<Field> fields{
        {"tileSize", FieldKind::number},    {"autoHide", FieldKind::flag},
        {"orientation", FieldKind::index},  {"pinning", FieldKind::index},
        {"magnification", FieldKind::flag}, {"stripSurplus", FieldKind::number}};
    return fields;
}

Complaint checkDock(const json& dock) {
    if (!dock.is_object()) return "\"dock\" is not an object";
    if (auto complaint = checkFields(dock, dockFields(), {})) return "dock: " + *complaint;
    return std::nullopt;
}

Complaint checkApps(const json& apps) {
    if (!apps.is_array()) return "\"apps\" is not a list";
    for (const json& app : apps) {
        if (!app.is_object()) return "an app is an object";
        if (auto complaint = checkFields(app, appFields(), {})) return "app: " + *complaint;
    }
    return std::nullopt;
}

PropertyValue property(const json& value) {
    if (value.is_boolean()) return value.get<bool>();
    if (value.is_number_integer()) return value.get<std::int64_t>();
    if (value.is_number()) return value.get<double>();
    if (value.is_string()) return value.get<std::string>();
    PropertyValue::Array array;
    for (const json& element : value)
        array.push_back(property(element));
    return array;
}

void setDock(SimMac& mac, const json& dock) {
    DockSettings settings = mac.world().dock;
    settings.tileSize = dock.value("tileSize", settings.tileSize);
    settings.autoHide = dock.value("autoHide", settings.autoHide);
    settings.place.orientation = dock.value("orientation", settings.place.orientation);
    settings.place.pinning = dock.value("pinning", settings.place.pinning);
    settings.magnification = dock.value("magnification", settings.magnification);
    mac.world().stripSurplus = dock.value("stripSurplus", 0.0);
    mac.setDock(settings);
}

void installApps(SimMac& mac, const json& world) {
    if (world.value("usualApps", false)) installUsualApps(mac);
    for (const json& each : world.value("apps", json::array())) {
        InstalledApp& app = mac.install(each["id"], each["name"]);
        app.launchSeconds = each.value("seconds", app.launchSeconds);
        app.opensWindow = each.value("window", app.opensWindow);
    }
}

} // namespace

Complaint checkWorld(const json& world) {
    if (!world.is_object()) return "it is not an object";
    if (auto complaint = checkFields(world, worldFields(), {})) return complaint;
    if (auto complaint = checkApps(world.value("apps", json::array()))) return complaint;
    if (auto complaint = checkDock(world.value("dock", json::object()))) return complaint;
    if (!world.value("settings", json::object()).is_object())
        return "\"settings\" is not an object";
    for (const json& name : world.value("missing", json::array())) {
        if (!SimMac().removeFunction(name.get<std::string>()))
            return fmt::format("no system has a private function {}", name.dump());
    }
    if (world.contains("displays") && !SimMac().setDisplays(world["displays"].get<std::string>()))
        return fmt::format("{} describes no displays", world["displays"].dump());
    return std::nullopt;
}

void setUp(SimMac& mac, const json& world) {
    if (world.contains("displays")) mac.setDisplays(world["displays"].get<std::string>());
    mac.world().displaysHaveSeparateSpaces = world.value("separateSpaces", true);
    mac.setAnnouncesChanges(world.value("announcesChanges", false));
    mac.refuseAccessibility(!world.value("accessibility", true));
    mac.refuseScreenRecording(!world.value("screenRecording", true));
    installApps(mac, world);
    if (world.contains("pinned")) mac.setPinned(world["pinned"].get<std::vector<std::string>>());
    for (const json& name : world.value("missing", json::array()))
        mac.removeFunction(name.get<std::string>());
    setDock(mac, world.value("dock", json::object()));
    mac.setTrash(world.value("trash", std::size_t{0}));
    const json settings = world.value("settings", json::object());
    for (const auto& [key, value] : settings.items())
        mac.defaults.set(key, property(value));
    for (const json& app : world.value("running", json::array()))
        mac.launch(app.get<std::string>(), {.opensWindow = true});
    mac.scheduler.runUntilIdle();
}

void installUsualApps(SimMac& mac) {
    const std::pair<const char*, const char*> apps[] = {
        {"org.example.browser", "Browser"},   {"org.example.mail", "Mail"},
        {"org.example.messages", "Messages"}, {"org.example.calendar", "Calendar"},
        {"org.example.notes", "Notes"},       {"org.example.music", "Music"},
        {"org.example.photos", "Photos"},     {"org.example.terminal", "Terminal"},
        {"org.example.maps", "Maps"},         {"org.example.settings", "Settings"},
    };
    std::vector<std::string> pinned;
    for (const auto& [identifier, name] : apps) {
        mac.install(identifier, name);
        if (pinned.size() < 6) pinned.emplace_back(identifier);
    }
    mac.setPinned(pinned);
}

} // namespace larkspan::sim
