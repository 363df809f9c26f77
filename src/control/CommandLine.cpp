#include "control/CommandLine.h"

#include <fmt/format.h>
#include <optional>

namespace larkspan {
namespace {

using Action = CommandLine::Action;

class Reader {
  public:
    explicit Reader(const std::vector<std::string>& arguments)
        : arguments_(arguments) {}

    CommandLine read() {
        while (next_ < arguments_.size() && line_.action != Action::reject)
            readOne(arguments_[next_++]);
        if (line_.action != Action::reject) check();
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
            reject(fmt::format("unknown option {}", argument));
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
            reject(fmt::format("{} needs a path", option));
    }

    void check() {
        const bool asksForFiles = !line_.picturesFolder.empty() || !line_.stateFile.empty();
        if (isHeadless_ && line_.scenario.empty())
            reject("--headless needs --demo with a scenario");
        else if (asksForFiles && !isHeadless_)
            reject("--pictures and --state need --headless");
        else if (isHeadless_)
            line_.action = Action::scenario;
    }

    void reject(std::string error) {
        line_.action = Action::reject;
        line_.error = std::move(error);
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

usage: larkspan [--log]                start the bar, or show it again if it already runs
       larkspan COMMAND [ARGUMENTS]    send a command to the running bar
       larkspan --demo [FILE]          a simulated Mac in a window; FILE plays a scenario there
       larkspan --demo FILE --headless [--pictures FOLDER] [--state FILE]
                                       play a scenario without a window

commands:
  state                     print what the bars show, as JSON
  mode [bar|systemDock]     print the mode, or change it: the bar, or the system Dock instead
  click ID [--option] [--command] [--new-instance]
                            click the tile with that id, with these keys held
  menu ID [LINE]            print the items of its menu as JSON, or choose one by title;
                            both take --display N and --space N to name its group
  open ID FILE...           open files with the application
  move-window NUMBER SPACE  move a window to another Space; the state lists both
  focus                     use the bar by keyboard: arrows, Return, Escape
  pin ID, unpin ID          pin an app to the bar, or unpin it
  get [KEY]                 print a setting, or all of them
  set KEY VALUE             change a setting
  reset-appearance          reset style, glass, blur, island shape and dot colors
  log [FILE]                print the diagnostics, or save them as a text file
  reopen                    show the bar again, as starting the program again does
  quit                      quit the running bar

options:
  --log      write the diagnostics to the standard error stream as well
  --version  print the version
  --help     print this help

Exit codes: 0 done, 1 no instance is running, 2 invalid command or nothing done.
)";
}

} // namespace larkspan
