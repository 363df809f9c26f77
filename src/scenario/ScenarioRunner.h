#pragma once

#include "scenario/Scenario.h"
#include "scenario/Stage.h"

#include <functional>
#include <string>
#include <vector>

namespace larkspan::sim {

/// Plays a scenario on a stage, as fast as possible or step by step with a real clock.
class ScenarioRunner {
  public:
    /// The stage must be new: its Mac is set up as the scenario's world says, and the program is
    /// started unless the world says otherwise.
    ScenarioRunner(Scenario scenario, Stage& stage);

    /// Takes a picture of the stage with that name.
    std::function<void(const std::string&)> takePicture;
    /// Called after each step.
    std::function<void(const ScenarioStep&)> onStep;

    /// Plays up to that time of the scenario, in seconds.
    void playTo(double seconds);
    /// Plays to the end, and until nothing is under way any more.
    void play();
    bool isOver() const { return next_ == scenario_.steps.size(); }
    const std::string& title() const { return scenario_.title; }

    /// What was not as expected or could not be done, each with its step.
    const std::vector<std::string>& failures() const { return failures_; }
    /// The program's own report, and the Mac's under "mac".
    nlohmann::json state();

  private:
    void run(const ScenarioStep& step);
    void act(const ScenarioStep& step);
    void fail(const ScenarioStep& step, const std::string& error);

    Scenario scenario_;
    Stage& stage_;
    double begin_;
    std::size_t next_ = 0;
    std::vector<std::string> failures_;
};

} // namespace larkspan::sim
