#include "scenario/ScenarioAction.h"
#include "scenario/ScenarioSubjects.h"

#include <algorithm>
#include <utility>

namespace larkspan::sim {

namespace {

using nlohmann::json;

Rect rect(const json& value) {
    return {value[0].get<double>(), value[1].get<double>(), value[2].get<double>(),
            value[3].get<double>()};
}

Outcome install(Stage& stage, const json& fields) {
    if (stage.mac.world().installed.contains(text(fields, "app")))
        return fmt::format("{} is already installed", text(fields, "app"));
    stage.mac.install(text(fields, "app"), text(fields, "name"));
    return done;
}

Outcome uninstall(Stage& stage, const json& fields) {
    return withInstalled(stage, fields, [&](SimMac& mac, const InstalledApp&) {
        mac.uninstall(text(fields, "app"));
        return done;
    });
}

Outcome launch(Stage& stage, const json& fields) {
    return withInstalled(stage, fields, [&](SimMac& mac, const InstalledApp& app) {
        mac.launch(app.bundleIdentifier, {.launchSeconds = fields.value("seconds", 0.0),
                                          .opensWindow = fields.value("window", false),
                                          .inBackground = fields.value("behind", false)});
        return done;
    });
}

Outcome open(Stage& stage, const json& fields) {
    return withInstalled(stage, fields, [](SimMac& mac, const InstalledApp& app) {
        mac.open(std::string(app.path));
        return done;
    });
}

Outcome quitApp(Stage& stage, const json& fields) {
    Outcome refusal;
    const auto outcome = withApp(stage, fields, [&](SimMac& mac, ProcessId pid) {
        if (!mac.quit(pid)) refusal = fmt::format("{} did not quit", text(fields, "app"));
    });
    return outcome ? outcome : refusal;
}

Outcome badge(Stage& stage, const json& fields) {
    return withApp(stage, fields,
                   [&](SimMac& mac, ProcessId pid) { mac.setBadge(pid, text(fields, "text")); });
}

Outcome bounce(Stage& stage, const json& fields) {
    return withApp(stage, fields, [&](SimMac& mac, ProcessId pid) {
        mac.requestAttention(pid, fields.value("critical", false));
    });
}

/// Does something with the Space that "space" names on the display.
template <typename Act>
Outcome withSpace(Stage& stage, const json& fields, Act act) {
    return withDisplay(stage, fields, [&](SimMac& mac, DisplayId display) -> Outcome {
        const SpaceId space = mac.spaceAt(display, fields["space"].get<std::size_t>());
        if (space == 0) return "there is no such Space";
        return act(mac, space);
    });
}

Outcome openWindow(Stage& stage, const json& fields) {
    WindowOptions options{.title = text(fields, "title"),
                          .hasNumber = fields.value("hasNumber", true),
                          .hasName = fields.value("hasName", true)};
    if (fields.contains("frame")) options.frame = rect(fields["frame"]);
    const auto open = [&](SimMac& mac, ProcessId pid) { mac.openWindow(pid, options); };
    if (fields.contains("space")) {
        return withSpace(stage, fields, [&](SimMac&, SpaceId space) {
            options.space = space;
            return withApp(stage, fields, open);
        });
    }
    if (!fields.contains("display")) return withApp(stage, fields, open);
    return withDisplay(stage, fields, [&](SimMac&, DisplayId display) {
        options.display = display;
        return withApp(stage, fields, open);
    });
}

Outcome moveWindow(Stage& stage, const json& fields) {
    return withWindow(stage, fields, [&](SimMac& mac, WindowId window) {
        mac.moveWindow(window, rect(fields["frame"]));
    });
}

Outcome moveToDisplay(Stage& stage, const json& fields) {
    return withDisplay(stage, fields, [&](SimMac&, DisplayId display) {
        return withWindow(stage, fields, [display](SimMac& mac, WindowId window) {
            mac.moveToDisplay(window, display);
        });
    });
}

Outcome setTitle(Stage& stage, const json& fields) {
    return withWindow(stage, fields, [&](SimMac& mac, WindowId window) {
        mac.setTitle(window, text(fields, "title"));
    });
}

Outcome moveToSpace(Stage& stage, const json& fields) {
    return withSpace(stage, fields, [&](SimMac&, SpaceId space) {
        return withWindow(stage, fields, [space](SimMac& mac, WindowId window) {
            mac.moveToSpace(window, space);
        });
    });
}

Outcome addSpace(Stage& stage, const json& fields) {
    return withDisplay(stage, fields, [](SimMac& mac, DisplayId display) {
        mac.addSpace(display);
        return done;
    });
}

Outcome removeSpace(Stage& stage, const json& fields) {
    return withSpace(stage, fields, [&](SimMac& mac, SpaceId space) -> Outcome {
        if (mac.world().displayOfSpace(space)->spaces.size() < 2)
            return "the last Space of a display cannot be removed";
        mac.removeSpace(space);
        return done;
    });
}

Outcome switchSpace(Stage& stage, const json& fields) {
    return withDisplay(stage, fields, [&](SimMac& mac, DisplayId display) -> Outcome {
        if (mac.switchSpace(display, fields["space"].get<std::size_t>())) return done;
        return "there is no such Space";
    });
}

Outcome swipe(Stage& stage, const json& fields) {
    const SwipeOptions options{.progress = fields["progress"].get<double>(),
                               .velocity = fields.value("velocity", 0.0),
                               .seconds = fields.value("seconds", 0.25),
                               .isCancelled = fields.value("cancelled", false),
                               .switches = fields.value("switches", true)};
    return withDisplay(stage, fields, [&](SimMac& mac, DisplayId id) {
        mac.swipe(id, options);
        return done;
    });
}

Outcome addDisplay(Stage& stage, const json& fields) {
    if (stage.mac.addDisplay(text(fields, "size")) != 0) return done;
    return fmt::format("\"{}\" is not a display", text(fields, "size"));
}

Outcome unplug(Stage& stage, const json& fields) {
    return withDisplay(stage, fields, [](SimMac& mac, DisplayId display) {
        mac.unplug(display);
        return done;
    });
}

template <void (SimMac::*method)(WindowId)>
Outcome onWindow(Stage& stage, const json& fields) {
    return withWindow(stage, fields, [](SimMac& mac, WindowId id) { (mac.*method)(id); });
}

template <void (SimMac::*method)(ProcessId)>
Outcome onApp(Stage& stage, const json& fields) {
    return withApp(stage, fields, [](SimMac& mac, ProcessId pid) { (mac.*method)(pid); });
}

bool isInDock(const SimMac& mac, const std::string& app) {
    const auto& pinned = mac.world().pinned;
    return std::find(pinned.begin(), pinned.end(), app) != pinned.end();
}

Outcome pin(Stage& stage, const json& fields) {
    return withInstalled(stage, fields, [](SimMac& mac, const InstalledApp& app) -> Outcome {
        const std::string id = app.bundleIdentifier;
        if (isInDock(mac, id)) return fmt::format("{} is already in the Dock", id);
        mac.pin(id);
        return done;
    });
}

Outcome unpin(Stage& stage, const json& fields) {
    const std::string app = text(fields, "app");
    if (!isInDock(stage.mac, app)) return fmt::format("{} is not in the Dock", app);
    stage.mac.unpin(app);
    return done;
}

Outcome arrangeDock(Stage& stage, const json& fields) {
    const auto apps = fields["apps"].get<std::vector<std::string>>();
    for (const std::string& app : apps) {
        if (!stage.mac.world().installed.contains(app))
            return fmt::format("{} is not installed", app);
        if (std::count(apps.begin(), apps.end(), app) > 1)
            return fmt::format("{} is listed twice", app);
    }
    stage.mac.setPinned(apps);
    return done;
}

Outcome setTrash(Stage& stage, const json& fields) {
    World& world = stage.mac.world();
    world.trashHoldsDesktopServicesFile = fields.value("hiddenFile", false);
    std::optional<std::size_t> items;
    if (fields.contains("items")) items = fields["items"].get<std::size_t>();
    stage.mac.setTrash(items);
    return done;
}

Outcome restartDock(Stage& stage, const json& fields) {
    stage.mac.restartDock(fields.value("seconds", 0.5));
    return done;
}

/// Missing fields keep their values.
Outcome changeDock(Stage& stage, const json& fields) {
    DockSettings dock = stage.mac.world().dock;
    dock.tileSize = fields.value("tileSize", dock.tileSize);
    dock.autoHide = fields.value("autoHide", dock.autoHide);
    dock.place.orientation = fields.value("orientation", dock.place.orientation);
    dock.place.pinning = fields.value("pinning", dock.place.pinning);
    dock.magnification = fields.value("magnification", dock.magnification);
    stage.mac.setDock(dock);
    return done;
}

Outcome mirror(Stage& stage, const json& fields) {
    return withDisplay(stage, fields, [](SimMac& mac, DisplayId id) {
        mac.mirror(id);
        return done;
    });
}

Outcome sleep(Stage& stage, const json& fields) {
    stage.mac.scheduler.sleepFor(fields["seconds"].get<double>());
    return done;
}

Outcome jumpClock(Stage& stage, const json& fields) {
    stage.mac.scheduler.jumpWallClock(fields["seconds"].get<double>());
    return done;
}

constexpr Field appField{"app", FieldKind::text, true};
constexpr Field windowField{"window", FieldKind::text, true};
constexpr Field displayField{"display", FieldKind::index};
constexpr Field spaceField{"space", FieldKind::index, true};
/// The largest change of the date: about thirty years, in seconds.
constexpr double years = 1e9;
} // namespace

const std::vector<ScenarioAction>& macActions() {
    static const std::vector<ScenarioAction> actions{
        {"install", {appField, {"name", FieldKind::text, true}}, install},
        {"uninstall", {appField}, uninstall},
        {"launch",
         {appField,
          secondsField("seconds"),
          {"window", FieldKind::flag},
          {"behind", FieldKind::flag}},
         launch},
        {"open", {appField}, open},
        {"activate", {appField}, onApp<&SimMac::activate>},
        {"hide", {appField}, onApp<&SimMac::hide>},
        {"unhide", {appField}, onApp<&SimMac::unhide>},
        {"quit", {appField}, quitApp},
        {"kill", {appField}, onApp<&SimMac::kill>},
        {"badge", {appField, {"text", FieldKind::text, true}}, badge},
        {"bounce", {appField, {"critical", FieldKind::flag}}, bounce},
        {"openWindow",
         {appField,
          {"title", FieldKind::text, true},
          {"frame", FieldKind::frame},
          displayField,
          {"space", FieldKind::index},
          {"hasNumber", FieldKind::flag},
          {"hasName", FieldKind::flag}},
         openWindow},
        {"closeWindow", {windowField}, onWindow<&SimMac::closeWindow>},
        {"minimize", {windowField}, onWindow<&SimMac::minimize>},
        {"unminimize", {windowField}, onWindow<&SimMac::unminimize>},
        {"focus", {windowField}, onWindow<&SimMac::focusWindow>},
        {"moveWindow", {windowField, {"frame", FieldKind::frame, true}}, moveWindow},
        {"moveToDisplay", {windowField, {"display", FieldKind::index, true}}, moveToDisplay},
        {"setTitle", {windowField, {"title", FieldKind::text, true}}, setTitle},
        {"moveToSpace", {windowField, spaceField, displayField}, moveToSpace},
        {"enterFullScreen", {windowField}, onWindow<&SimMac::enterFullScreen>},
        {"leaveFullScreen", {windowField}, onWindow<&SimMac::leaveFullScreen>},
        {"addDisplay", {{"size", FieldKind::text, true}}, addDisplay},
        {"unplug", {{"display", FieldKind::index, true}}, unplug},
        {"unplugAll", {}, onMac<&SimMac::unplugAll>},
        {"mirror", {{"display", FieldKind::index, true}}, mirror},
        {"endMirroring", {}, onMac<&SimMac::endMirroring>},
        {"swipe",
         {displayField,
          {"progress", FieldKind::number, true, -1, 1},
          {"velocity", FieldKind::number},
          secondsField("seconds"),
          {"cancelled", FieldKind::flag},
          {"switches", FieldKind::flag}},
         swipe},
        {"switchSpace", {displayField, spaceField}, switchSpace},
        {"addSpace", {displayField}, addSpace},
        {"removeSpace", {spaceField, displayField}, removeSpace},
        {"pin", {appField}, pin},
        {"unpin", {appField}, unpin},
        {"arrangeDock", {{"apps", FieldKind::texts, true}}, arrangeDock},
        {"restartDock", {secondsField("seconds")}, restartDock},
        {"setDock",
         {{"tileSize", FieldKind::number, false, 0, 1},
          {"autoHide", FieldKind::flag},
          {"orientation", FieldKind::index, false, 2, 4},
          {"pinning", FieldKind::index, false, 1, 3},
          {"magnification", FieldKind::flag}},
         changeDock},
        {"setTrash", {{"items", FieldKind::index}, {"hiddenFile", FieldKind::flag}}, setTrash},
        {"sleep", {{"seconds", FieldKind::number, true, 0, years}}, sleep},
        {"jumpClock", {{"seconds", FieldKind::number, true, -years, years}}, jumpClock},
    };
    return actions;
}

} // namespace larkspan::sim
