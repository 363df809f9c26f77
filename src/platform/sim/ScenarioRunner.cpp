#include "platform/sim/ScenarioRunner.h"

#include "app/StateReport.h"
#include "platform/sim/Expectation.h"
#include "platform/sim/MacReport.h"
#include "platform/sim/ScenarioAction.h"
#include "platform/sim/ScenarioWorld.h"

#include <algorithm>
#include <fmt/format.h>
#include <utility>

namespace larkspan::sim {

ScenarioRunner::ScenarioRunner(Scenario scenario, Stage& stage)
    : scenario_(std::move(scenario))
    , stage_(stage) {
    setUp(stage_.mac, scenario_.world);
    if (scenario_.world.value("starts", true)) stage_.start();
    stage_.mac.scheduler.runUntilIdle();
    begin_ = stage_.mac.scheduler.uptime();
}

nlohmann::json ScenarioRunner::state() {
    nlohmann::json state = nlohmann::json::object();
    if (stage_.delegate()) state = stateReport(stage_.delegate()->controller());
    state["running"] = stage_.delegate() != nullptr;
    state["mac"] = macReport(stage_.mac);
    return state;
}

void ScenarioRunner::run(const ScenarioStep& step) {
    std::optional<std::string> complaint;
    switch (step.kind) {
    case ScenarioStep::Kind::act:
        complaint = scenarioAction(step.subject)->act(stage_, step.fields);
        stage_.mac.scheduler.runUntilIdle();
        break;
    case ScenarioStep::Kind::expect:
        complaint = compare(state(), step.subject, step.fields);
        break;
    case ScenarioStep::Kind::picture:
        if (takePicture) takePicture(step.subject);
        break;
    }
    if (complaint)
        failures_.push_back(fmt::format("step {} at {} s: {}", step.number, step.at, *complaint));
}

void ScenarioRunner::playTo(double seconds) {
    auto& scheduler = stage_.mac.scheduler;
    while (!isOver() && scenario_.steps[next_].at <= seconds) {
        const ScenarioStep& step = scenario_.steps[next_++];
        scheduler.runFor(std::max(0.0, begin_ + step.at - scheduler.uptime()));
        run(step);
    }
    scheduler.runFor(std::max(0.0, begin_ + seconds - scheduler.uptime()));
}

void ScenarioRunner::play() {
    if (!scenario_.steps.empty()) playTo(scenario_.steps.back().at);
    stage_.mac.scheduler.runUntilIdle();
}

} // namespace larkspan::sim
