#pragma once

#include "control/ExitCode.h"

#include <string>

namespace larkspan::ui {

// The simulated Mac. A QGuiApplication must exist for both.

/// Opens the demo's window and runs until it is closed; with the path of a scenario, plays it.
/// Returns the exit code of the process.
int runDemo(const std::string& scenario);

/// Plays a scenario in virtual time and without a window, prints expectations that were not met,
/// and writes its pictures and the final state (empty: nowhere). `failed` if an expectation was not
/// met, `rejected` if a file cannot be read or written.
ExitCode runScenario(const std::string& scenario, const std::string& picturesFolder,
                     const std::string& stateFile);

} // namespace larkspan::ui
