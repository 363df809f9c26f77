#pragma once

#include "scenario/Scenario.h"
#include "scenario/Stage.h"

#include <functional>
#include <string>
#include <vector>

namespace larkspan::sim {

/// Plays a scenario on a stage, as fast as it can or step by step beside a real clock.
class ScenarioRunner {
  public:
    /// The stage is fresh: its Mac is made as the scenario's world says, and the program started
    /// unless the world says that it does not start.
    ScenarioRunner(Scenario scenario, Stage& stage);

    /// Makes the picture of that name of the stage as it is.
    std::function<void(const std::string&)> takePicture;
    /// Hears of each step that has been played.
    std::function<void(const ScenarioStep&)> onStep;

    /// Plays on to that moment of the scenario, in seconds.
    void playTo(double seconds);
    /// Plays to the end and lets what is under way come to rest.
    void play();
    bool isOver() const { return next_ == scenario_.steps.size(); }
    const std::string& title() const { return scenario_.title; }

    /// What was not as expected or could not be done, each with its step.
    const std::vector<std::string>& failures() const { return failures_; }
    /// What the program reports of itself, and the Mac under "mac".
    nlohmann::json state();

  private:
    void run(const ScenarioStep& step);
    void act(const ScenarioStep& step);
    void fail(const ScenarioStep& step, const std::string& complaint);

    Scenario scenario_;
    Stage& stage_;
    double begin_;
    std::size_t next_ = 0;
    std::vector<std::string> failures_;
};

} // namespace larkspan::sim
