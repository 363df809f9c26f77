#include "control/Control.h"
#include "scenario/ScenarioAction.h"
#include "scenario/ScenarioSubjects.h"

#include <memory>
#include <utility>

namespace larkspan::sim {

namespace {

using nlohmann::json;
using Words = std::vector<std::string>;

constexpr const char* notRunning = "Larkspan is not running";

/// Goes the road of the command line. An answer that takes its time is not waited for: what came of
/// it is for an expectation.
Outcome request(Stage& stage, const Words& words) {
    if (!stage.delegate()) return notRunning;
    const auto outcome = std::make_shared<Outcome>(done);
    Control(*stage.delegate()).answer(words, [outcome](const ControlAnswer& answer) {
        if (answer.code != ExitCode::succeeded) *outcome = answer.text;
    });
    return *outcome;
}

Outcome tell(Stage& stage, const json& fields) {
    return request(stage, fields["words"].get<Words>());
}

/// A further process of an app has a tile of its own.
std::string tileOf(Stage& stage, const json& fields) {
    std::string app = text(fields, "app");
    const ProcessId pid = processNamed(stage.mac, app);
    return pid != 0 && app.find('#') != std::string::npos ? fmt::format("pid:{}", pid) : app;
}

Outcome click(Stage& stage, const json& fields) {
    return request(stage, {"click", tileOf(stage, fields)});
}

Outcome set(Stage& stage, const json& fields) {
    const json& value = fields["value"];
    return request(stage, {"set", fields["key"].get<std::string>(),
                           value.is_string() ? value.get<std::string>() : value.dump()});
}

Outcome mode(Stage& stage, const json& fields) {
    return request(stage, {"mode", fields["mode"].get<std::string>()});
}

Outcome menu(Stage& stage, const json& fields) {
    return request(stage, {"menu", tileOf(stage, fields), fields["choose"].get<std::string>()});
}

Outcome status(Stage& stage, const json& fields) {
    const auto title = fields["choose"].get<std::string>();
    if (stage.mac.statusBar.choose(title)) return done;
    return fmt::format("no menu in the status bar has \"{}\"", title);
}

Outcome pointer(Stage& stage, const json& fields) {
    if (!stage.delegate()) return notRunning;
    AppController& controller = stage.delegate()->controller();
    const auto& bars = controller.store().barFrames();
    if (bars.empty()) return "no bar is shown";
    const Rect& bar = bars.front();
    const bool isOnBar = fields["onBar"].get<bool>();
    stage.mac.movePointer(
        {bar.x + bar.width / 2, bar.y + (isOnBar ? bar.height / 2 : bar.height * 2)});
    controller.refresh().setPointerOnBar(isOnBar);
    return done;
}

Outcome start(Stage& stage, const json&) {
    stage.start();
    return done;
}

Outcome quitLarkspan(Stage& stage, const json&) {
    if (!stage.delegate()) return notRunning;
    stage.quit();
    return done;
}

Outcome killLarkspan(Stage& stage, const json& fields) {
    if (!stage.delegate()) return notRunning;
    stage.kill(fields.value("stored", std::size_t{0}));
    return done;
}

} // namespace

const std::vector<ScenarioAction>& barActions() {
    constexpr Field app{"app", FieldKind::text, true};
    constexpr Field choose{"choose", FieldKind::text, true};
    static const std::vector<ScenarioAction> actions{
        {"click", {app}, click},
        {"menu", {app, choose}, menu},
        {"status", {choose}, status},
        {"pointer", {{"onBar", FieldKind::flag, true}}, pointer},
        {"set", {{"key", FieldKind::text, true}, {"value", FieldKind::anything, true}}, set},
        {"mode", {{"mode", FieldKind::text, true}}, mode},
        {"tell", {{"words", FieldKind::texts, true}}, tell},
        {"startLarkspan", {}, start},
        {"quitLarkspan", {}, quitLarkspan},
        {"killLarkspan", {{"stored", FieldKind::index}}, killLarkspan},
    };
    return actions;
}

} // namespace larkspan::sim
