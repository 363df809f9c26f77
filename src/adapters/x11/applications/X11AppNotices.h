#pragma once

#include "adapters/freedesktop/bus/LauncherEntries.h"
#include "adapters/freedesktop/entries/InstalledApplications.h"
#include "adapters/x11/applications/ApplicationTable.h"
#include "platform/AppNotices.h"
#include "platform/Signal.h"

namespace larkspan::x11 {

/// The counts of launchers as badges. Applications ask for attention by their launcher or by any of
/// their windows.
class X11AppNotices : public AppNotices {
  public:
    X11AppNotices(const ApplicationTable& table,
                  const freedesktop::InstalledApplications& installed,
                  const freedesktop::LauncherEntries& launchers)
        : table_(table)
        , installed_(installed)
        , launchers_(launchers) {}

    bool announcesChanges() const override { return true; }
    std::vector<AppNotice> notices() const override { return notices_; }
    Handle subscribe(std::function<void()> callback) override {
        return changed_.subscribe(std::move(callback));
    }

    /// Reads the windows and the launchers again, and announces any difference.
    void update();

  private:
    std::vector<AppNotice> read() const;

    const ApplicationTable& table_;
    const freedesktop::InstalledApplications& installed_;
    const freedesktop::LauncherEntries& launchers_;
    std::vector<AppNotice> notices_;
    Signal<> changed_;
};

} // namespace larkspan::x11
