#include "control/CommandLine.h"

#include <fmt/format.h>
#include <optional>

namespace larkspan {
namespace {

using Action = CommandLine::Action;

/// Reads one argument after the other.
class Reader {
  public:
    explicit Reader(const std::vector<std::string>& arguments)
        : arguments_(arguments) {}

    CommandLine read() {
        while (next_ < arguments_.size() && line_.action != Action::refuse)
            readOne(arguments_[next_++]);
        if (line_.action != Action::refuse) check();
        return line_;
    }

  private:
    void readOne(const std::string& argument) {
        if (argument == "--help" || argument == "-h") {
            line_.action = Action::help;
        } else if (argument == "--version") {
            line_.action = Action::version;
        } else if (argument == "--log") {
            line_.isLogged = true;
        } else if (argument == "--demo") {
            line_.action = Action::demo;
            if (hasOperand()) line_.scenario = arguments_[next_++];
        } else if (argument == "--headless") {
            isHeadless_ = true;
        } else if (argument == "--pictures") {
            readOperand(argument, line_.picturesFolder);
        } else if (argument == "--state") {
            readOperand(argument, line_.stateFile);
        } else if (argument.starts_with("-")) {
            refuse(fmt::format("unknown option {}", argument));
        } else {
            line_.action = Action::request;
            line_.words.assign(arguments_.begin() + static_cast<std::ptrdiff_t>(next_) - 1,
                               arguments_.end());
            next_ = arguments_.size();
        }
    }

    bool hasOperand() const {
        return next_ < arguments_.size() && !arguments_[next_].starts_with("--");
    }

    void readOperand(const std::string& option, std::string& operand) {
        if (hasOperand())
            operand = arguments_[next_++];
        else
            refuse(fmt::format("{} needs a path", option));
    }

    void check() {
        const bool asksForFiles = !line_.picturesFolder.empty() || !line_.stateFile.empty();
        if (isHeadless_ && line_.scenario.empty())
            refuse("--headless needs --demo with a scenario");
        else if (asksForFiles && !isHeadless_)
            refuse("--pictures and --state need --headless");
        else if (isHeadless_)
            line_.action = Action::scenario;
    }

    void refuse(std::string complaint) {
        line_.action = Action::refuse;
        line_.complaint = std::move(complaint);
    }

    const std::vector<std::string>& arguments_;
    std::size_t next_ = 0;
    CommandLine line_;
    bool isHeadless_ = false;
};

} // namespace

CommandLine parseCommandLine(const std::vector<std::string>& arguments) {
    return Reader(arguments).read();
}

const char* helpText() {
    return R"(Larkspan: a bar along the bottom edge of every screen.

usage: larkspan [--log]                start the bar; when it runs already, bring it back
       larkspan COMMAND [ARGUMENTS]    ask the running bar
       larkspan --demo [FILE]          a simulated Mac in a window; FILE plays a scenario there
       larkspan --demo FILE --headless [--pictures FOLDER] [--state FILE]
                                       play a scenario without a window

commands:
  state                     what shows on the bars, as JSON
  mode [vantrel|systemDock] which of the two modes is in use, or change it
  click ID [--option] [--command] [--new-instance]
                            a click on the item with that id, and what is held down with it
  menu ID [LINE]            the lines of its menu as JSON, or choose one
  open ID FILE...           open files with the application
  move-window NUMBER SPACE  move a window to another Space; the state lists both
  focus                     bring the keyboard onto the bar: arrows, Return, Escape
  keep ID, remove ID        keep an app on the bar, or no longer
  get [KEY]                 a setting, or all of them
  set KEY VALUE             change a setting
  reset-appearance          style, glass, blur, island shape and dot colors as they first were
  log [FILE]                the diagnostics, or save them as a text file
  reopen                    what starting the program again does
  quit                      end the running bar

options:
  --log      also write the diagnostics to the standard error stream
  --version  print the version
  --help     print this

A command ends with 0 when it was done, 1 when no instance runs, 2 when it makes no sense.
)";
}

} // namespace larkspan
