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

/// Keeps a store's badges and its apps that want attention in step with the desktop. A desktop that
/// tells of them is listened to. On a Mac only the system Dock knows, and it tells nothing: its
/// icons are looked at four times a second, and their labels once. Main thread only.
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
    /// Shared with a read in flight, which may outlive this object.
    std::shared_ptr<DockItemsReader> reader_;
    /// Absent until the Dock has answered, and again when it ceased to.
    std::optional<ProcessId> dockPid_;
    std::size_t ticks_ = 0;
    bool isReading_ = false;
    bool hasComplained_ = false;
    /// The apps that ask for attention, by item id, and the uptime at which each began to, or at
    /// which its icon was last seen in the air.
    std::map<std::string, double> requests_;
    /// The timer of the reads, or the subscription to what is told.
    Handle source_;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace larkspan
