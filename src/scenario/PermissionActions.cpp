#include "scenario/ScenarioAction.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace larkspan::sim {

namespace {

using nlohmann::json;
using Outcome = std::optional<std::string>;

/// The permissions window, or why there is none.
Outcome withWindow(Stage& stage, const std::function<void(PermissionsWindow&)>& act) {
    if (!stage.delegate()) return "Larkspan does not run";
    PermissionsWindow& window = stage.delegate()->controller().permissions();
    if (!*window.isShown) return "the permissions window is not shown";
    act(window);
    return std::nullopt;
}

/// A click on the row's button.
Outcome ask(Stage& stage, const json& fields) {
    const auto name = fields["permission"].get<std::string>();
    const auto permission = permissionNamed(name);
    if (!permission) return fmt::format("there is no permission \"{}\"", name);
    Outcome refusal;
    const auto outcome = withWindow(stage, [&](PermissionsWindow& window) {
        const bool isForScreen = *permission == Permission::screenRecording;
        if (*(isForScreen ? window.hasScreenRecording : window.hasAccessibility))
            refusal = fmt::format("the row of {} has no button: it is granted", name);
        else if (isForScreen)
            window.grantScreenRecording();
        else
            window.grantAccessibility();
    });
    return outcome ? outcome : refusal;
}

Outcome close(Stage& stage, const json&) {
    return withWindow(stage, [](PermissionsWindow& window) { window.close(); });
}

Outcome answerPrompt(Stage& stage, const json& fields) {
    Privacy& privacy = stage.mac.world().privacy;
    if (!privacy.prompt()) return "the system asks nothing";
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
