#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan::sim {

/// One step of a scenario, checked.
struct ScenarioStep {
    enum class Kind { act, expect, picture };

    /// Counted from 1, as in error messages.
    std::size_t number = 0;
    /// Seconds since the scenario's start.
    double at = 0;
    Kind kind = Kind::act;
    /// The action, the path of the expected state, or the picture's name.
    std::string subject;
    nlohmann::json fields;
};

/// A scenario on the simulated Mac; docs/scenarios.md describes the file format.
struct Scenario {
    std::string title;
    /// The state before the first step.
    nlohmann::json world;
    std::vector<ScenarioStep> steps;
};

/// A scenario, or the error in its file.
struct ScenarioReading {
    std::optional<Scenario> scenario;
    /// The file, the step and the reason, in one line.
    std::string error;
};

/// `file` is the name used in error messages.
ScenarioReading parseScenario(std::string_view text, std::string_view file);
ScenarioReading loadScenario(const std::string& path);

} // namespace larkspan::sim
