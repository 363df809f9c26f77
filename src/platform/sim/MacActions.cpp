#include "platform/sim/ScenarioAction.h"
#include "platform/sim/ScenarioSubjects.h"

#include <utility>

namespace larkspan::sim {

namespace {

using nlohmann::json;

Rect rect(const json& value) {
    return {value[0].get<double>(), value[1].get<double>(), value[2].get<double>(),
            value[3].get<double>()};
}

Outcome launch(Stage& stage, const json& fields) {
    stage.mac.launch(text(fields, "app"), {.launchSeconds = fields.value("seconds", 0.0),
                                           .opensWindow = fields.value("window", false),
                                           .inBackground = fields.value("behind", false)});
    return done;
}

Outcome open(Stage& stage, const json& fields) {
    const auto& installed = stage.mac.world().installed;
    const auto found = installed.find(text(fields, "app"));
    if (found == installed.end()) return fmt::format("{} is not installed", text(fields, "app"));
    stage.mac.open(std::string(found->second.path));
    return done;
}

Outcome quit(Stage& stage, const json& fields) {
    Outcome refusal;
    const auto outcome = withApp(stage, fields, [&](SimMac& mac, ProcessId pid) {
        if (!mac.quit(pid)) refusal = fmt::format("{} did not quit", text(fields, "app"));
    });
    return outcome ? outcome : refusal;
}

Outcome openWindow(Stage& stage, const json& fields) {
    WindowOptions options{.title = text(fields, "title"),
                          .hasNumber = fields.value("hasNumber", true),
                          .hasName = fields.value("hasName", true)};
    if (fields.contains("frame")) options.frame = rect(fields["frame"]);
    return withDisplay(stage, fields, [&](SimMac& mac, DisplayId display) -> Outcome {
        if (fields.contains("display")) options.display = display;
        if (fields.contains("space")) {
            const SpaceId space = mac.spaceAt(display, fields["space"].get<std::size_t>());
            if (space == 0) return "there is no such Space";
            options.space = space;
        }
        return withApp(stage, fields,
                       [&](SimMac&, ProcessId pid) { mac.openWindow(pid, options); });
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
    return fmt::format("\"{}\" describes no display", text(fields, "size"));
}

Outcome unplug(Stage& stage, const json& fields) {
    return withDisplay(stage, fields, [](SimMac& mac, DisplayId display) {
        mac.unplug(display);
        return done;
    });
}

constexpr Field app{"app", FieldKind::text, true};
constexpr Field window{"window", FieldKind::text, true};
constexpr Field display{"display", FieldKind::index};
constexpr Field seconds{"seconds", FieldKind::number, true};

template <void (SimMac::*method)(WindowId)>
Outcome onWindow(Stage& stage, const json& fields) {
    return withWindow(stage, fields, [](SimMac& mac, WindowId id) { (mac.*method)(id); });
}

template <void (SimMac::*method)(ProcessId)>
Outcome onApp(Stage& stage, const json& fields) {
    return withApp(stage, fields, [](SimMac& mac, ProcessId pid) { (mac.*method)(pid); });
}

template <void (SimMac::*method)()>
Outcome onMac(Stage& stage, const json&) {
    (stage.mac.*method)();
    return done;
}

template <void (SimMac::*method)(std::string_view)>
Outcome onIdentifier(Stage& stage, const json& fields) {
    (stage.mac.*method)(text(fields, "app"));
    return done;
}

Outcome install(Stage& stage, const json& fields) {
    stage.mac.install(text(fields, "app"), text(fields, "name"));
    return done;
}

Outcome setTrash(Stage& stage, const json& fields) {
    stage.mac.setTrash(fields["items"].get<std::size_t>());
    return done;
}

Outcome restartDock(Stage& stage, const json& fields) {
    stage.mac.restartDock(fields.value("seconds", 0.5));
    return done;
}

/// What is left out stays as it is.
Outcome setDock(Stage& stage, const json& fields) {
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

} // namespace

const std::vector<ScenarioAction>& macActions() {
    static const std::vector<ScenarioAction> actions{
        {"install", {app, {"name", FieldKind::text, true}}, install},
        {"uninstall", {app}, onIdentifier<&SimMac::uninstall>},
        {"launch",
         {app,
          {"seconds", FieldKind::number},
          {"window", FieldKind::flag},
          {"behind", FieldKind::flag}},
         launch},
        {"open", {app}, open},
        {"activate", {app}, onApp<&SimMac::activate>},
        {"hide", {app}, onApp<&SimMac::hide>},
        {"unhide", {app}, onApp<&SimMac::unhide>},
        {"quit", {app}, quit},
        {"kill", {app}, onApp<&SimMac::kill>},
        {"openWindow",
         {app,
          {"title", FieldKind::text, true},
          {"frame", FieldKind::frame},
          display,
          {"space", FieldKind::index},
          {"hasNumber", FieldKind::flag},
          {"hasName", FieldKind::flag}},
         openWindow},
        {"closeWindow", {window}, onWindow<&SimMac::closeWindow>},
        {"minimize", {window}, onWindow<&SimMac::minimize>},
        {"unminimize", {window}, onWindow<&SimMac::unminimize>},
        {"focus", {window}, onWindow<&SimMac::focusWindow>},
        {"moveWindow", {window, {"frame", FieldKind::frame, true}}, moveWindow},
        {"moveToDisplay", {window, {"display", FieldKind::index, true}}, moveToDisplay},
        {"enterFullScreen", {window}, onWindow<&SimMac::enterFullScreen>},
        {"leaveFullScreen", {window}, onWindow<&SimMac::leaveFullScreen>},
        {"addDisplay", {{"size", FieldKind::text, true}}, addDisplay},
        {"unplug", {{"display", FieldKind::index, true}}, unplug},
        {"unplugAll", {}, onMac<&SimMac::unplugAll>},
        {"mirror", {{"display", FieldKind::index, true}}, mirror},
        {"endMirroring", {}, onMac<&SimMac::endMirroring>},
        {"swipe",
         {display,
          {"progress", FieldKind::number, true},
          {"velocity", FieldKind::number},
          {"seconds", FieldKind::number},
          {"cancelled", FieldKind::flag},
          {"switches", FieldKind::flag}},
         swipe},
        {"switchSpace", {display, {"space", FieldKind::index, true}}, switchSpace},
        {"pin", {app}, onIdentifier<&SimMac::pin>},
        {"unpin", {app}, onIdentifier<&SimMac::unpin>},
        {"restartDock", {{"seconds", FieldKind::number}}, restartDock},
        {"setDock",
         {{"tileSize", FieldKind::number},
          {"autoHide", FieldKind::flag},
          {"orientation", FieldKind::index},
          {"pinning", FieldKind::index},
          {"magnification", FieldKind::flag}},
         setDock},
        {"setTrash", {{"items", FieldKind::index, true}}, setTrash},
        {"sleep", {seconds}, sleep},
        {"jumpClock", {seconds}, jumpClock},
    };
    return actions;
}

} // namespace larkspan::sim
