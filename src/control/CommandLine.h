#pragma once

#include <string>
#include <vector>

namespace larkspan {

/// What the program was asked to do.
struct CommandLine {
    enum class Action {
        /// Run the bar of this desktop, or reopen the instance that already does.
        start,
        /// Send `words` to the running instance.
        request,
        /// Show the simulated Mac in a window.
        demo,
        /// Play the scenario in `scenario`, in virtual time and without a window.
        scenario,
        help,
        version,
        /// Print `error` and exit.
        reject,
    };

    Action action = Action::start;
    std::vector<std::string> words;
    /// Path of a scenario; empty for the built-in demo.
    std::string scenario;
    /// Where to write a scenario's pictures and its final state; empty for nowhere.
    std::string picturesFolder;
    std::string stateFile;
    /// Whether diagnostics also go to the standard error stream.
    bool isLogged = false;
    std::string error;
};

/// `arguments` are those after the program's name.
CommandLine parseCommandLine(const std::vector<std::string>& arguments);

/// What `--help` prints.
const char* helpText();

} // namespace larkspan
