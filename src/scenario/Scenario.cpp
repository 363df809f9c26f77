#include "scenario/Scenario.h"

#include "scenario/Expectation.h"
#include "scenario/ScenarioAction.h"
#include "scenario/ScenarioWorld.h"

#include <algorithm>
#include <fmt/format.h>
#include <fstream>
#include <iterator>
#include <set>
#include <utility>

namespace larkspan::sim {

namespace {

using nlohmann::json;
using Error = std::optional<std::string>;

/// The text as a value. A name that appears twice in one object is an error: only one of its values
/// would be used.
json parseOnce(std::string_view text, Error& error) {
    std::vector<std::set<std::string>> names;
    std::string section;
    int step = 0;
    const auto watch = [&](int depth, json::parse_event_t event, const json& value) {
        if (event == json::parse_event_t::object_start) {
            names.emplace_back();
            if (depth == 2 && section == "steps") ++step;
        } else if (event == json::parse_event_t::object_end) {
            names.pop_back();
        } else if (event == json::parse_event_t::key) {
            const auto& name = value.get_ref<const std::string&>();
            if (depth == 1) section = name;
            if (names.back().insert(name).second || error) return true;
            const std::string where =
                section == "steps" && depth == 3 ? fmt::format("step {}: ", step) : std::string();
            error = fmt::format("{}\"{}\" appears twice", where, name);
        }
        return true;
    };
    return json::parse(text, watch);
}

Error readKind(const json& object, ScenarioStep& step) {
    const std::pair<const char*, ScenarioStep::Kind> kinds[] = {
        {"do", ScenarioStep::Kind::act},
        {"expect", ScenarioStep::Kind::expect},
        {"picture", ScenarioStep::Kind::picture}};
    int found = 0;
    for (const auto& [name, kind] : kinds) {
        const auto subject = object.find(name);
        if (subject == object.end()) continue;
        if (!subject->is_string()) return fmt::format("\"{}\" is not a string", name);
        ++found;
        step.kind = kind;
        step.subject = subject->get<std::string>();
    }
    if (found == 1) return std::nullopt;
    return "a step must have exactly one of \"do\", \"expect\" and \"picture\"";
}

Error readTime(const json& object, double earliest, ScenarioStep& step) {
    if (auto error = checkField(object, secondsField("at", true))) return error;
    step.at = object["at"].get<double>();
    if (step.at < earliest)
        return fmt::format("{} seconds is earlier than the previous step, at {}", step.at,
                           earliest);
    return std::nullopt;
}

bool isPictureName(const std::string& name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](unsigned char letter) {
        return std::isalnum(letter) || letter == '-' || letter == '_';
    });
}

Error checkSubject(const ScenarioStep& step) {
    switch (step.kind) {
    case ScenarioStep::Kind::act: {
        const ScenarioAction* action = scenarioAction(step.subject);
        if (!action) return fmt::format("unknown action \"{}\"", step.subject);
        return checkFields(step.fields, action->fields, {"at", "do", "note"});
    }
    case ScenarioStep::Kind::expect:
        return checkExpectation(step.subject, step.fields);
    case ScenarioStep::Kind::picture:
        if (!isPictureName(step.subject))
            return "a picture's name may only contain letters, digits, \"-\" and \"_\"";
        return checkFields(step.fields, {}, {"at", "picture", "note"});
    }
    return std::nullopt;
}

Error readStep(const json& object, double earliest, ScenarioStep& step) {
    if (!object.is_object()) return "a step must be an object";
    step.fields = object;
    if (auto error = readTime(object, earliest, step)) return error;
    if (auto error = checkField(object, {"note", FieldKind::text})) return error;
    if (auto error = readKind(object, step)) return error;
    return checkSubject(step);
}

} // namespace

ScenarioReading parseScenario(std::string_view text, std::string_view file) {
    const auto reject = [file](std::string reason) {
        return ScenarioReading{std::nullopt, fmt::format("{}: {}", file, reason)};
    };
    json root;
    Error repeated;
    try {
        root = parseOnce(text, repeated);
    } catch (const json::exception& error) {
        return reject(error.what());
    }
    if (repeated) return reject(*repeated);
    if (!root.is_object()) return reject("a scenario must be an object");
    const std::vector<Field> fields{{"title", FieldKind::text},
                                    {"world", FieldKind::anything},
                                    {"steps", FieldKind::anything, true}};
    if (auto error = checkFields(root, fields, {})) return reject(*error);
    Scenario scenario{.title = root.value("title", std::string(file)),
                      .world = root.value("world", json::object())};
    if (auto error = checkWorld(scenario.world)) return reject("world: " + *error);
    if (!root["steps"].is_array()) return reject("\"steps\" is not a list");
    double time = 0;
    for (const json& object : root["steps"]) {
        ScenarioStep step{.number = scenario.steps.size() + 1};
        if (auto error = readStep(object, time, step))
            return reject(fmt::format("step {}: {}", step.number, *error));
        time = step.at;
        scenario.steps.push_back(std::move(step));
    }
    return {std::move(scenario), {}};
}

ScenarioReading loadScenario(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return {std::nullopt, fmt::format("cannot read {}", path)};
    const std::string text(std::istreambuf_iterator<char>(file), {});
    return parseScenario(text, path);
}

} // namespace larkspan::sim
