#include "scenario/ScenarioRunner.h"

#include "control/StateReport.h"
#include "scenario/Expectation.h"
#include "scenario/MacReport.h"
#include "scenario/ScenarioAction.h"
#include "scenario/ScenarioWorld.h"

#include <algorithm>
#include <fmt/format.h>
#include <utility>

namespace larkspan::sim {

namespace {

/// Seconds by which a step may be late, because calls to apps that do not respond block the Mac. A
/// later step would not test the time it names.
constexpr double longestWait = 1;

} // namespace

ScenarioRunner::ScenarioRunner(Scenario scenario, Stage& stage)
    : scenario_(std::move(scenario))
    , stage_(stage) {
    setUp(stage_.mac, scenario_.world);
    if (scenario_.world.value("starts", true)) stage_.start();
    stage_.mac.scheduler.runUntilIdle();
    begin_ = stage_.mac.scheduler.uptime();
}

nlohmann::json ScenarioRunner::state() {
    auto& scheduler = stage_.mac.scheduler;
    nlohmann::json state = nlohmann::json::object();
    const double before = scheduler.uptime();
    if (stage_.delegate()) state = stateReport(stage_.delegate()->controller());
    state["running"] = stage_.delegate() != nullptr;
    state["mac"] = macReport(stage_.mac);
    // The report asks every app, but observing must not take any of the Mac's time.
    scheduler.spend(before - scheduler.uptime());
    return state;
}

void ScenarioRunner::fail(const ScenarioStep& step, const std::string& error) {
    failures_.push_back(fmt::format("step {} at {} s: {}", step.number, step.at, error));
}

void ScenarioRunner::act(const ScenarioStep& step) {
    const auto error = scenarioAction(step.subject)->act(stage_, step.fields);
    if (error) fail(step, *error);
    stage_.mac.scheduler.runUntilIdle();
}

void ScenarioRunner::run(const ScenarioStep& step) {
    const double now = stage_.mac.scheduler.uptime() - begin_;
    if (now > step.at + longestWait)
        fail(step, fmt::format("too late: the Mac was busy until {:.3f} s", now));
    switch (step.kind) {
    case ScenarioStep::Kind::act:
        act(step);
        break;
    case ScenarioStep::Kind::expect:
        if (const auto error = compare(state(), step.subject, step.fields)) fail(step, *error);
        break;
    case ScenarioStep::Kind::picture:
        if (takePicture) takePicture(step.subject);
        break;
    }
    if (onStep) onStep(step);
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
