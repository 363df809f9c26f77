#pragma once

#include "adapters/sim/VirtualScheduler.h"
#include "adapters/sim/world/KillPoint.h"
#include "adapters/sim/world/Privacy.h"
#include "platform/CoreDock.h"
#include "platform/EventMonitor.h"
#include "platform/Geometry.h"
#include "platform/Identifiers.h"
#include "platform/Image.h"
#include "platform/PropertyValue.h"
#include "platform/Screens.h"
#include "platform/Signal.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"

#include <list>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan::sim {

/// An installed application.
struct InstalledApp {
    std::string bundleIdentifier;
    std::string name;
    /// Such as "/Applications/Notes.app".
    std::string path;
    ImageRef icon;
    ActivationPolicy policy = ActivationPolicy::regular;
    /// Seconds until it has finished launching.
    double launchSeconds = 0.4;
    /// Whether it opens a window when it starts, and when it is opened again without one.
    bool opensWindow = true;
    Size windowSize{760, 480};
};

/// An app wants attention: its tile on the Dock bounces once, or until the app comes forward.
struct AttentionRequest {
    bool isCritical = false;
    /// Uptime, in seconds.
    double since = 0;
};

/// A running process.
struct App {
    ProcessId pid = 0;
    std::optional<std::string> bundleIdentifier;
    std::optional<std::string> path;
    std::string name;
    ImageRef icon;
    ActivationPolicy policy = ActivationPolicy::regular;
    bool finishedLaunching = true;
    bool hidden = false;
    /// The label on its tile; empty if there is none.
    std::string badge;
    std::optional<AttentionRequest> attention;
    /// It does not respond: calls to it time out.
    bool hung = false;
    /// When it is asked to quit, it asks its user and keeps running.
    bool refusesToQuit = false;
    /// Whether its windows stay when it ends.
    bool leavesWindows = false;
    /// Seconds that each Accessibility call to it takes.
    double answerSeconds = 0;
    /// The error of the window positions that it reports through Accessibility.
    Point frameError;
    /// It dies when it has handled this many more calls.
    std::optional<int> callsUntilDeath;
};

struct Window {
    WindowId id = 0;
    ProcessId pid = 0;
    /// Display coordinates (y downwards).
    Rect frame;
    std::string title;
    std::string subrole = "AXStandardWindow";
    int layer = 0;
    std::optional<double> alpha = 1.0;
    bool minimized = false;
    /// Absent for a window on all Spaces.
    std::optional<SpaceId> space;
    /// The frame it returns to when it leaves full screen.
    std::optional<Rect> frameBeforeFullScreen;
    /// Whether the window list and Accessibility report its number and its title.
    bool hasNumber = true;
    bool hasName = true;
};

struct Space {
    SpaceId id = 0;
    /// 0 for a desktop, 4 for a full-screen Space.
    int type = 0;
    std::string uuid;
};

struct Display {
    DisplayId id = 0;
    std::string identifier;
    /// Display coordinates; the main display's origin is 0, 0.
    Rect bounds;
    double scale = 1;
    std::vector<Space> spaces;
    std::size_t current = 0;

    const Space& shown() const { return spaces[current]; }
};

/// The current settings of the system Dock.
struct DockSettings {
    /// The Dock's own unit: 0 is 16 pixels, 1 is 128.
    float tileSize = 0.4286F;
    bool autoHide = false;
    OrientationAndPinning place;
    bool magnification = false;
};

/// Faults of the notifications that the system sends to the program.
struct EventFaults {
    bool areLost = false;
    bool areDoubled = false;
    /// Seconds by which they are late; 0 means in the next turn.
    double lateSeconds = 0;
};

/// The whole state of the simulated Mac, and how its changes are announced. The behaviour of apps,
/// windows, displays and the Dock is in the classes named after them.
struct World {
    World();

    VirtualScheduler scheduler;

    /// In order, the main display first. Empty only because of a fault.
    std::vector<Display> displays;
    bool displaysHaveSeparateSpaces = true;
    /// The height of the menu bar at the top of every display, in points.
    double menuBarHeight = 25;

    std::map<std::string, InstalledApp, std::less<>> installed;
    /// In launch order.
    std::vector<App> apps;
    ProcessId frontmost = 0;
    /// The app that the workspace reports as frontmost, and how many seconds late.
    ProcessId reportedFrontmost = 0;
    double frontReportSeconds = 0;
    /// Front to back, on all displays and Spaces.
    std::vector<Window> windows;

    DockSettings dock;
    /// The stored domain "com.apple.dock", and the pinned list that the Dock shows.
    PropertyValue::Dictionary dockPreferences;
    std::vector<std::string> pinned;
    /// By how many points the strip is higher than its icons need.
    double stripSurplus = 0;
    /// Whether the Dock ignores changes of its icon size.
    bool dockRefusesSizes = false;
    /// Seconds until the system restarts the Dock after it ended; absent if it does not.
    std::optional<double> dockRestartSeconds = 0.5;

    Privacy privacy;
    bool trustedForAccessibility = true;
    bool mayRecordScreen = true;
    /// Whether the first value of the Screen Recording permission is kept until the program starts
    /// again.
    bool freezesScreenRecording = false;
    /// Whether the window server, the Trash and the apps announce changes, as on X11.
    bool announcesChanges = false;
    /// Of `privateFunctions`.
    std::set<std::string, std::less<>> missingFunctions;
    EventFaults events;
    /// The displays after the program has read the current ones.
    std::optional<std::string> displaysAfterRead;
    /// Whether the program is alive.
    KillPoint killPoint;
    /// Whether the function that moves windows to another Space works.
    bool movesWindows = true;
    /// Whether the window server returns its list.
    bool windowListAnswers = true;
    /// Seconds that a read of the window list takes.
    double windowListSeconds = 0;
    /// Seconds until an app is in front after the program asked it to come forward.
    double activationSeconds = 0;
    /// Seconds after which an Accessibility call to a hung app times out.
    double messagingTimeout = 6;

    std::optional<std::size_t> trashEntries = 0;
    bool trashHoldsDesktopServicesFile = false;
    /// What was opened, in order.
    std::vector<std::string> opened;
    /// What was shown in the file manager, in order.
    std::vector<std::string> revealed;
    /// The notifications sent to the Dock, with the frontmost app at that time.
    std::vector<std::pair<std::string, ProcessId>> dockNotifications;

    /// The position of the pointer, in screen coordinates.
    Point pointer;

    Signal<const WorkspaceEvent&> workspaceEvents;
    Signal<> screensChanged;
    Signal<> windowsChanged;
    Signal<> trashChanged;
    Signal<> noticesChanged;
    Signal<> dockPreferencesChanged;
    Signal<const InputEvent&> inputEvents;
    /// Any change of windows, within the call that makes it; not visible to the program.
    Signal<> windowsTouched;

    /// Whether this system has the private function with that name.
    bool has(std::string_view function) const { return !missingFunctions.contains(function); }

    App* app(ProcessId pid);
    const App* app(ProcessId pid) const;
    /// The first running process of that bundle.
    App* appOf(std::string_view bundleIdentifier);
    Window* window(WindowId id);
    const Window* window(WindowId id) const;
    Display* display(DisplayId id);
    /// The display that has the Space.
    Display* displayOfSpace(SpaceId space);
    /// The display that shows the larger part of the window; the main display if the window is on
    /// none. There must be a display.
    Display& displayOf(const Window& window);

    /// The Space on which windows of the display are now.
    SpaceId shownSpace(const Display& display) const;
    bool isSpaceShown(SpaceId space) const;
    bool isOnScreen(const Window& window) const;

    RunningApplication snapshot(const App& app) const;
    std::vector<Screen> screens() const;
    /// The height of the strip that the Dock reserves at the bottom of the main display, in points.
    double stripHeight() const;

    // Announce changes that have been made: in a separate turn, as the system does.
    void announce(WorkspaceEvent::Kind kind, const App& app);
    void announce(WorkspaceEvent::Kind kind);
    void announce(InputEventType input, std::uint64_t modifierFlags = 0);
    void windowsDidChange();
    void noticesDidChange();
    /// No effect if no screen has changed since the last time.
    void screensMayHaveChanged();

    /// Sends a notification in a separate turn, subject to `events`.
    void send(std::function<void()> notification);

  private:
    void deliver(std::function<void()> notification);

    std::vector<Screen> lastScreens_;
    std::list<Handle> lateNotifications_;
    bool windowsChangeIsPosted_ = false;
};

} // namespace larkspan::sim
