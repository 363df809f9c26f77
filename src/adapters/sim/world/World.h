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

/// An application on the disk.
struct InstalledApp {
    std::string bundleIdentifier;
    std::string name;
    /// Such as "/Applications/Notes.app".
    std::string path;
    ImageRef icon;
    ActivationPolicy policy = ActivationPolicy::regular;
    /// Seconds from being opened to having finished launching.
    double launchSeconds = 0.4;
    /// Whether it opens a window when it starts, and when it is opened again without one.
    bool opensWindow = true;
    Size windowSize{760, 480};
};

/// An app asks for its user: its tile on the Dock bounces once, or until the app comes forward.
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
    /// The label on its tile; empty for none.
    std::string badge;
    std::optional<AttentionRequest> attention;
    /// Answers no call until it is let go: calls to it end with the messaging time-out.
    bool hung = false;
    /// Answers a request to quit by asking its user, and goes on.
    bool refusesToQuit = false;
    /// Its windows stay when it ends.
    bool leavesWindows = false;
    /// Seconds that each Accessibility call to it takes.
    double answerSeconds = 0;
    /// By how much the frames that it tells through Accessibility are wrong.
    Point frameError;
    /// It dies when it is asked once more than this.
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
    /// Absent for a window that is on every Space.
    std::optional<SpaceId> space;
    /// Where it goes back to when it leaves full screen.
    std::optional<Rect> frameBeforeFullScreen;
    /// The list and Accessibility give its number and its title.
    bool hasNumber = true;
    bool hasName = true;
};

struct Space {
    SpaceId id = 0;
    /// 0 a desktop, 4 a full-screen Space.
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

/// The system Dock as it is set now.
struct DockSettings {
    /// The Dock's own fraction: 0 is 16 pixels, 1 is 128.
    float tileSize = 0.4286F;
    bool autoHide = false;
    OrientationAndPinning place;
    bool magnification = false;
};

/// What goes wrong with the news that the system tells the program.
struct EventFaults {
    bool areLost = false;
    bool areDoubled = false;
    /// Seconds by which they come late; 0 is in the next turn.
    double lateSeconds = 0;
};

/// Everything that is so on the simulated Mac at this moment, and how a change of it is told. What
/// apps, windows, displays and the Dock do stands in the classes named after them.
struct World {
    World();

    VirtualScheduler scheduler;

    /// In their order, the main display first. Never empty unless a fault made it so.
    std::vector<Display> displays;
    bool displaysHaveSeparateSpaces = true;
    /// Points that the menu bar takes at the top of every display.
    double menuBarHeight = 25;

    std::map<std::string, InstalledApp, std::less<>> installed;
    /// In the order of their launch.
    std::vector<App> apps;
    ProcessId frontmost = 0;
    /// Whom the workspace names as the app in front, and how many seconds after it came there.
    ProcessId reportedFrontmost = 0;
    double frontReportSeconds = 0;
    /// Front to back, over all displays and Spaces.
    std::vector<Window> windows;

    DockSettings dock;
    /// The domain "com.apple.dock" as it is stored, and the pinned list the Dock shows.
    PropertyValue::Dictionary dockPreferences;
    std::vector<std::string> pinned;
    /// Points by which the strip differs from what the icon size asks for.
    double stripSurplus = 0;
    /// The Dock keeps its icon size, whatever it is told.
    bool dockRefusesSizes = false;
    /// Seconds from its end until the system has started the Dock again; absent when it does not.
    std::optional<double> dockRestartSeconds = 0.5;

    Privacy privacy;
    bool trustedForAccessibility = true;
    bool mayRecordScreen = true;
    /// What the program was told first about recording the screen it is told until it starts anew.
    bool freezesScreenRecording = false;
    /// The window server, the Trash and the apps themselves tell of changes, as they do on X11.
    bool announcesChanges = false;
    /// Of `privateFunctions`.
    std::set<std::string, std::less<>> missingFunctions;
    EventFaults events;
    /// The displays there will be as soon as the program has looked at those of now.
    std::optional<std::string> displaysAfterRead;
    /// The life of the program.
    KillPoint killPoint;
    /// The function that moves windows to another Space does what it says.
    bool movesWindows = true;
    /// The window server answers when asked for its list.
    bool windowListAnswers = true;
    /// Seconds that a read of the window list takes.
    double windowListSeconds = 0;
    /// Seconds until an app that the program asks to come forward is in front.
    double activationSeconds = 0;
    /// Seconds after which an Accessibility call to a hung app gives up.
    double messagingTimeout = 6;

    std::optional<std::size_t> trashEntries = 0;
    bool trashHoldsDesktopServicesFile = false;
    /// What was asked to be opened, in order.
    std::vector<std::string> opened;
    /// What was shown in the file manager, in order.
    std::vector<std::string> revealed;
    /// What the Dock was told to do, with the app in front at that time.
    std::vector<std::pair<std::string, ProcessId>> dockNotifications;

    /// Where the pointer is, in screen coordinates.
    Point pointer;

    Signal<const WorkspaceEvent&> workspaceEvents;
    Signal<> screensChanged;
    Signal<> windowsChanged;
    Signal<> trashChanged;
    Signal<> noticesChanged;
    Signal<> dockPreferencesChanged;
    Signal<const InputEvent&> inputEvents;
    /// Any change of windows, within the call that makes it; nothing that the program hears.
    Signal<> windowsTouched;

    /// Whether this system has the private function of that name.
    bool has(std::string_view function) const { return !missingFunctions.contains(function); }

    App* app(ProcessId pid);
    const App* app(ProcessId pid) const;
    /// The first running process of that bundle.
    App* appOf(std::string_view bundleIdentifier);
    Window* window(WindowId id);
    const Window* window(WindowId id) const;
    Display* display(DisplayId id);
    /// The display that holds the Space.
    Display* displayOfSpace(SpaceId space);
    /// The display that shows the window's larger part; the main display for one that lies outside.
    /// There must be a display.
    Display& displayOf(const Window& window);

    /// The Space that windows of the display are on now.
    SpaceId shownSpace(const Display& display) const;
    bool isSpaceShown(SpaceId space) const;
    bool isOnScreen(const Window& window) const;

    RunningApplication snapshot(const App& app) const;
    std::vector<Screen> screens() const;
    /// Points of the strip that the Dock keeps free at the bottom of the main display.
    double stripHeight() const;

    // Tell of changes that have been made: in a turn of their own, as the system does.
    void tell(WorkspaceEvent::Kind kind, const App& app);
    void tell(WorkspaceEvent::Kind kind);
    void tell(InputEventType input, std::uint64_t modifierFlags = 0);
    void windowsDidChange();
    void noticesDidChange();
    /// Silent when no screen differs from the last time.
    void screensMayHaveChanged();

    /// Tells news in a turn of its own, unless the world's faults have it otherwise.
    void send(std::function<void()> news);

  private:
    void deliver(std::function<void()> news);

    std::vector<Screen> lastScreens_;
    std::list<Handle> lateNews_;
    bool windowsChangeIsPosted_ = false;
};

} // namespace larkspan::sim
