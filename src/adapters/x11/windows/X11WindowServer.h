#pragma once

#include "adapters/x11/windows/DesktopSnapshot.h"
#include "adapters/x11/windows/WindowRequests.h"
#include "platform/Signal.h"
#include "platform/WindowServer.h"

namespace larkspan::x11 {

/// The managed windows as a Mac's window list, and each desktop of the window manager as one Space
/// on every display. A Space's identifier is display × 2³² + desktop + 1. Windows of other desktops
/// are not on screen, but they are on their Space; iconified ones are on no Space.
class X11WindowServer : public WindowServer {
  public:
    X11WindowServer(const SnapshotBoard& board, WindowRequests& requests)
        : board_(board)
        , requests_(requests) {}

    WindowServerAbilities abilities() const override {
        return {.announcesChanges = true, .readsAtOnce = true};
    }
    std::optional<std::vector<WindowListEntry>> windowList(std::uint32_t option) const override;
    std::optional<std::vector<WindowId>> windowNumbers(std::uint32_t option) const override;
    std::optional<std::vector<ManagedDisplay>> managedDisplaySpaces() const override;
    std::optional<std::vector<WindowId>> windowsOfSpace(SpaceId space) const override;
    /// Cannot move a window to another display: there is no such request.
    bool moveWindows(const std::vector<WindowId>& windows, SpaceId space) override;
    Handle subscribe(std::function<void()> callback) override {
        return changed_.subscribe(std::move(callback));
    }

    void announce() { changed_.emit(); }

  private:
    const SnapshotBoard& board_;
    WindowRequests& requests_;
    Signal<> changed_;
};

} // namespace larkspan::x11
