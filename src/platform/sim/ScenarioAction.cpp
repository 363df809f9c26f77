#include "platform/sim/ScenarioAction.h"

namespace larkspan::sim {

const ScenarioAction* scenarioAction(std::string_view name) {
    for (const auto* actions :
         {&macActions(), &faultActions(), &permissionActions(), &barActions()}) {
        for (const ScenarioAction& action : *actions) {
            if (action.name == name) return &action;
        }
    }
    return nullptr;
}

} // namespace larkspan::sim
