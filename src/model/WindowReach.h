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

/// Reaches the windows on Spaces not shown, which Accessibility does not list, so that they can be
/// raised, and finds out which of those listed are closed. Apps are asked one after the other on a
/// queue of its own: a hung one delays neither the window reads nor the main thread, on which all
/// methods are called.
class WindowReach {
  public:
    /// `closedChanged` is called when other windows count as closed than before.
    WindowReach(DockStore& store, Scheduler& scheduler, const Accessibility& accessibility,
                std::function<void()> closedChanged);

    /// Takes all windows of the apps to reach, as `WindowRead::unconfirmed` has them. An app is
    /// asked when its listing has changed or its last answer has become old.
    void follow(const std::vector<WindowInfo>& unconfirmed);

    /// Windows that the window server lists for Spaces not shown though they are no more: neither
    /// Accessibility nor a search that went to its end met them.
    std::set<WindowId> closed() const;

  private:
    struct App {
        ClosedCheck check;
        /// Of the windows that `check` hides: those searched for in vain, and which of these are
        /// closed for certain.
        std::set<WindowId> missed;
        std::set<WindowId> closed;
    };
    /// What a visit to the app brought.
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
    /// Apps with a visit under way, which goes on when they are no longer to be reached.
    std::set<ProcessId> reaching_;
    /// Ends with this object, so that a visit that comes back later finds nobody.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace larkspan
