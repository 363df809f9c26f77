#include "scenario/ScenarioWorld.h"

#include "settings/Setting.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <set>
#include <utility>

namespace larkspan::sim {

namespace {

using nlohmann::json;
using Error = std::optional<std::string>;

struct UsualApp {
    const char* identifier;
    const char* name;
};

constexpr std::array usualApps{
    UsualApp{"org.example.browser", "Browser"},   UsualApp{"org.example.mail", "Mail"},
    UsualApp{"org.example.messages", "Messages"}, UsualApp{"org.example.calendar", "Calendar"},
    UsualApp{"org.example.notes", "Notes"},       UsualApp{"org.example.music", "Music"},
    UsualApp{"org.example.photos", "Photos"},     UsualApp{"org.example.terminal", "Terminal"},
    UsualApp{"org.example.maps", "Maps"},         UsualApp{"org.example.settings", "Settings"},
};
constexpr std::size_t usuallyPinned = 6;

const std::vector<Field>& appFields() {
    static const std::vector<Field> fields{{"id", FieldKind::text, true},
                                           {"name", FieldKind::text, true},
                                           secondsField("seconds"),
                                           {"window", FieldKind::flag}};
    return fields;
}

const std::vector<Field>& dockFields() {
    static const std::vector<Field> fields{{"tileSize", FieldKind::number, false, 0, 1},
                                           {"autoHide", FieldKind::flag},
                                           {"orientation", FieldKind::index, false, 2, 4},
                                           {"pinning", FieldKind::index, false, 1, 3},
                                           {"magnification", FieldKind::flag},
                                           {"stripSurplus", FieldKind::number, false, -100, 100}};
    return fields;
}

Error checkDock(const json& dock) {
    if (!dock.is_object()) return "\"dock\" is not an object";
    if (auto error = checkFields(dock, dockFields(), {})) return "dock: " + *error;
    return std::nullopt;
}

/// Adds the identifiers of the apps to the known ones.
Error checkApps(const json& apps, std::set<std::string>& known) {
    if (!apps.is_array()) return "\"apps\" is not a list";
    for (const json& app : apps) {
        if (!app.is_object()) return "an app must be an object";
        if (auto error = checkFields(app, appFields(), {})) return "app: " + *error;
        const auto id = app["id"].get<std::string>();
        if (id.empty() || app["name"].get_ref<const std::string&>().empty())
            return "app: it must have an identifier and a name";
        if (id == finderIdentifier || id == DockProcess::bundleIdentifier)
            return fmt::format("app: {} belongs to the system", id);
        if (!known.insert(id).second) return fmt::format("app: {} is listed twice", id);
    }
    return std::nullopt;
}

/// Checks that each app of the list is known, and listed once.
Error checkNames(const json& world, const char* list, const std::set<std::string>& known) {
    std::set<std::string> named;
    for (const json& each : world.value(list, json::array())) {
        const auto app = each.get<std::string>();
        if (!known.contains(app)) return fmt::format("{}: {} is not installed", list, app);
        if (!named.insert(app).second) return fmt::format("{}: {} is listed twice", list, app);
    }
    return std::nullopt;
}

bool isStorable(const json& value) {
    return value.is_boolean() || value.is_number() || value.is_string() ||
           (value.is_array() && std::all_of(value.begin(), value.end(), isStorable));
}

Error checkSettings(const json& settings) {
    if (!settings.is_object()) return "\"settings\" is not an object";
    for (const auto& [key, value] : settings.items()) {
        // Beside the settings, the Dock's own ones are kept while the bar is in use.
        if (!findSetting(settingsTable(true), key) && key != "savedDockProfile")
            return fmt::format("unknown setting \"{}\"", key);
        if (!isStorable(value)) return fmt::format("the setting \"{}\" has an invalid value", key);
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

Error checkWorld(const json& world) {
    if (!world.is_object()) return "must be an object";
    if (auto error = checkFields(world, worldFields(), {})) return error;
    std::set<std::string> known;
    if (world.value("usualApps", false)) {
        for (const UsualApp& app : usualApps)
            known.insert(app.identifier);
    }
    if (auto error = checkApps(world.value("apps", json::array()), known)) return error;
    for (const char* list : {"pinned", "running"}) {
        if (auto error = checkNames(world, list, known)) return error;
    }
    if (auto error = checkDock(world.value("dock", json::object()))) return error;
    if (world.contains("settings")) {
        if (auto error = checkSettings(world["settings"])) return error;
    }
    for (const json& name : world.value("missing", json::array())) {
        if (!SimMac().removeFunction(name.get<std::string>()))
            return fmt::format("unknown private function {}", name.dump());
    }
    if (world.contains("displays") && !SimMac().setDisplays(world["displays"].get<std::string>()))
        return fmt::format("{} is not a list of displays", world["displays"].dump());
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
    std::vector<std::string> pinned;
    for (const auto& [identifier, name] : usualApps) {
        mac.install(identifier, name);
        if (pinned.size() < usuallyPinned) pinned.emplace_back(identifier);
    }
    mac.setPinned(pinned);
}

} // namespace larkspan::sim
