#pragma once

#include <string>

namespace larkspan::ui {

// The simulated Mac for people. A QGuiApplication must exist for both.

/// Opens the demo's window and runs until it is closed; with the path of a scenario, plays it.
/// Answers what the process ends with.
int runDemo(const std::string& scenario);

/// Plays a scenario in virtual time and without a window, says what was not as expected, and
/// writes its pictures and the final state where they are asked for (empty: nowhere). Answers 0
/// when everything was as expected, 1 when not, 2 when a file cannot be read or written.
int runScenario(const std::string& scenario, const std::string& picturesFolder,
                const std::string& stateFile);

} // namespace larkspan::ui
