#pragma once

#include "adapters/x11/connection/X11Connection.h"
#include "adapters/x11/windows/ClientPropertyReader.h"
#include "adapters/x11/windows/ClientWindow.h"

#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

namespace larkspan::x11 {

/// The current managed windows, kept up to date by the X server's events: reading them sends no
/// request. Without a window manager, the mapped top-level windows are used instead. Main thread
/// only.
class WindowMirror {
  public:
    /// Returns the application that owns a window; 0 if it belongs to none that is shown.
    using FindOwner = std::function<ProcessId(const ClientProperties&)>;

    /// Reads everything once. `scale` is pixels per point.
    WindowMirror(X11Connection& connection, double scale, FindOwner findOwner);

    /// Front to back. Windows of this program are excluded.
    const std::vector<ClientWindowRef>& windows() const { return windows_; }
    /// 0 if none is active.
    WindowId activeWindow() const { return active_; }
    std::uint32_t currentDesktop() const { return currentDesktop_; }
    std::uint32_t desktopCount() const { return desktopCount_; }
    bool hasWindowManager() const { return manager_ != 0; }
    /// Whether the window manager supports the request, such as `_NET_RESTACK_WINDOW`.
    bool isSupported(xcb_atom_t request) const;

    /// Whether anything changed since the last call.
    bool takeChanged() { return std::exchange(hasChanged_, false); }
    /// Determines the owners again, after the installed applications changed.
    void findOwnersAgain();
    /// Call it when this program has asked for the window to become active. If no window manager
    /// reports it as active, because none runs or because the window declines the focus, it counts
    /// as active while it is in front of all others, until another window becomes active.
    void noteActivated(WindowId window);

  private:
    struct Client {
        ClientProperties facts;
        ClientWindowRef window;
        /// Selects the window's events; checked together with its first properties.
        std::optional<xcb_void_cookie_t> selection;
        ClientPropertyReader::Facets stale = ClientPropertyReader::allFacets;
        bool isGone = false;
    };
    struct RootReads {
        bool manager = true;
        bool supported = true;
        bool windows = true;
        bool active = true;
        bool desktops = true;
    };

    void handle(const xcb_generic_event_t& event);
    void handleProperty(const xcb_property_notify_event_t& event);
    void handleConfigure(const xcb_configure_notify_event_t& event);
    void makeStale(WindowId window, ClientPropertyReader::Facets facets);

    void refresh();
    void readManager();
    void readRoot();
    std::vector<WindowId> topLevelWindows();
    void takeStacking(std::vector<WindowId> bottomToTop);
    void adopt(WindowId window);
    void takeActive(WindowId window);
    void findFrames();
    void refreshClients();
    bool collect(Client& client, const ClientPropertyReader::Pending& read);
    WindowId windowInFront() const;
    bool isOurs(const Client& client) const;
    ProcessId ownerOf(const Client& client) const;
    void show(Client& client, ProcessId owner);
    void publish();

    X11Connection& connection_;
    ClientPropertyReader reader_;
    double scale_;
    FindOwner findOwner_;
    /// The properties that decide which application owns a window.
    ClientPropertyReader::Facets identityFacets_;
    Handle eventSubscription_;
    Handle drainedSubscription_;

    RootReads stale_;
    xcb_window_t manager_ = 0;
    std::vector<xcb_atom_t> supported_;
    WindowId active_ = 0;
    /// As reported by the window manager.
    WindowId activeForManager_ = 0;
    /// What this program made active and the window manager does not report as such; 0 if none.
    WindowId activatedHere_ = 0;
    std::uint32_t currentDesktop_ = 0;
    std::uint32_t desktopCount_ = 1;

    std::unordered_map<WindowId, Client> clients_;
    /// The managed window in each of the window manager's frames.
    std::unordered_map<xcb_window_t, WindowId> framed_;
    /// The windows in `clients_` that have something stale.
    std::vector<WindowId> staleClients_;
    /// Bottom to top, as the window manager lists them.
    std::vector<WindowId> stacking_;
    std::vector<ClientWindowRef> windows_;
    bool needsPublishing_ = false;
    bool hasChanged_ = false;
};

} // namespace larkspan::x11
