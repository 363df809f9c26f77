#pragma once

#include "platform/Scheduler.h"
#include "platform/Signal.h"
#include "platform/Workspace.h"

#import <AppKit/AppKit.h>

#include <map>
#include <vector>

@class LarkspanWorkspaceObserver;

namespace larkspan::mac {

/// The workspace of the user's session.
class MacWorkspace final : public Workspace {
  public:
    explicit MacWorkspace(Scheduler& scheduler);
    ~MacWorkspace() override;
    MacWorkspace(const MacWorkspace&) = delete;
    MacWorkspace& operator=(const MacWorkspace&) = delete;

    std::vector<RunningApplication> runningApplications() const override;
    std::optional<RunningApplication> frontmostApplication() const override;
    bool hasProcess(ProcessId pid) const override;
    std::optional<std::string> urlForApplication(std::string_view bundleIdentifier) const override;
    std::string displayName(std::string_view url) const override;
    ImageRef icon(std::string_view url) const override;
    ImageRef genericApplicationIcon() const override;
    Handle subscribe(std::function<void(const WorkspaceEvent&)> callback) override {
        return events_.subscribe(std::move(callback));
    }

  private:
    struct KnownIcon {
        NSRunningApplication* application;
        ImageRef icon;
    };

    RunningApplication valueOf(NSRunningApplication* application) const;
    ImageRef iconOf(NSRunningApplication* application) const;
    void forgetIcons(NSArray<NSRunningApplication*>* running) const;
    void announce(NSNotificationName name, WorkspaceEvent::Kind kind);

    Signal<const WorkspaceEvent&> events_;
    /// Cached for each process, so that an unchanged application compares equal.
    mutable std::map<ProcessId, KnownIcon> icons_;
    LarkspanWorkspaceObserver* listObserver_;
    std::vector<Handle> observations_;
};

} // namespace larkspan::mac
