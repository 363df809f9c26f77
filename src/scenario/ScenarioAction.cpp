#include "scenario/ScenarioAction.h"

#include <array>

namespace larkspan::sim {

namespace {

std::array<const std::vector<ScenarioAction>*, 4> actionLists() {
    return {&macActions(), &faultActions(), &permissionActions(), &barActions()};
}

} // namespace

std::vector<std::string_view> scenarioActionNames() {
    std::vector<std::string_view> names;
    for (const auto* actions : actionLists()) {
        for (const ScenarioAction& action : *actions)
            names.push_back(action.name);
    }
    return names;
}

const ScenarioAction* scenarioAction(std::string_view name) {
    for (const auto* actions : actionLists()) {
        for (const ScenarioAction& action : *actions) {
            if (action.name == name) return &action;
        }
    }
    return nullptr;
}

} // namespace larkspan::sim
