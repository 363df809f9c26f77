#pragma once

#include "diagnostics/DiagnosticsLog.h"
#include "model/Animation.h"
#include "model/BarSlots.h"
#include "model/DisplayGroup.h"
#include "model/DockItem.h"
#include "model/Grouping.h"
#include "model/ItemMaker.h"
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

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace larkspan {

/// The one observable model of everything the bar shows: every bar renders from it, and every click
/// acts through it. `WindowRefresh` keeps it up to date. Main thread only.
class DockStore {
  public:
    DockStore(Scheduler& scheduler, Workspace& workspace, ApplicationControl& applications,
              Screens& screens, DockPreferences& dock, WindowAnimator& animator,
              DiagnosticsLog& log);

    // What the views observe. Only the methods below change it.
    const Observed<std::vector<DockItem>>& pinnedItems() const { return pinnedItems_; }
    const Observed<std::vector<DisplayGroup>>& windowAppGroups() const { return windowAppGroups_; }
    /// Running regular apps that have no window on screen and are not hidden.
    const Observed<std::vector<DockItem>>& backgroundItems() const { return backgroundItems_; }
    const Observed<std::optional<ProcessId>>& frontmostPID() const { return frontmostPID_; }
    /// For each display, the process of the front window.
    const Observed<std::map<DisplayId, ProcessId>>& frontDisplays() const { return frontDisplays_; }
    /// For each display, the shown Space.
    const Observed<std::map<DisplayId, SpaceId>>& frontSpaces() const { return frontSpaces_; }
    /// The text of each app's badge, by item id; an item without a badge has no entry.
    const Observed<std::map<std::string, std::string>>& badges() const { return badges_; }
    /// Ids of apps launched from the bar that have not finished launching.
    const Observed<std::set<std::string>>& launchingIDs() const { return launchingIDs_; }
    /// Ids of apps that request attention.
    const Observed<std::set<std::string>>& attentionIDs() const { return attentionIDs_; }
    const Observed<bool>& isTrashEmpty() const { return isTrashEmpty_; }
    const Observed<bool>& showsEmptyDesktops() const { return showsEmptyDesktops_; }
    /// The tiles of window apps that fly from their pinned tile, with its frame (screen
    /// coordinates), for as long as the flight takes.
    const Observed<std::map<std::string, Rect>>& flyingIn() const { return flyingIn_; }
    /// Ids of apps that have just lost their last place among the window apps.
    const Observed<std::set<std::string>>& leftWindowApps() const { return leftWindowApps_; }

    // State that only the rules read.
    const std::vector<std::string>& pinnedIDs() const { return pinnedIDs_; }
    WindowAnimator& animator() const { return animator_; }
    /// The pointer is over a bar: tiles keep their sections.
    bool isPointerOnBar() const { return isPointerOnBar_; }
    /// Screen frames of the bars that are shown.
    const std::vector<Rect>& barFrames() const { return barFrames_; }
    const FullScreenState& fullScreen() const { return fullScreen_; }
    const std::vector<RunningApplication>& running() const { return running_; }
    const std::set<std::string>& runningIDs() const { return runningIDs_; }
    const std::set<ProcessId>& windowPIDs() const { return windowPIDs_; }
    const std::map<ProcessId, std::set<DisplayId>>& windowDisplays() const {
        return windowDisplays_;
    }
    const std::map<ProcessId, std::set<DisplayId>>& seenDisplays() const { return seenDisplays_; }
    const std::optional<SpaceMap>& spaceMap() const { return spaceMap_; }
    /// The windows that count for their apps, on every Space, front to back.
    const std::vector<WindowInfo>& latestWindows() const { return latestWindows_; }
    const std::map<ProcessId, std::set<Slot>>& windowSlots() const { return windowSlots_; }
    const std::map<ProcessId, std::set<Slot>>& seenSlots() const { return seenSlots_; }
    /// The elements of windows on Spaces not shown, which Accessibility does not list.
    const std::map<WindowId, AXElementRef>& reachedWindows() const { return reachedWindows_; }
    /// Ids of the items that may change their section although the pointer is on the bar.
    const std::set<std::string>& regroupingIDs() const { return regroupingIDs_; }
    /// The displays, in the order their groups were built.
    const std::vector<DisplayId>& groupedScreens() const { return groupedScreens_; }
    /// The uptime, in seconds, of the user's last look at the app: earlier bounces do not count.
    /// Absent if there was none.
    std::optional<double> attentionAcknowledged(const std::string& id) const;
    /// The app's windows in the group; all of them if there is no group. First the windows `listed`
    /// by Accessibility, then the reached ones on Spaces that are not shown; none if the app did
    /// not respond.
    std::vector<AppWindow> windowsOf(ProcessId pid, const DisplayGroup* group,
                                     std::optional<std::vector<AppWindow>> listed) const;
    /// The current state of the running application; absent if it has quit.
    const RunningApplication* runningApplication(ProcessId pid) const;
    /// The item of one pinned bundle identifier; absent if there is no such application.
    std::optional<DockItem> makePinnedItem(const std::string& id);

    /// Called when `fullScreen` has changed.
    std::function<void(const FullScreenState&)> onFullScreenChange;

    // The desktop has changed.

    /// Updates the running regular apps; returns whether anything changed.
    bool refreshRunning();
    void frontAppChanged(std::optional<ProcessId> pid) { frontmostPID_.set(pid); }
    /// Stores a read; returns whether anything that matters for grouping changed.
    bool applyWindowRead(WindowRead read);
    void windowsReached(const std::vector<AppWindow>& windows);
    /// Rebuilds the item lists from the current state; sets only those that differ. Observers find
    /// the spring in `animation`.
    void rebuild(std::optional<Animation> animation = std::nullopt);
    /// The spring of the change that is being announced; absent if it has none.
    const std::optional<Animation>& animation() const { return animation_; }
    void badgesChanged(std::map<std::string, std::string> badges) {
        badges_.set(std::move(badges));
    }
    void attentionChanged(std::set<std::string> ids) { attentionIDs_.set(std::move(ids)); }
    /// The user looks at the app, whose request for attention ends.
    void acknowledgeAttention(const std::string& id);
    void trashChanged(bool isEmpty) { isTrashEmpty_.set(isEmpty); }

    // The user has done something on a bar.

    void barFramesChanged(std::vector<Rect> frames) { barFrames_ = std::move(frames); }
    /// Returns whether this is a change.
    bool pointerOnBarChanged(bool isOnBar);
    /// While the pointer is on the bar, lets the tile of an app that was just asked to show itself
    /// move to its window's group. Ends when the pointer leaves.
    void allowRegroup(const std::string& id);
    /// The app was hidden again: its tile keeps its place.
    void forbidRegroup(const std::string& id) { regroupingIDs_.erase(id); }
    /// The app was asked to launch from its tile, which has that frame on the screen.
    void launchBegan(const DockItem& item, const Rect& tileFrame);
    /// The app did not launch in time: a later window does not belong to this launch.
    void launchFailed(const std::string& id);
    void setShowsEmptyDesktops(bool shows) { showsEmptyDesktops_.set(shows); }

    /// Reads the Dock's own list, unless a change of ours is waiting to be written.
    void reloadPinned();
    /// Rebuilds the pinned tiles when one of their apps was installed, removed or changed.
    void refreshPinned();
    /// Sets the list at once, and writes it to the Dock one second after the last change.
    void setPinned(std::vector<std::string> ids);
    /// Writes a waiting list now, so that nothing is lost when quitting.
    void flushPinned();

  private:
    /// An app that was opened from its pinned tile.
    struct OpenedTile {
        std::string id;
        /// The tile's frame, in screen coordinates.
        Rect from;
    };
    struct Sections {
        std::vector<PlacedItem> windowApps;
        std::vector<DockItem> background;
    };

    void checkThread() const;
    void forgetOpened(const std::string& id);
    void pruneReached();
    void pruneLaunching(const std::set<std::string>& idsBefore);
    void logChanges(const WindowRead& read, bool hasNewLayout);
    Sections splitRunning(const BarSlots& slots);
    void followMoves(const std::vector<DisplayGroup>& groups);
    AppPlaces placesOf(ProcessId pid, std::set<Slot> previous) const;
    std::vector<DockItem> makePinnedItems();
    void pruneIcons();
    const RunningApplication* runningApplication(const std::string& bundleIdentifier) const;

    Scheduler& scheduler_;
    Workspace& workspace_;
    ApplicationControl& applications_;
    Screens& screens_;
    DockPreferences& dock_;
    WindowAnimator& animator_;
    DiagnosticsLog& log_;
    ItemMaker items_;

    Observed<std::vector<DockItem>> pinnedItems_;
    Observed<std::vector<DisplayGroup>> windowAppGroups_;
    Observed<std::vector<DockItem>> backgroundItems_;
    Observed<std::optional<ProcessId>> frontmostPID_;
    Observed<std::map<DisplayId, ProcessId>> frontDisplays_;
    Observed<std::map<DisplayId, SpaceId>> frontSpaces_;
    Observed<std::map<std::string, std::string>> badges_;
    Observed<std::set<std::string>> launchingIDs_;
    Observed<std::set<std::string>> attentionIDs_;
    Observed<bool> isTrashEmpty_{true};
    Observed<bool> showsEmptyDesktops_{false};
    Observed<std::map<std::string, Rect>> flyingIn_;
    Observed<std::set<std::string>> leftWindowApps_;
    std::optional<Animation> animation_;

    std::vector<std::string> pinnedIDs_;
    bool isPointerOnBar_ = false;
    std::vector<Rect> barFrames_;
    FullScreenState fullScreen_;
    std::vector<RunningApplication> running_;
    std::set<std::string> runningIDs_;
    std::set<ProcessId> windowPIDs_;
    std::map<ProcessId, std::set<DisplayId>> windowDisplays_;
    std::map<ProcessId, std::set<DisplayId>> seenDisplays_;
    std::optional<SpaceMap> spaceMap_;
    std::vector<WindowInfo> latestWindows_;
    std::map<ProcessId, std::set<Slot>> windowSlots_;
    std::map<ProcessId, std::set<Slot>> seenSlots_;
    std::map<WindowId, AXElementRef> reachedWindows_;
    std::set<std::string> regroupingIDs_;
    /// Apps that were opened from their pinned tile and have no window yet.
    std::vector<OpenedTile> openedFromPinned_;
    std::vector<DisplayId> groupedScreens_;
    /// By item id. Uptime, since the date may jump.
    std::map<std::string, double> attentionAcknowledged_;
    /// The pending rebuild that moves the allowed tile.
    Handle regroup_;
    /// The wait before the pinned list is written to the Dock.
    Handle pinnedWrite_;
    /// Ends `flyingIn` and `leftWindowApps`.
    Handle movesEnd_;
};

} // namespace larkspan
