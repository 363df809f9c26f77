#pragma once

#include "app/AppDelegate.h"
#include "control/ExitCode.h"

#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan {

/// The reply to one request.
struct ControlAnswer {
    ExitCode code = ExitCode::succeeded;
    /// For the standard output if the request succeeded, otherwise for the standard error stream.
    std::string text;

    bool operator==(const ControlAnswer&) const = default;

    std::string toLine() const;
    /// An invalid line gives a failure with a text that says so.
    static ControlAnswer fromLine(std::string_view line);
};

/// Handles the requests that the command line and scripts send to the running instance; see
/// docs/control.md. Main thread only.
class Control {
  public:
    explicit Control(AppDelegate& delegate)
        : delegate_(delegate)
        , controller_(delegate.controller()) {}

    /// Called once: at once, or within a second for a command that takes time. Not called if the
    /// program ends first.
    using Reply = std::function<void(const ControlAnswer&)>;

    /// One line in, one line out.
    void answerLine(std::string_view line, std::function<void(std::string)> reply);
    void answer(const std::vector<std::string>& words, const Reply& reply);

    /// The line that sends this request.
    static std::string requestLine(const std::vector<std::string>& words);

  private:
    struct Command;
    static const std::vector<Command>& commands();

    void state(const std::vector<std::string>& words, const Reply& reply);
    void mode(const std::vector<std::string>& words, const Reply& reply);
    void click(const std::vector<std::string>& words, const Reply& reply);
    void menu(const std::vector<std::string>& words, const Reply& reply);
    void open(const std::vector<std::string>& words, const Reply& reply);
    void moveWindow(const std::vector<std::string>& words, const Reply& reply);
    void focus(const std::vector<std::string>& words, const Reply& reply);
    void get(const std::vector<std::string>& words, const Reply& reply);
    void set(const std::vector<std::string>& words, const Reply& reply);
    void resetAppearance(const std::vector<std::string>& words, const Reply& reply);
    void pin(const std::vector<std::string>& words, const Reply& reply);
    void unpin(const std::vector<std::string>& words, const Reply& reply);
    void log(const std::vector<std::string>& words, const Reply& reply);
    void reopen(const std::vector<std::string>& words, const Reply& reply);
    void quit(const std::vector<std::string>& words, const Reply& reply);

    AppDelegate& delegate_;
    AppController& controller_;
};

} // namespace larkspan
