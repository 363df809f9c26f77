#pragma once

#include "diagnostics/DiagnosticsLog.h"
#include "dock/DockItemsReader.h"
#include "model/DockStore.h"
#include "platform/Accessibility.h"
#include "platform/AppNotices.h"
#include "platform/CoreDock.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace larkspan {

/// Keeps a store's badges and attention marks up to date. Uses the desktop's announcements if it
/// has any. On a Mac only the system Dock knows, and announces nothing: its icons are read four
/// times a second, and their labels once. Main thread only.
class BadgeRefresh {
  public:
    BadgeRefresh(DockStore& store, Scheduler& scheduler, Workspace& workspace,
                 const Accessibility& accessibility, const CoreDock& dock, AppNotices& notices,
                 DiagnosticsLog& log);

  private:
    using Icons = std::optional<std::vector<DockIcon>>;
    enum class Depth { frames, all };

    void tick();
    void read(Depth depth);
    void readFinished(const Icons& icons, Depth depth);
    std::vector<std::optional<std::string>> idsOf(const std::vector<DockIcon>& icons) const;
    void noteBadges(const std::vector<DockIcon>& icons);
    void noteBounces(const std::vector<DockIcon>& icons);
    void dropOldBounces();
    void takeNotices(const std::vector<AppNotice>& notices);
    void setBadges(std::map<std::string, std::string> badges);
    void seeApps();
    void updateAttention();

    DockStore& store_;
    Scheduler& scheduler_;
    Workspace& workspace_;
    const CoreDock& dock_;
    DiagnosticsLog& log_;
    /// Shared with a running read, which may outlive this object.
    std::shared_ptr<DockItemsReader> reader_;
    /// Absent until the Dock has responded, and when it stops responding.
    std::optional<ProcessId> dockPid_;
    std::size_t ticks_ = 0;
    bool isReading_ = false;
    bool hasComplained_ = false;
    /// The apps that want attention, by item id, and the uptime at which each request began, or at
    /// which its icon was last in the air.
    std::map<std::string, double> requests_;
    /// The timer of the reads, or the subscription to announcements.
    Handle source_;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace larkspan
