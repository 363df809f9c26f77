#include "platform/sim/Scenario.h"

#include "platform/sim/Expectation.h"
#include "platform/sim/ScenarioAction.h"
#include "platform/sim/ScenarioWorld.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <fstream>
#include <iterator>
#include <utility>

namespace larkspan::sim {

namespace {

using nlohmann::json;
using Complaint = std::optional<std::string>;

/// A day: a scenario that asks for more has a slip in its times.
constexpr double longest = 86'400;

Complaint readKind(const json& object, ScenarioStep& step) {
    const std::pair<const char*, ScenarioStep::Kind> kinds[] = {
        {"do", ScenarioStep::Kind::act},
        {"expect", ScenarioStep::Kind::expect},
        {"picture", ScenarioStep::Kind::picture}};
    int found = 0;
    for (const auto& [name, kind] : kinds) {
        const auto subject = object.find(name);
        if (subject == object.end()) continue;
        if (!subject->is_string()) return fmt::format("\"{}\" is not a text", name);
        ++found;
        step.kind = kind;
        step.subject = subject->get<std::string>();
    }
    if (found == 1) return std::nullopt;
    return "a step has exactly one of \"do\", \"expect\" and \"picture\"";
}

Complaint readTime(const json& object, double earliest, ScenarioStep& step) {
    const auto at = object.find("at");
    if (at == object.end()) return "\"at\" is missing";
    if (!at->is_number()) return "\"at\" is not a number of seconds";
    step.at = at->get<double>();
    if (!std::isfinite(step.at) || step.at < 0 || step.at > longest)
        return fmt::format("\"at\" is not within 0 and {} seconds", longest);
    if (step.at < earliest)
        return fmt::format("{} seconds is before the step above, at {}", step.at, earliest);
    return std::nullopt;
}

bool isPictureName(const std::string& name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](unsigned char letter) {
        return std::isalnum(letter) || letter == '-' || letter == '_';
    });
}

Complaint checkSubject(const ScenarioStep& step) {
    constexpr Field note{"note", FieldKind::text};
    switch (step.kind) {
    case ScenarioStep::Kind::act: {
        const ScenarioAction* action = scenarioAction(step.subject);
        if (!action) return fmt::format("there is no action \"{}\"", step.subject);
        return checkFields(step.fields, action->fields, {"at", "do", "note"});
    }
    case ScenarioStep::Kind::expect:
        return checkExpectation(step.subject, step.fields);
    case ScenarioStep::Kind::picture:
        if (!isPictureName(step.subject))
            return "a picture's name has letters, digits, \"-\" and \"_\" only";
        return checkFields(step.fields, {note}, {"at", "picture"});
    }
    return std::nullopt;
}

Complaint readStep(const json& object, double earliest, ScenarioStep& step) {
    if (!object.is_object()) return "a step is an object";
    step.fields = object;
    if (auto complaint = readTime(object, earliest, step)) return complaint;
    if (auto complaint = readKind(object, step)) return complaint;
    return checkSubject(step);
}

} // namespace

ScenarioReading parseScenario(std::string_view text, std::string_view file) {
    const auto refuse = [file](std::string reason) {
        return ScenarioReading{std::nullopt, fmt::format("{}: {}", file, reason)};
    };
    json root;
    try {
        root = json::parse(text);
    } catch (const json::exception& error) {
        return refuse(error.what());
    }
    if (!root.is_object()) return refuse("a scenario is an object");
    const std::vector<Field> fields{{"title", FieldKind::text},
                                    {"world", FieldKind::anything},
                                    {"steps", FieldKind::anything, true}};
    if (auto complaint = checkFields(root, fields, {})) return refuse(*complaint);
    Scenario scenario{.title = root.value("title", std::string(file)),
                      .world = root.value("world", json::object())};
    if (auto complaint = checkWorld(scenario.world)) return refuse("world: " + *complaint);
    if (!root["steps"].is_array()) return refuse("\"steps\" is not a list");
    double time = 0;
    for (const json& object : root["steps"]) {
        ScenarioStep step{.number = scenario.steps.size() + 1};
        if (auto complaint = readStep(object, time, step))
            return refuse(fmt::format("step {}: {}", step.number, *complaint));
        time = step.at;
        scenario.steps.push_back(std::move(step));
    }
    return {std::move(scenario), {}};
}

ScenarioReading loadScenario(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return {std::nullopt, fmt::format("{}: the file cannot be read", path)};
    const std::string text(std::istreambuf_iterator<char>(file), {});
    return parseScenario(text, path);
}

} // namespace larkspan::sim
