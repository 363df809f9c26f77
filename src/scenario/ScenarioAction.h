#pragma once

#include "scenario/ScenarioFields.h"
#include "scenario/Stage.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan::sim {

/// One action of scenarios, by name.
struct ScenarioAction {
    std::string_view name;
    std::vector<Field> fields;
    /// Returns why it could not be done, such as a missing window; absent if it was.
    std::optional<std::string> (*act)(Stage& stage, const nlohmann::json& fields);
};

/// The names of all actions.
std::vector<std::string_view> scenarioActionNames();

/// nullptr for an unknown name.
const ScenarioAction* scenarioAction(std::string_view name);

/// What is missing, refused, slow or wrong.
const std::vector<ScenarioAction>& faultActions();
/// What apps, windows, displays and the system do.
const std::vector<ScenarioAction>& macActions();
/// What the user does about the program's permissions.
const std::vector<ScenarioAction>& permissionActions();
/// What the user does with the program.
const std::vector<ScenarioAction>& barActions();

} // namespace larkspan::sim
