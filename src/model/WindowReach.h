#pragma once

#include "model/DockStore.h"
#include "platform/Accessibility.h"
#include "platform/Scheduler.h"
#include "spaces/ClosedCheck.h"
#include "spaces/WindowInfo.h"
#include "spaces/WindowPresence.h"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace larkspan {

/// Finds the windows on Spaces that are not shown, which Accessibility does not list, so that they
/// can be raised, and finds out which listed windows are closed. Apps are asked one after the other
/// on a separate queue: a hung one delays neither the window reads nor the main thread, on which
/// all methods are called.
class WindowReach {
  public:
    /// `closedChanged` is called when the set of closed windows changes.
    WindowReach(DockStore& store, Scheduler& scheduler, const Accessibility& accessibility,
                std::function<void()> closedChanged);

    /// Takes all windows of the apps to ask, as in `WindowRead::unconfirmed`. An app is asked if
    /// its windows have changed or its last result is too old.
    void follow(const std::vector<WindowInfo>& unconfirmed);

    /// Windows that the window server lists for Spaces that are not shown, but that do not exist
    /// any more: neither Accessibility nor a complete search found them.
    std::set<WindowId> closed() const;

  private:
    struct App {
        ClosedCheck check;
        /// Of the windows that `check` hides: those that a search did not find, and those of them
        /// that are certainly closed.
        std::set<WindowId> missed;
        std::set<WindowId> closed;
    };
    /// The result of asking the app.
    struct Visit {
        ClosedCheck check;
        std::set<WindowId> sought;
        WindowPresence::WindowSearch search;
    };

    void forgetOthers(const std::set<ProcessId>& pids);
    void visit(ProcessId pid, std::vector<WindowInfo> windows);
    void finished(ProcessId pid, const Visit& visit);

    DockStore& store_;
    Scheduler& scheduler_;
    const Accessibility& accessibility_;
    std::function<void()> closedChanged_;
    std::map<ProcessId, App> apps_;
    /// Apps that are being asked, which continues even if they are not to be asked any more.
    std::set<ProcessId> reaching_;
    /// Expires with this object, for visits that finish later.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace larkspan
