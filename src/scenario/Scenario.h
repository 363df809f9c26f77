#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan::sim {

/// One step of a scenario, read and found sensible.
struct ScenarioStep {
    enum class Kind { act, expect, picture };

    /// Counted from 1, as complaints name it.
    std::size_t number = 0;
    /// Seconds since the scenario's start.
    double at = 0;
    Kind kind = Kind::act;
    /// The action, the path of the state that is expected, or the picture's name.
    std::string subject;
    nlohmann::json fields;
};

/// A story on the simulated Mac, as a person writes it; docs/scenarios.md describes the file.
struct Scenario {
    std::string title;
    /// What is so before the first step.
    nlohmann::json world;
    std::vector<ScenarioStep> steps;
};

/// A scenario, or what is wrong with its file.
struct ScenarioReading {
    std::optional<Scenario> scenario;
    /// The file, the step and the reason, in one line.
    std::string complaint;
};

/// `file` is named in complaints.
ScenarioReading parseScenario(std::string_view text, std::string_view file);
ScenarioReading loadScenario(const std::string& path);

} // namespace larkspan::sim
