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

/// A whole Mac in memory. Tests and scenarios control it through the methods below; the program
/// sees it through `platform()`. Nothing happens by itself: let time pass through `scheduler`. The
/// system's own processes run from the start: the Dock, then the Finder, which is in front.
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
    /// As when the lid closes and no other display is plugged in.
    void unplugAll();
    /// It mirrors another display, and is not a separate screen any more.
    void mirror(DisplayId display);
    void endMirroring() { displays_.endMirroring(); }
    /// `index` counts the display's Spaces from 0.
    bool switchSpace(DisplayId display, std::size_t index);
    /// Swipes on the trackpad, starting now; the Space changes a while after the fingers lift.
    void swipe(DisplayId display, const SwipeOptions& options = {}) {
        swipes_.swipe(display, options);
    }
    SpaceId addSpace(DisplayId display) { return displays_.addSpace(display); }
    void removeSpace(SpaceId space);
    /// The display with that index, 0 being the main one; returns 0 if there is none.
    DisplayId displayAt(std::size_t index) const;
    /// The display's Space with that index; 0 if there is none.
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
    /// Sets the label on its tile of the Dock; an empty text removes it.
    void setBadge(ProcessId pid, std::string text);
    /// Lets its tile on the Dock bounce: once, or if critical until the app comes forward.
    void requestAttention(ProcessId pid, bool isCritical) {
        applications_.requestAttention(pid, isCritical);
    }
    /// Returns whether it quit.
    bool quit(ProcessId pid) { return applications_.quit(pid); }
    /// Ends it at once. If it is the Dock, the system starts it again.
    void kill(ProcessId pid);
    /// The first running process of that bundle; 0 if none runs.
    ProcessId pidOf(std::string_view bundleIdentifier);
    ProcessId frontmost() const { return world_.frontmost; }
    ProcessId finder() { return pidOf(finderIdentifier); }

    // Windows.
    WindowId openWindow(ProcessId pid, const WindowOptions& options = {}) {
        return windows_.open(pid, options);
    }
    /// Opens that many windows of one app, each at the position of its first one.
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
    /// The effect of a click into the window: it and its app come to the front.
    void focusWindow(WindowId window);

    // The pointer and the keyboard; positions are in screen coordinates.
    void movePointer(Point place);
    /// Presses and releases the left button; the simulated apps ignore it.
    void click(Point place);
    void pressKey(std::uint64_t modifierFlags = 0);

    // The Dock and the Trash, as the user or another program changes them.
    void pin(std::string_view bundleIdentifier) { dock_.pin(bundleIdentifier); }
    void unpin(std::string_view bundleIdentifier) { dock_.unpin(bundleIdentifier); }
    void setPinned(const std::vector<std::string>& identifiers) { dock_.setPinned(identifiers); }
    /// It is back after `seconds`, now and each further time that it quits.
    void restartDock(double seconds = 0.5);
    void setDock(const DockSettings& settings);
    /// Absent: the folder cannot be read.
    void setTrash(std::optional<std::size_t> entries);

    // Faults: what is missing, refused, slow or wrong. Each lasts until it is undone.
    void refuseAccessibility(bool refuse = true) { world_.trustedForAccessibility = !refuse; }
    void refuseScreenRecording(bool refuse = true) { world_.mayRecordScreen = !refuse; }
    /// Later changes of the permission take effect only at the program's next start.
    void freezeScreenRecording();
    /// One of `privateFunctions`; returns false for another name.
    bool removeFunction(std::string_view name);
    void removeAllFunctions();
    void restoreFunctions() { world_.missingFunctions.clear(); }
    void setAnnouncesChanges(bool announces) { world_.announcesChanges = announces; }
    /// The app does not respond until this is undone.
    void hang(ProcessId pid, bool hung = true);
    /// Each Accessibility call to the app takes that long, or times out.
    void answerAfter(ProcessId pid, double seconds);
    /// The window positions that the app reports through Accessibility are wrong by that much.
    void lieAboutFrames(ProcessId pid, Point by);
    /// The process handles that many Accessibility calls and is dead at the next one.
    void dieDuringRead(ProcessId pid, int calls);
    // Notifications from the workspace, the screens and the window server.
    void loseEvents(bool lose = true) { world_.events.areLost = lose; }
    void doubleEvents(bool doubled = true) { world_.events.areDoubled = doubled; }
    void delayEvents(double seconds) { world_.events.lateSeconds = seconds; }
    /// The Dock quits and is not restarted until `startDock` is called.
    void removeDock();
    void startDock();
    void refuseDockSizes(bool refuse = true) { world_.dockRefusesSizes = refuse; }
    /// The window server ignores requests to move windows to other Spaces.
    void refuseMoves(bool refuse = true) { world_.movesWindows = !refuse; }
    void refuseLoginItem(bool refuse = true) { loginItem.refuses = refuse; }
    /// The disk is full: changed settings are kept only in this process.
    void refuseToStore(bool refuse = true) { defaults.diskIsFull = refuse; }
    /// The displays change as soon as the program has read the current ones. Returns false if the
    /// description is invalid.
    bool changeDisplaysAfterRead(std::string_view displays);

    /// The program has quit, or was killed before all its settings were stored: of the unstored
    /// changes, only the first `survivors` are kept.
    void programEnded() { screenCapture.forget(); }
    void programKilled(std::size_t survivors = 0);
    KillPoint& killPoint() { return world_.killPoint; }

    /// The whole state, for tests that inspect it, and for faults without their own method.
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
    // The parts of the interfaces that tests and scenarios inspect.
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
