#pragma once

#include <string>
#include <vector>

namespace larkspan {

/// What the program was asked to do.
struct CommandLine {
    enum class Action {
        /// Be the bar of this desktop; a re-open of the instance that already is.
        start,
        /// Send `words` to the running instance.
        request,
        /// The simulated Mac in a window.
        demo,
        /// The scenario in `scenario`, in virtual time and without a window.
        scenario,
        help,
        version,
        /// Say `complaint` and end.
        refuse,
    };

    Action action = Action::start;
    std::vector<std::string> words;
    /// Path of a scenario; empty for the demo of one's own making.
    std::string scenario;
    /// Where a scenario's pictures and its final state go; empty for nowhere.
    std::string picturesFolder;
    std::string stateFile;
    /// Diagnostics also go to the standard error stream.
    bool isLogged = false;
    std::string complaint;
};

/// `arguments` without the program's own name.
CommandLine parseCommandLine(const std::vector<std::string>& arguments);

/// What `--help` prints.
const char* helpText();

} // namespace larkspan
