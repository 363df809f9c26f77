#pragma once

#include "adapters/x11/windows/ClientPing.h"
#include "adapters/x11/windows/DesktopSnapshot.h"
#include "adapters/x11/windows/WindowRequests.h"
#include "platform/Accessibility.h"
#include "platform/Signal.h"

#include <atomic>
#include <functional>
#include <string_view>

namespace larkspan::x11 {

/// The managed windows as a Mac's Accessibility tree: applications, their windows on every desktop,
/// each window's close button. Values come from the newest snapshot; requests go to the window
/// manager. Only reading the windows of an application involves the application: it is pinged, for
/// up to the messaging time-out, and only off the main thread. No permission is needed. Observers
/// are notified of the differences between snapshots: AXFocusedWindowChanged (also when the app
/// comes forward, since an app behind has no focused window here), AXWindowMoved, AXWindowResized
/// and AXUIElementDestroyed.
class X11Accessibility : public Accessibility {
  public:
    /// `setMainWindow` stores which window of its application comes forward first; it is called on
    /// the main thread.
    X11Accessibility(X11Connection& connection, const SnapshotBoard& board,
                     WindowRequests& requests, const ClientPing& ping,
                     std::function<void(ProcessId, WindowId)> setMainWindow);

    bool isProcessTrusted() const override { return true; }
    bool requestTrust() override { return true; }

    AXElementRef createSystemWide() const override;
    AXElementRef createApplication(ProcessId pid) const override;
    AXElementRef createWithRemoteToken(const RemoteToken&) const override { return nullptr; }

    AXError setMessagingTimeout(const AXElementRef& element, float seconds) const override;
    AXAttribute attribute(const AXElementRef& element, std::string_view name) const override;
    AXError setAttribute(const AXElementRef& element, std::string_view name,
                         const AXValue& value) const override;
    AXError performAction(const AXElementRef& element, std::string_view action) const override;
    std::optional<ProcessId> pid(const AXElementRef& element) const override;
    std::optional<WindowId> window(const AXElementRef& element) const override;
    Handle observe(const AXElementRef& element, std::string_view notification,
                   std::function<void()> callback) const override;

    /// Announces the differences between the snapshot and the newest one. Main thread only.
    void announceSince(const DesktopSnapshot& before);

  private:
    static constexpr float defaultMessagingTimeout = 6;

    struct Notification {
        std::string_view name;
        ProcessId pid = 0;
        WindowId window = 0;
    };

    bool exists(const AXElementRef& element) const;
    AXAttribute applicationAttribute(ProcessId pid, std::string_view name) const;
    AXAttribute windowAttribute(const ClientWindow& window, std::string_view name) const;
    bool isResponding(const std::vector<ClientWindowRef>& windows) const;
    void makeMain(const ClientWindow& window) const;

    X11Connection& connection_;
    const SnapshotBoard& board_;
    WindowRequests& requests_;
    const ClientPing& ping_;
    /// In seconds.
    mutable std::atomic<float> messagingTimeout_ = defaultMessagingTimeout;
    std::function<void(ProcessId, WindowId)> setMainWindow_;
    /// Main thread only.
    mutable Signal<const Notification&> notifications_;
};

} // namespace larkspan::x11
