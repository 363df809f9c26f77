#pragma once

#include "PrivateDesktop.h"

#include <nlohmann/json.hpp>

namespace larkspan::e2e {

/// One item of `larkspan state`, with its section.
struct ReportedItem {
    /// "pinned", "groups" or "background".
    std::string section;
    nlohmann::json item;

    template <class Value>
    Value value(const std::string& key) const {
        return item.value(key, Value());
    }
};

/// The built program on a private desktop, started and controlled as by a user.
class RunningBar {
  public:
    /// Starts it and waits until its bar is on the screen.
    explicit RunningBar(PrivateDesktop& desktop);

    ChildProcess& process() { return *process_; }
    /// Runs `larkspan` with these arguments beside the running one.
    CommandResult command(const std::vector<std::string>& arguments) const;

    nlohmann::json state() const;
    /// The item with this identifier; absent if the bar has none. Prefers one in a group to a
    /// pinned one.
    std::optional<ReportedItem> item(const std::string& id) const;
    std::string frontApp() const;
    /// Whether the first display's bar is shown.
    bool isShown() const;
    /// The area of the bar on the first display; empty while it is hidden.
    Area area() const;
    /// The visible area of the app's tile; absent while there is none.
    std::optional<Area> tile(const TestApp& app) const;
    /// Clicks the app's tile, once it has stopped moving.
    void click(const TestApp& app, int button = 1);
    /// Moves the pointer there, presses, releases and moves away, at the speed of a person: the
    /// effect of each step is awaited.
    void clickAt(const Area& area, int button = 1);

    /// Quits it as a user does; returns its exit code.
    std::optional<int> quit();

  private:
    PrivateDesktop& desktop_;
    std::unique_ptr<ChildProcess> process_;
};

/// Runs `larkspan` with these arguments on the desktop, whether or not the bar is running.
CommandResult runLarkspan(const PrivateDesktop& desktop, const std::vector<std::string>& arguments);

} // namespace larkspan::e2e
