#pragma once

#include "adapters/sim/SimAccessibility.h"
#include "adapters/sim/SimAppNotices.h"
#include "adapters/sim/SimApplicationControl.h"
#include "adapters/sim/SimCoreDock.h"
#include "adapters/sim/SimDisplayLink.h"
#include "adapters/sim/SimDockPreferences.h"
#include "adapters/sim/SimEventMonitors.h"
#include "adapters/sim/SimEventTaps.h"
#include "adapters/sim/SimHostApplication.h"
#include "adapters/sim/SimLoginItem.h"
#include "adapters/sim/SimLoginItems.h"
#include "adapters/sim/SimScreenCapture.h"
#include "adapters/sim/SimScreens.h"
#include "adapters/sim/SimStatusBar.h"
#include "adapters/sim/SimSystemLog.h"
#include "adapters/sim/SimTrash.h"
#include "adapters/sim/SimUserDefaults.h"
#include "adapters/sim/SimWindowServer.h"
#include "adapters/sim/SimWorkspace.h"
#include "adapters/sim/world/Applications.h"
#include "adapters/sim/world/Displays.h"
#include "adapters/sim/world/DockProcess.h"
#include "adapters/sim/world/PrivateFunctions.h"
#include "adapters/sim/world/Swipes.h"
#include "adapters/sim/world/Windows.h"
#include "adapters/sim/world/World.h"
#include "platform/Platform.h"

#include <string>
#include <string_view>

namespace larkspan::sim {

/// A whole Mac in memory. A person steers it through the methods below; the program sees it through
/// `platform()`. Nothing happens by itself: let time pass through `scheduler`. The system's own
/// processes run from the start: the Dock, then the Finder, which is in front.
class SimMac {
  public:
    explicit SimMac(std::string_view displays = "1440x900");
    SimMac(const SimMac&) = delete;
    SimMac& operator=(const SimMac&) = delete;

    Platform platform();

    // Displays and Spaces.
    DisplayId addDisplay(std::string_view description) { return displays_.add(description); }
    bool setDisplays(std::string_view description) { return displays_.set(description); }
    void unplug(DisplayId display);
    /// As when the lid closes and nothing else is plugged in.
    void unplugAll();
    /// It shows another display's picture, and is no screen of its own.
    void mirror(DisplayId display);
    void endMirroring() { displays_.endMirroring(); }
    /// `index` counts the display's Spaces from 0.
    bool switchSpace(DisplayId display, std::size_t index);
    /// Fingers on the trackpad, from now on; the Space changes a while after they lift.
    void swipe(DisplayId display, const SwipeOptions& options = {}) {
        swipes_.swipe(display, options);
    }
    SpaceId addSpace(DisplayId display) { return displays_.addSpace(display); }
    void removeSpace(SpaceId space);
    /// The display at that place of the row, 0 the main one; 0 when there is none.
    DisplayId displayAt(std::size_t index) const;
    /// The display's Space at that place; 0 when there is none.
    SpaceId spaceAt(DisplayId display, std::size_t index) const;

    // Apps.
    InstalledApp& install(std::string bundleIdentifier, std::string name) {
        return applications_.install(std::move(bundleIdentifier), std::move(name));
    }
    void uninstall(std::string_view bundleIdentifier) { applications_.uninstall(bundleIdentifier); }
    /// By default at once, in front, and without a window.
    ProcessId launch(std::string_view bundleIdentifier, const LaunchOptions& options = {}) {
        return applications_.launch(bundleIdentifier, options);
    }
    bool open(std::string_view path) { return applications_.open(path); }
    void activate(ProcessId pid) { applications_.activate(pid); }
    void hide(ProcessId pid) { applications_.hide(pid); }
    void unhide(ProcessId pid) { applications_.unhide(pid); }
    /// The label on its tile of the Dock; an empty one is none.
    void setBadge(ProcessId pid, std::string text);
    /// Its tile on the Dock bounces: once, or when critical until it comes forward.
    void requestAttention(ProcessId pid, bool isCritical) {
        applications_.requestAttention(pid, isCritical);
    }
    /// Answers whether it went.
    bool quit(ProcessId pid) { return applications_.quit(pid); }
    /// Ends it at once. The system starts the Dock again.
    void kill(ProcessId pid);
    /// The first running process of that bundle; 0 when none runs.
    ProcessId pidOf(std::string_view bundleIdentifier);
    ProcessId frontmost() const { return world_.frontmost; }
    ProcessId finder() { return pidOf(finderIdentifier); }

    // Windows.
    WindowId openWindow(ProcessId pid, const WindowOptions& options = {}) {
        return windows_.open(pid, options);
    }
    /// As many windows of one app, each in the place of its first.
    void openWindows(ProcessId pid, std::size_t count);
    void closeWindow(WindowId window) { windows_.close(window); }
    void minimize(WindowId window) { windows_.setMinimized(window, true); }
    void unminimize(WindowId window) { windows_.setMinimized(window, false); }
    void moveWindow(WindowId window, const Rect& frame) { windows_.setFrame(window, frame); }
    void moveToDisplay(WindowId window, DisplayId display) {
        windows_.moveToDisplay(window, display);
    }
    void moveToSpace(WindowId window, SpaceId space) { windows_.moveToSpace(window, space); }
    void setTitle(WindowId window, std::string title) {
        windows_.setTitle(window, std::move(title));
    }
    void enterFullScreen(WindowId window) { windows_.enterFullScreen(window); }
    void leaveFullScreen(WindowId window);
    /// What a click into the window does: it comes to the front, and its app with it.
    void focusWindow(WindowId window);

    // The pointer and the keyboard; places in screen coordinates.
    void movePointer(Point place);
    /// The left button goes down and up again; nothing in the simulated apps happens of it.
    void click(Point place);
    void pressKey(std::uint64_t modifierFlags = 0);

    // The Dock and the Trash, as the user or another program changes them.
    void pin(std::string_view bundleIdentifier) { dock_.pin(bundleIdentifier); }
    void unpin(std::string_view bundleIdentifier) { dock_.unpin(bundleIdentifier); }
    void setPinned(const std::vector<std::string>& identifiers) { dock_.setPinned(identifiers); }
    /// It is back after `seconds`, now and whenever it ends.
    void restartDock(double seconds = 0.5);
    void setDock(const DockSettings& settings);
    /// Absent: the folder cannot be read.
    void setTrash(std::optional<std::size_t> entries);

    // Faults: what is missing, refused, slow or wrong. Each holds until it is taken back.
    void refuseAccessibility(bool refuse = true) { world_.trustedForAccessibility = !refuse; }
    void refuseScreenRecording(bool refuse = true) { world_.mayRecordScreen = !refuse; }
    /// A grant or a refusal from now on is seen only by the program's next start.
    void freezeScreenRecording();
    /// Of `privateFunctions`; answers false for another name.
    bool removeFunction(std::string_view name);
    void removeAllFunctions();
    void restoreFunctions() { world_.missingFunctions.clear(); }
    void setAnnouncesChanges(bool announces) { world_.announcesChanges = announces; }
    /// The app answers no call until it is let go.
    void hang(ProcessId pid, bool hung = true);
    /// Each Accessibility call to the app takes so long, or ends with the messaging time-out.
    void answerAfter(ProcessId pid, double seconds);
    /// The places of its windows that the app tells through Accessibility are wrong by so much.
    void lieAboutFrames(ProcessId pid, Point by);
    /// The process answers so many Accessibility calls and is gone at the next.
    void dieDuringRead(ProcessId pid, int calls);
    // News from the workspace, the screens and the window server.
    void loseEvents(bool lose = true) { world_.events.areLost = lose; }
    void doubleEvents(bool doubled = true) { world_.events.areDoubled = doubled; }
    void delayEvents(double seconds) { world_.events.lateSeconds = seconds; }
    /// The Dock ends and does not come back until it is started.
    void removeDock();
    void startDock();
    void refuseDockSizes(bool refuse = true) { world_.dockRefusesSizes = refuse; }
    /// Windows stay on their Spaces whatever the window server is told.
    void refuseMoves(bool refuse = true) { world_.movesWindows = !refuse; }
    void refuseLoginItem(bool refuse = true) { loginItem.refuses = refuse; }
    /// The disk is full: settings hold for this process only.
    void refuseToStore(bool refuse = true) { defaults.diskIsFull = refuse; }
    /// The displays are others as soon as the program has looked at those of now. Answers false
    /// when the description cannot be read.
    bool changeDisplaysAfterRead(std::string_view displays);

    /// The program has ended by itself, or was killed before all its settings were stored: of those
    /// it had set last only the first `survivors` are.
    void programEnded() { screenCapture.forget(); }
    void programKilled(std::size_t survivors = 0);
    KillPoint& killPoint() { return world_.killPoint; }

    /// Everything that is so, for tests that look, and for faults without a method of their own.
    World& world() { return world_; }
    const World& world() const { return world_; }

  private:
    World world_;
    Displays displays_{world_};
    Windows windows_{world_, displays_};
    Applications applications_{world_, windows_, displays_};
    DockProcess dock_{world_, applications_};

    SimWorkspace workspace_{world_};
    SimApplicationControl control_{world_, applications_, dock_};
    SimScreens screens_{world_, displays_};
    SimDockStrip strip_;
    SimWindowServer windowServer_{world_, windows_};
    SimDockPreferences dockPreferences_{world_};
    SimAppNotices notices_{world_};
    SimEventMonitors eventMonitors_{world_};

  public:
    // What of the interfaces a test or a scenario looks into.
    VirtualScheduler& scheduler = world_.scheduler;
    SimUserDefaults defaults{world_.killPoint};
    SimAccessibility accessibility{world_, applications_, windows_};
    SimScreenCapture screenCapture{world_};
    SimCoreDock coreDock{world_};
    SimStatusBar statusBar;
    SimLoginItem loginItem;
    SimLoginItems loginItems;
    SimHostApplication application{world_.scheduler};
    SimTrash trash{world_, applications_};
    SimEventTaps eventTaps{world_.scheduler};
    SimDisplayLink displayLink{world_.scheduler};
    SimSystemLog systemLog;

  private:
    void moveSpace(DisplayId display, int step);

    Swipes swipes_{world_.scheduler, eventTaps,
                   [this](DisplayId display, int step) { moveSpace(display, step); }};
};

} // namespace larkspan::sim
