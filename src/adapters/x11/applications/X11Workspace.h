#pragma once

#include "adapters/freedesktop/entries/InstalledApplications.h"
#include "adapters/freedesktop/icons/IconTheme.h"
#include "adapters/x11/applications/ApplicationTable.h"
#include "adapters/x11/windows/WindowMirror.h"
#include "platform/Signal.h"
#include "platform/Workspace.h"

#include <map>

namespace larkspan::x11 {

/// The applications of the table as running applications, with the names and icons of their desktop
/// entries. An application whose windows all skip task bars is an accessory.
class X11Workspace : public Workspace {
  public:
    X11Workspace(X11Connection& connection, const WindowMirror& mirror,
                 const ApplicationTable& table, const freedesktop::InstalledApplications& installed,
                 const freedesktop::IconTheme& icons);

    std::vector<RunningApplication> runningApplications() const override { return running_; }
    std::optional<RunningApplication> frontmostApplication() const override;
    /// An application keeps its number even if the process with that number ends first, and has an
    /// invented one if its process is unknown: as long as it is listed, it runs.
    bool hasProcess(ProcessId pid) const override { return table_.find(pid) != nullptr; }
    std::optional<std::string> urlForApplication(std::string_view bundleIdentifier) const override;
    std::string displayName(std::string_view url) const override;
    ImageRef icon(std::string_view url) const override;
    ImageRef genericApplicationIcon() const override { return icons_.genericApplication(); }
    Handle subscribe(std::function<void(const WorkspaceEvent&)> callback) override {
        return events_.subscribe(std::move(callback));
    }

    /// Announces changed desktop entries as a change of the running applications: the names and
    /// icons of these may differ, even if the same ones run.
    void announceEntries();
    /// Reads the table and the mirror again and announces what changed since the last time.
    void update();

  private:
    RunningApplication applicationOf(const RunningEntry& entry, ProcessId active) const;
    ImageRef windowIcon(const RunningEntry& entry) const;
    void announce(const std::vector<RunningApplication>& before, bool isOtherDesktop);

    X11Connection& connection_;
    const WindowMirror& mirror_;
    const ApplicationTable& table_;
    const freedesktop::InstalledApplications& installed_;
    const freedesktop::IconTheme& icons_;
    std::vector<RunningApplication> running_;
    std::uint32_t desktop_ = 0;
    /// Cached for each application, so that an unchanged application compares equal.
    mutable std::map<ProcessId, ImageRef> windowIcons_;
    Signal<const WorkspaceEvent&> events_;
};

} // namespace larkspan::x11
