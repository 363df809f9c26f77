#pragma once

#include "PrivateDesktop.h"

#include <nlohmann/json.hpp>

namespace larkspan::e2e {

/// One item of `larkspan state`, with where it stands.
struct ReportedItem {
    /// "pinned", "groups" or "background".
    std::string section;
    nlohmann::json item;

    template <class Value>
    Value value(const std::string& key) const {
        return item.value(key, Value());
    }
};

/// The built program on a private desktop, started and asked as a user does.
class RunningBar {
  public:
    /// Starts it and waits until its bar is on the screen.
    explicit RunningBar(PrivateDesktop& desktop);

    ChildProcess& process() { return *process_; }
    /// Runs `larkspan` with these arguments beside the running one.
    CommandResult command(const std::vector<std::string>& arguments) const;

    nlohmann::json state() const;
    /// The item of this identifier; absent when the bar shows none. A group's before a pinned
    /// one's.
    std::optional<ReportedItem> item(const std::string& id) const;
    std::string frontApp() const;
    /// Whether the first display's bar is shown.
    bool isShown() const;
    /// What the bar covers of the first display; empty while it shows none.
    Area area() const;
    /// Where the app's tile is to be seen; absent while it is not.
    std::optional<Area> tile(const TestApp& app) const;
    /// Clicks the app's tile, waiting for it to stand still first.
    void click(const TestApp& app, int button = 1);
    /// Moves the pointer there, presses, releases and moves away, at a person's pace: each step is
    /// seen before the next is made.
    void clickAt(const Area& area, int button = 1);

    /// Ends it as a user does; its exit code.
    std::optional<int> quit();

  private:
    PrivateDesktop& desktop_;
    std::unique_ptr<ChildProcess> process_;
};

/// Runs `larkspan` with these arguments on the desktop, whether one runs or not.
CommandResult runLarkspan(const PrivateDesktop& desktop, const std::vector<std::string>& arguments);

} // namespace larkspan::e2e
