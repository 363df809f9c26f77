#pragma once

#include "diagnostics/DiagnosticsLog.h"
#include "model/BarSlots.h"
#include "model/DisplayGroup.h"
#include "model/DockItem.h"
#include "model/Grouping.h"
#include "model/WindowAnimator.h"
#include "platform/ApplicationControl.h"
#include "platform/DockPreferences.h"
#include "platform/Observed.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"
#include "spaces/AppWindow.h"
#include "spaces/FullScreenState.h"
#include "spaces/SpaceMap.h"
#include "spaces/WindowInfo.h"
#include "spaces/WindowReader.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace larkspan {

/// An app that was opened from its pinned tile.
struct OpenedTile {
    std::string id;
    /// The tile's frame, in screen coordinates.
    Rect from;
    bool operator==(const OpenedTile&) const = default;
};

/// The one observable model of everything the bar shows: every bar renders from it and every click
/// acts through it. `WindowRefresh` keeps it in step with the desktop. Main thread only.
class DockStore {
  public:
    DockStore(Scheduler& scheduler, Workspace& workspace, ApplicationControl& applications,
              Screens& screens, DockPreferences& dock, WindowAnimator& animator,
              DiagnosticsLog& log);

    // What the views observe.
    Observed<std::vector<DockItem>> pinnedItems;
    Observed<std::vector<DisplayGroup>> windowAppGroups;
    /// Running regular apps that have no window on screen and are not hidden.
    Observed<std::vector<DockItem>> backgroundItems;
    Observed<std::optional<ProcessId>> frontmostPID;
    /// Per display, the process whose window is in front there.
    Observed<std::map<DisplayId, ProcessId>> frontDisplays;
    /// Per display, the Space shown there.
    Observed<std::map<DisplayId, SpaceId>> frontSpaces;
    /// What the system Dock says on an app's tile, by the id of the item; items without have none.
    Observed<std::map<std::string, std::string>> badges;
    /// Ids of apps launched from the bar that have not finished launching.
    Observed<std::set<std::string>> launchingIDs;
    /// Ids of apps that request attention.
    Observed<std::set<std::string>> attentionIDs;
    Observed<bool> isTrashEmpty{true};
    Observed<bool> showsEmptyDesktops{false};

    // Plain bookkeeping, read by the rules and by `WindowRefresh`.
    std::vector<std::string> pinnedIDs;
    WindowAnimator& animator;
    /// The pointer is over a bar: tiles keep their sections meanwhile.
    bool isPointerOnBar = false;
    /// Screen frames of all bars.
    std::vector<Rect> barFrames;
    std::function<void(const FullScreenState&)> onFullScreenChange;
    FullScreenState fullScreen;
    std::vector<RunningApplication> running;
    std::vector<ProcessId> runningPIDs;
    std::set<std::string> runningIDs;
    std::set<ProcessId> windowPIDs;
    std::map<ProcessId, std::set<DisplayId>> windowDisplays;
    std::map<ProcessId, std::set<DisplayId>> seenDisplays;
    std::optional<SpaceMap> spaceMap;
    /// The windows that count for their apps, on every Space, front to back.
    std::vector<WindowInfo> latestWindows;
    std::map<ProcessId, std::set<Slot>> windowSlots;
    std::map<ProcessId, std::set<Slot>> seenSlots;
    /// The elements of windows on Spaces not shown, which Accessibility does not list.
    std::map<WindowId, AXElementRef> reachedWindows;
    /// Apps whose windows are being reached now.
    std::set<ProcessId> reachingWindows;
    /// Ids of the items that may move between sections although the pointer is on the bar: those of
    /// apps that were brought forward from it. Emptied when the pointer leaves.
    std::set<std::string> regroupingIDs;
    /// Apps that were opened from their pinned tile and have no window yet.
    std::vector<OpenedTile> openedFromPinned;
    /// The tiles of window apps that come from their pinned tile, and its frame (screen
    /// coordinates). For as long as such a flight takes.
    Observed<std::map<std::string, Rect>> flyingIn;
    /// Ids of apps that have just lost their last place among the window apps.
    Observed<std::set<std::string>> leftWindowApps;
    std::vector<DisplayId> groupedScreens;
    /// When an app was last known to have its user's eye: what it did up to then asks for nothing.
    /// Uptime, in seconds: the date may jump. By item id.
    std::map<std::string, double> bouncesSeen;
    bool isReadingBounces = false;

    /// Takes over the regular apps that run now; answers whether that changed anything.
    bool refreshRunning();
    /// Makes the item lists anew from what is known; sets only those that differ.
    void rebuild();
    /// Stores a read; answers whether anything that matters for grouping changed.
    bool applyWindowRead(WindowRead read);
    /// The item of one pinned bundle identifier; absent when no such application is to be found.
    std::optional<DockItem> makePinnedItem(const std::string& id);

    /// The user has come to the app, which asks for attention no more.
    void seeBounces(const std::string& id);
    /// It did not open a window in time, or it quit: a later window has nothing to do with the
    /// tile.
    void forgetOpened(const std::string& id);

    /// Those of the app's windows that the group stands for; all of them when there is no group.
    /// First the windows `listed` by Accessibility, then the reached ones of Spaces not shown; none
    /// when the app did not answer.
    std::vector<AppWindow> windowsOf(ProcessId pid, const DisplayGroup* group,
                                     std::optional<std::vector<AppWindow>> listed) const;
    /// The running application as it is now; absent when it has quit.
    const RunningApplication* runningApplication(ProcessId pid) const;

    /// Follows the Dock's own list, unless a change of ours waits to be written.
    void reloadPinned();
    /// Makes the pinned tiles anew when an app of theirs went from the disk, came back or changed.
    void refreshPinned();
    /// Takes the list at once and writes it to the Dock one second after the last change.
    void setPinned(std::vector<std::string> ids);
    /// Writes a waiting list now, so that nothing is lost on quit.
    void flushPinned();

  private:
    struct Sections {
        std::vector<PlacedItem> windowApps;
        std::vector<DockItem> background;
    };

    void checkThread() const;
    void pruneReached();
    void pruneLaunching(const std::set<std::string>& idsBefore);
    void logChanges(const WindowRead& read, bool hasNewLayout);
    Sections splitRunning(const BarSlots& slots);
    void followMoves(const std::vector<DisplayGroup>& groups);
    AppPlaces placesOf(ProcessId pid, std::set<Slot> previous) const;
    std::vector<DockItem> makePinnedItems();
    DockItem makeItem(std::string id, const RunningApplication* app,
                      std::optional<std::string> url);
    ImageRef icon(const std::string& id, const std::optional<std::string>& url,
                  const RunningApplication* app);
    void pruneIcons();
    const RunningApplication* runningApplication(const std::string& bundleIdentifier) const;
    std::optional<std::string> urlOf(const RunningApplication& app) const;

    Scheduler& scheduler_;
    Workspace& workspace_;
    ApplicationControl& applications_;
    Screens& screens_;
    DockPreferences& dock_;
    DiagnosticsLog& log_;
    std::map<std::string, ImageRef> icons_;
    /// The wait before the pinned list is written to the Dock.
    Handle pinnedWrite_;
    /// Ends `flyingIn` and `leftWindowApps`.
    Handle movesEnd_;
};

} // namespace larkspan
