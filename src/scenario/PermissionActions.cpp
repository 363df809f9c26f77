#include "scenario/ScenarioAction.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace larkspan::sim {

namespace {

using nlohmann::json;
using Outcome = std::optional<std::string>;

/// Calls `act` with the permissions window, or returns why there is none.
Outcome withWindow(Stage& stage, const std::function<void(PermissionsModel&)>& act) {
    if (!stage.delegate()) return "Larkspan is not running";
    PermissionsModel& window = stage.delegate()->controller().permissions();
    if (!*window.isShown) return "the permissions window is not open";
    act(window);
    return std::nullopt;
}

/// Clicks the row's button.
Outcome ask(Stage& stage, const json& fields) {
    const auto name = fields["permission"].get<std::string>();
    const auto permission = permissionNamed(name);
    if (!permission) return fmt::format("unknown permission \"{}\"", name);
    Outcome refusal;
    const auto outcome = withWindow(stage, [&](PermissionsModel& window) {
        const bool isForScreen = *permission == Permission::screenRecording;
        if (*(isForScreen ? window.hasScreenRecording : window.hasAccessibility))
            refusal = fmt::format("{} is already granted, so its row has no button", name);
        else if (isForScreen)
            window.grantScreenRecording();
        else
            window.grantAccessibility();
    });
    return outcome ? outcome : refusal;
}

Outcome close(Stage& stage, const json&) {
    return withWindow(stage, [](PermissionsModel& window) { window.close(); });
}

Outcome answerPrompt(Stage& stage, const json& fields) {
    Privacy& privacy = stage.mac.world().privacy;
    if (!privacy.prompt()) return "the system shows no prompt";
    privacy.answer(fields["settings"].get<bool>());
    return std::nullopt;
}

} // namespace

const std::vector<ScenarioAction>& permissionActions() {
    static const std::vector<ScenarioAction> actions{
        {"ask", {{"permission", FieldKind::text, true}}, ask},
        {"closePermissions", {}, close},
        {"answerPrompt", {{"settings", FieldKind::flag, true}}, answerPrompt},
    };
    return actions;
}

} // namespace larkspan::sim
