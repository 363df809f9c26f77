#pragma once

#include "app/AppDelegate.h"

#include <functional>
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

    /// Told once: at once, or for what takes its time within a second. Never when the program ends
    /// before.
    using Reply = std::function<void(const ControlAnswer&)>;

    /// One line in, one line out.
    void answerLine(std::string_view line, std::function<void(std::string)> reply);
    void answer(const std::vector<std::string>& words, const Reply& reply);

    /// The words of a request as the line that carries them.
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
    void keep(const std::vector<std::string>& words, const Reply& reply);
    void remove(const std::vector<std::string>& words, const Reply& reply);
    void log(const std::vector<std::string>& words, const Reply& reply);
    void reopen(const std::vector<std::string>& words, const Reply& reply);
    void quit(const std::vector<std::string>& words, const Reply& reply);

    AppDelegate& delegate_;
    AppController& controller_;
};

} // namespace larkspan
