#pragma once

#include "app/AppDelegate.h"

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan {

/// What one request to the running instance came to.
struct ControlAnswer {
    /// What the command line ends with: 0 done, 2 the request makes no sense.
    int code = 0;
    /// For the standard output, or with a code other than 0 for the standard error stream.
    std::string text;

    bool operator==(const ControlAnswer&) const = default;

    std::string toLine() const;
    /// A line that is no answer reads as a failure that says so.
    static ControlAnswer fromLine(std::string_view line);
};

/// Answers the requests that reach the running instance from the command line and from scripts; see
/// docs/control.md. Main thread only.
class Control {
  public:
    explicit Control(AppDelegate& delegate)
        : delegate_(delegate)
        , controller_(delegate.controller()) {}

    /// One line in, one line out.
    std::string answerLine(std::string_view line);
    ControlAnswer answer(const std::vector<std::string>& words);

    /// The words of a request as the line that carries them.
    static std::string requestLine(const std::vector<std::string>& words);

  private:
    struct Command;
    static const std::vector<Command>& commands();

    ControlAnswer state(const std::vector<std::string>& words);
    ControlAnswer mode(const std::vector<std::string>& words);
    ControlAnswer click(const std::vector<std::string>& words);
    ControlAnswer menu(const std::vector<std::string>& words);
    ControlAnswer open(const std::vector<std::string>& words);
    ControlAnswer focus(const std::vector<std::string>& words);
    ControlAnswer get(const std::vector<std::string>& words);
    ControlAnswer set(const std::vector<std::string>& words);
    ControlAnswer resetAppearance(const std::vector<std::string>& words);
    ControlAnswer keep(const std::vector<std::string>& words);
    ControlAnswer remove(const std::vector<std::string>& words);
    ControlAnswer reopen(const std::vector<std::string>& words);
    ControlAnswer quit(const std::vector<std::string>& words);

    AppDelegate& delegate_;
    AppController& controller_;
};

} // namespace larkspan
