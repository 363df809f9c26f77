#pragma once

#include "app/PermissionsModel.h"
#include "bar/BarController.h"
#include "bar/BarOverlay.h"
#include "bar/KeyboardEntry.h"
#include "bar/TileActions.h"
#include "diagnostics/DiagnosticsLog.h"
#include "diagnostics/LostProcesses.h"
#include "dock/DockFitting.h"
#include "model/BadgeRefresh.h"
#include "model/DockStore.h"
#include "model/IconClick.h"
#include "model/ItemActions.h"
#include "model/ItemMenu.h"
#include "model/WindowAnimator.h"
#include "model/WindowRefresh.h"
#include "platform/Platform.h"
#include "settings/BarLook.h"
#include "settings/BarSettings.h"
#include "spaces/AppWindow.h"
#include "spaces/FullScreenWatcher.h"
#include "spaces/PointerWatcher.h"
#include "spaces/SpacePoll.h"
#include "spaces/SpaceSlide.h"
#include "spaces/SpaceSwitchLog.h"
#include "spaces/SwipeListener.h"
#include "spaces/WindowMover.h"
#include "tools/trash/TrashWatch.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace larkspan {

/// The root of the program: creates every long-lived object, connects their callbacks, and chooses
/// between the two modes, the bar or the system Dock. Main thread only.
class AppController {
  public:
    /// Creates the views' side of the bars; called once, when the first bars are needed.
    using MakeBarPanels = std::function<std::unique_ptr<BarPanels>(AppController&)>;

    /// Nothing is shown before `start`. `hasIslands` as in `settingsTable`.
    AppController(const Platform& platform, MakeBarPanels makeBarPanels, bool hasIslands = true);
    AppController(const AppController&) = delete;
    AppController& operator=(const AppController&) = delete;

    /// Applies the stored mode and asks for missing permissions. Call it once, when launching has
    /// finished.
    void start();
    /// Restores the system's settings. Call it when the program is about to quit.
    void stop();

    /// Switches to the bar, or places it again.
    void useVantrel();
    /// Hides the bar and restores the Dock.
    void useSystemDock();

    BarMode mode() const { return mode_; }
    /// Points; absent while the system Dock is in use.
    std::optional<double> barHeight() const;
    /// Stores the height, or without one resets it to the default; the bars and the strip follow at
    /// once.
    void setBarHeight(std::optional<double> height);

    /// The current value. For settings that the bars watch, it is the shown one.
    SettingValue settingInEffect(const Setting& setting) const;
    /// Stores the value; everything that shows the setting follows at once.
    void changeSetting(const Setting& setting, const SettingValue& value);

    /// Whether windows can be moved between Spaces, as far as is known.
    bool canMoveWindows() const { return mover_.canMove(); }
    /// Like `WindowMover::move`; the bars follow at once.
    void moveWindow(WindowId window, SpaceId space, WindowMover::Done done);

    /// Moves the keyboard focus to the bar of the display in use; false if no bar is shown.
    bool focusBar();

    bool opensAtLogin() const;
    /// Toggles opening the program at login; if the system refuses, shows its settings instead.
    void toggleLoginItem();
    /// Quits the program; the desktop calls `stop` before it ends.
    void quit();

    /// Whether there is a system Dock, which is used when the bar is hidden.
    bool hasSystemDock() const;
    /// Why the bar's height cannot be chosen; absent if it can.
    std::optional<std::string> heightRefusalReason() const;
    /// The permissions that the system grants now.
    bool isAccessibilityTrusted() const;
    bool canCaptureScreen() const;
    /// The app's windows as Accessibility lists them; absent if it did not respond within that many
    /// seconds.
    std::optional<std::vector<AppWindow>> listedWindows(ProcessId pid, float patience) const;
    std::vector<Screen> screens() const;
    /// The program and the system it runs on, in one line.
    std::string description() const;

    DiagnosticsLog& log() { return log_; }
    const DiagnosticsLog& log() const { return log_; }
    BarLook& look() { return look_; }
    BarSettings& settings() { return settings_; }
    const BarSettings& settings() const { return settings_; }
    PermissionsModel& permissions() { return permissions_; }
    DockStore& store() { return store_; }
    const DockStore& store() const { return store_; }
    const LostProcesses& lostProcesses() const { return lostProcesses_; }
    WindowRefresh& refresh() { return refresh_; }
    ItemActions& actions() { return actions_; }
    TileActions& tileActions() { return tileActions_; }
    SpaceSlide& slide() { return slide_; }
    // nullptr before the first bars are needed.
    const BarController* bars() const { return bars_.get(); }
    BarOverlay* overlay() { return overlay_.get(); }

  private:
    double wantedBarHeight() const;
    void followBarHeight();
    void wireCallbacks();
    void followSpaceSwitches();
    void pollSpaces();
    std::string displayInUse() const;
    std::vector<BarState> barStates() const;
    void shrinkDock();
    void giveDockBack();
    void startFitting();
    void showStatusItem();
    BarController& makeBars();

    Platform platform_;
    MakeBarPanels makeBarPanels_;
    DiagnosticsLog log_;
    LostProcesses lostProcesses_;
    SpaceSwitchLog switchLog_;
    BarSettings settings_;
    PermissionsModel permissions_;
    BarLook look_;
    PointerWatcher pointer_;
    FullScreenWatcher fullScreenWatcher_;
    BarMode mode_;
    WindowFlights flights_;
    WindowAnimator animator_;
    DockStore store_;
    WindowRefresh refresh_;
    TrashWatch trashWatch_;
    WindowMover mover_;
    ItemActions actions_;
    IconClick click_;
    ItemMenu itemMenu_;
    TileActions tileActions_;
    std::unique_ptr<BarPanels> barPanels_;
    std::unique_ptr<BarOverlay> overlay_;
    std::unique_ptr<BarController> bars_;
    std::unique_ptr<KeyboardEntry> keyboardEntry_;
    /// Present only while the system Dock is in use.
    Handle statusItem_;
    /// Only while the bar is in use: with the Dock, its own badges are visible.
    std::optional<BadgeRefresh> badges_;
    std::unique_ptr<DockFitting> fitting_;
    SpaceSlide slide_;
    SwipeListener swipes_;
    /// Only if the desktop does not announce changes and somebody reads the log.
    std::unique_ptr<SpacePoll> poll_;
    std::vector<Handle> stamps_;
};

} // namespace larkspan
