#include "adapters/x11/X11Desktop.h"

#include "adapters/freedesktop/FreedesktopTrash.h"
#include "adapters/freedesktop/PinnedFile.h"
#include "adapters/freedesktop/bus/LauncherEntries.h"
#include "adapters/freedesktop/bus/StatusNotifier.h"
#include "adapters/freedesktop/entries/AutostartEntries.h"
#include "adapters/freedesktop/entries/DefaultApplications.h"
#include "adapters/freedesktop/entries/DesktopEntries.h"
#include "adapters/freedesktop/entries/InstalledApplications.h"
#include "adapters/freedesktop/entries/LoginEntry.h"
#include "adapters/freedesktop/icons/IconTheme.h"
#include "adapters/freedesktop/launch/Launcher.h"
#include "adapters/freedesktop/launch/watchProcessExit.h"
#include "adapters/qt/QtDisplayLink.h"
#include "adapters/qt/watchReadable.h"
#include "adapters/x11/X11CoreDock.h"
#include "adapters/x11/X11DockStrip.h"
#include "adapters/x11/X11ScreenCapture.h"
#include "adapters/x11/X11Screens.h"
#include "adapters/x11/applications/ApplicationTable.h"
#include "adapters/x11/applications/X11AppNotices.h"
#include "adapters/x11/applications/X11ApplicationControl.h"
#include "adapters/x11/applications/X11Workspace.h"
#include "adapters/x11/input/X11EventMonitors.h"
#include "adapters/x11/input/X11EventTaps.h"
#include "adapters/x11/panels/X11DesktopPicture.h"
#include "adapters/x11/panels/X11PanelDressing.h"
#include "adapters/x11/windows/ClientPing.h"
#include "adapters/x11/windows/DesktopSnapshot.h"
#include "adapters/x11/windows/WindowMirror.h"
#include "adapters/x11/windows/WindowRequests.h"
#include "adapters/x11/windows/X11Accessibility.h"
#include "adapters/x11/windows/X11WindowServer.h"

#include <utility>

namespace larkspan::x11 {

/// Everything that shares one connection, each after what it depends on.
struct X11Desktop::Parts {
    Parts(Host theHost, const char* displayName, std::unique_ptr<X11Connection> theConnection);

    void settle();
    void post();
    void setStrip(double height);
    void entriesChanged();
    void open(const std::string& path) { applications.open(path); }

    Host host;
    std::unique_ptr<X11Connection> connection;
    ClientPing ping;
    double scale = X11Screens::readScale(*connection);

    freedesktop::DesktopEntries entries{host.environment, host.scheduler};
    freedesktop::DefaultApplications defaults{host.environment, entries};
    freedesktop::IconTheme icons{host.environment};
    freedesktop::Launcher launcher{host.environment, defaults};
    freedesktop::InstalledApplications installed{entries, defaults};
    ApplicationTable table{host.scheduler,
                           [this](const auto& instance, const auto& className, auto process) {
                               return installed.match(instance, className, process);
                           },
                           freedesktop::watchProcessExit};

    WindowMirror mirror{*connection, scale,
                        [this](const ClientProperties& facts) { return table.ownerOf(facts); }};
    X11Screens screens{*connection, mirror, scale};
    SnapshotBoard board;
    WindowRequests requests{*connection, mirror};

    X11WindowServer windowServer{board, requests};
    X11Accessibility accessibility{
        *connection, board, requests, ping,
        [this](ProcessId owner, WindowId window) { table.setMainWindow(owner, window); }};
    X11Workspace workspace{*connection, mirror, table, installed, icons};
    X11ApplicationControl applications{table,    installed, defaults,   launcher,
                                       requests, mirror,    host.report};
    freedesktop::LauncherEntries launchers{[this] { notices.update(); }};
    X11AppNotices notices{table, installed, launchers};
    X11DockStrip strip{[this](double height) { setStrip(height); }};
    X11ScreenCapture screenCapture;
    X11CoreDock coreDock;
    freedesktop::PinnedFile pinned{freedesktop::XdgFolders(host.environment).ownConfigFolder() +
                                       "/pinned.json",
                                   defaults, host.report};
    freedesktop::StatusNotifier statusBar{host.report};
    freedesktop::LoginEntry loginItem{host.environment, host.program,
                                      [this](const std::string& path) { open(path); }};
    freedesktop::AutostartEntries loginItems{host.environment, installed};
    freedesktop::FreedesktopTrash trash{host.environment,
                                        [this](const std::string& path) { open(path); }};
    X11EventTaps eventTaps{*connection};
    X11EventMonitors eventMonitors{*connection, host.scheduler, screens, scale};
    qt::QtDisplayLink displayLink{host.scheduler};
    X11PanelDressing dressing{*connection};
    X11DesktopPicture picture{*connection, scale};

    Handle listening;
    bool areApplicationsStale = false;
    // From the start, since a desktop without windows may send no event for a long time.
    bool areScreensStale = true;
    Handle settledSubscription;
    Handle tableSubscription;
    Handle entriesSubscription;
};

X11Desktop::Parts::Parts(Host theHost, const char* displayName,
                         std::unique_ptr<X11Connection> theConnection)
    : host(std::move(theHost))
    , connection(std::move(theConnection))
    , ping(host.scheduler, displayName ? displayName : "") {
    settledSubscription = connection->settled.subscribe([this] { settle(); });
    tableSubscription = table.changed.subscribe([this] {
        areApplicationsStale = true;
        connection->dispatchSoon();
    });
    entriesSubscription = entries.subscribe([this] { entriesChanged(); });
    connection->onGone = [this](const std::string& line) {
        if (host.gone) host.gone(line);
    };
    if (!mirror.hasWindowManager())
        host.report(
            "larkspan: no window manager is running, so windows cannot be hidden or minimised");
    settle();
    connection->start(qt::watchReadable);
    // Only if there is a session bus, as connecting may start one; and after the first frame, which
    // must not wait for it.
    if (!host.environment.value("DBUS_SESSION_BUS_ADDRESS").empty())
        listening = host.scheduler.after(0.3, [this] { launchers.listen(); });
}

// All parts are updated first, so that the first subscriber already reads the new state everywhere.
void X11Desktop::Parts::settle() {
    const bool haveWindowsChanged = mirror.takeChanged();
    if (haveWindowsChanged) table.update(mirror.windows());
    const bool haveScreensChanged = screens.update() || std::exchange(areScreensStale, false);
    const bool haveApplicationsChanged = std::exchange(areApplicationsStale, false);
    const auto before = board.newest();
    if (haveWindowsChanged || haveScreensChanged) post();
    if (haveWindowsChanged || haveApplicationsChanged) workspace.update();
    if (haveScreensChanged) screens.announce();
    if (haveWindowsChanged || haveScreensChanged) windowServer.announce();
    if (haveWindowsChanged) accessibility.announceSince(*before);
    if (haveWindowsChanged) notices.update();
}

void X11Desktop::Parts::post() {
    auto snapshot = std::make_shared<DesktopSnapshot>();
    snapshot->windows = mirror.windows();
    snapshot->screens = screens.screens();
    snapshot->activeWindow = mirror.activeWindow();
    snapshot->currentDesktop = mirror.currentDesktop();
    snapshot->desktopCount = mirror.desktopCount();
    dressing.setDesktop(snapshot);
    board.post(std::move(snapshot));
}

// Updated at once, since the bars are laid out right after; announced later, when that is finished.
void X11Desktop::Parts::setStrip(double height) {
    screens.setStrip(height);
    if (!screens.update()) return;
    areScreensStale = true;
    connection->dispatchSoon();
}

void X11Desktop::Parts::entriesChanged() {
    installed.refresh();
    workspace.announceEntries();
    mirror.findOwnersAgain();
    areApplicationsStale = true;
    connection->dispatchSoon();
}

std::variant<std::unique_ptr<X11Desktop>, std::string> X11Desktop::open(Host host,
                                                                        const char* displayName) {
    auto opened = X11Connection::open(displayName, host.scheduler);
    if (auto* failure = std::get_if<std::string>(&opened)) return std::move(*failure);
    if (!host.report) host.report = [](const std::string&) {};
    auto& connection = std::get<std::unique_ptr<X11Connection>>(opened);
    return std::unique_ptr<X11Desktop>(new X11Desktop(
        std::make_unique<Parts>(std::move(host), displayName, std::move(connection))));
}

X11Desktop::X11Desktop(std::unique_ptr<Parts> parts)
    : parts_(std::move(parts)) {}

X11Desktop::~X11Desktop() = default;

Platform X11Desktop::platform() {
    return {.scheduler = parts_->host.scheduler,
            .defaults = parts_->host.defaults,
            .workspace = parts_->workspace,
            .applications = parts_->applications,
            .screens = parts_->screens,
            .dockStrip = parts_->strip,
            .windowServer = parts_->windowServer,
            .accessibility = parts_->accessibility,
            .screenCapture = parts_->screenCapture,
            .coreDock = parts_->coreDock,
            .dockPreferences = parts_->pinned,
            .statusBar = parts_->statusBar,
            .loginItem = parts_->loginItem,
            .loginItems = parts_->loginItems,
            .application = parts_->host.application,
            .trash = parts_->trash,
            .eventTaps = parts_->eventTaps,
            .eventMonitors = parts_->eventMonitors,
            .displayLink = parts_->displayLink,
            .systemLog = parts_->host.systemLog,
            .notices = parts_->notices};
}

PanelDressing& X11Desktop::panelDressing() {
    return parts_->dressing;
}

DesktopPicture& X11Desktop::desktopPicture() {
    return parts_->picture;
}

} // namespace larkspan::x11
