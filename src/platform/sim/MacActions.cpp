#include "platform/sim/ScenarioAction.h"

#include <fmt/format.h>

#include <utility>

namespace larkspan::sim {

namespace {

using nlohmann::json;
using Outcome = std::optional<std::string>;

constexpr Outcome done = std::nullopt;

std::string text(const json& fields, const char* name) {
    return fields.value(name, std::string());
}

Rect rect(const json& value) {
    return {value[0].get<double>(), value[1].get<double>(), value[2].get<double>(),
            value[3].get<double>()};
}

/// Does something with the running app that "app" names.
template <typename Act>
Outcome withApp(Stage& stage, const json& fields, Act act) {
    const std::string app = text(fields, "app");
    const ProcessId pid = stage.mac.pidOf(app);
    if (pid == 0) return fmt::format("no app {} runs", app);
    act(stage.mac, pid);
    return done;
}

/// Does something with the frontmost window of the title that "window" names.
template <typename Act>
Outcome withWindow(Stage& stage, const json& fields, Act act) {
    const std::string title = text(fields, "window");
    for (const Window& window : stage.mac.world().windows) {
        if (window.title != title) continue;
        act(stage.mac, WindowId{window.id});
        return done;
    }
    return fmt::format("there is no window \"{}\"", title);
}

/// Does something with the display whose place in the row "display" names, the main one by default.
template <typename Act>
Outcome withDisplay(Stage& stage, const json& fields, Act act) {
    const auto index = fields.value("display", std::size_t{0});
    const DisplayId display = stage.mac.displayAt(index);
    if (display == 0) return fmt::format("there is no display {}", index);
    return act(stage.mac, display);
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
    WindowOptions options{.title = text(fields, "title")};
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

Outcome setPermission(Stage& stage, const json& fields, bool refuse) {
    const std::string permission = text(fields, "permission");
    if (permission == "accessibility")
        stage.mac.refuseAccessibility(refuse);
    else if (permission == "screenRecording")
        stage.mac.refuseScreenRecording(refuse);
    else
        return fmt::format("there is no permission \"{}\"", permission);
    return done;
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

template <void (SimMac::*method)(std::string_view)>
Outcome onIdentifier(Stage& stage, const json& fields) {
    (stage.mac.*method)(text(fields, "app"));
    return done;
}

template <bool hung>
Outcome hang(Stage& stage, const json& fields) {
    return withApp(stage, fields, [](SimMac& mac, ProcessId pid) { mac.hang(pid, hung); });
}

template <bool refuse>
Outcome permit(Stage& stage, const json& fields) {
    return setPermission(stage, fields, refuse);
}

Outcome install(Stage& stage, const json& fields) {
    stage.mac.install(text(fields, "app"), text(fields, "name"));
    return done;
}

Outcome setTrash(Stage& stage, const json& fields) {
    stage.mac.setTrash(fields["items"].get<std::size_t>());
    return done;
}

Outcome restartDock(Stage& stage, const json&) {
    stage.mac.restartDock();
    return done;
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
        {"hang", {app}, hang<true>},
        {"release", {app}, hang<false>},
        {"openWindow",
         {app,
          {"title", FieldKind::text, true},
          {"frame", FieldKind::frame},
          display,
          {"space", FieldKind::index}},
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
        {"switchSpace", {display, {"space", FieldKind::index, true}}, switchSpace},
        {"pin", {app}, onIdentifier<&SimMac::pin>},
        {"unpin", {app}, onIdentifier<&SimMac::unpin>},
        {"restartDock", {}, restartDock},
        {"setTrash", {{"items", FieldKind::index, true}}, setTrash},
        {"refuse", {{"permission", FieldKind::text, true}}, permit<true>},
        {"grant", {{"permission", FieldKind::text, true}}, permit<false>},
        {"sleep", {seconds}, sleep},
        {"jumpClock", {seconds}, jumpClock},
    };
    return actions;
}

} // namespace larkspan::sim
