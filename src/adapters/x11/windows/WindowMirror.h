#pragma once

#include "adapters/x11/connection/X11Connection.h"
#include "adapters/x11/windows/ClientPropertyReader.h"
#include "adapters/x11/windows/ClientWindow.h"

#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

namespace larkspan::x11 {

/// The managed windows as they are now, kept up to date by the X server's events: reading them asks
/// nobody. Without a window manager the mapped top-level windows stand in for the managed ones.
/// Main thread only.
class WindowMirror {
  public:
    /// Names the application that owns a window; 0 when it belongs to none that is shown.
    using FindOwner = std::function<ProcessId(const ClientProperties&)>;

    /// Reads everything once. `scale` is pixels per point.
    WindowMirror(X11Connection& connection, double scale, FindOwner findOwner);

    /// Front to back. Windows of this program are left out.
    const std::vector<ClientWindowRef>& windows() const { return windows_; }
    /// 0 when none is active.
    WindowId activeWindow() const { return active_; }
    std::uint32_t currentDesktop() const { return currentDesktop_; }
    std::uint32_t desktopCount() const { return desktopCount_; }
    bool hasWindowManager() const { return manager_ != 0; }
    /// Whether the window manager understands the request, such as `_NET_RESTACK_WINDOW`.
    bool isSupported(xcb_atom_t request) const;

    /// Whether anything differs from when this was last asked.
    bool takeChanged() { return std::exchange(hasChanged_, false); }
    /// Finds the owners anew, after the installed applications changed.
    void findOwnersAgain();
    /// Says that this program has asked for the window to be active. Where no window manager calls
    /// it so, since none runs or the window declines the keyboard, it is taken for the active one
    /// while it stands before all others, until another is.
    void noteActivated(WindowId window);

  private:
    struct Client {
        ClientProperties facts;
        ClientWindowRef window;
        /// Asks for the window's events; its answer is awaited with the first facts.
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
    /// The facts that decide whose a window is.
    ClientPropertyReader::Facets identityFacets_;
    Handle eventSubscription_;
    Handle drainedSubscription_;

    RootReads stale_;
    xcb_window_t manager_ = 0;
    std::vector<xcb_atom_t> supported_;
    WindowId active_ = 0;
    /// As the window manager says.
    WindowId activeForManager_ = 0;
    /// What this program made active and the window manager does not call so; 0 when there is none.
    WindowId activatedHere_ = 0;
    std::uint32_t currentDesktop_ = 0;
    std::uint32_t desktopCount_ = 1;

    std::unordered_map<WindowId, Client> clients_;
    /// By the window manager's frame, the window in it.
    std::unordered_map<xcb_window_t, WindowId> framed_;
    /// Of the windows in `clients_`, those with something stale.
    std::vector<WindowId> staleClients_;
    /// Bottom to top, as the window manager lists them.
    std::vector<WindowId> stacking_;
    std::vector<ClientWindowRef> windows_;
    bool needsPublishing_ = false;
    bool hasChanged_ = false;
};

} // namespace larkspan::x11
