#pragma once

#include "app/PermissionsModel.h"
#include "bar/BarController.h"
#include "bar/KeyboardEntry.h"
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

/// The root of the program: builds every long-lived object, wires their callbacks and chooses
/// between the two modes, the bar or the system Dock. Main thread only.
class AppController {
  public:
    /// Makes the views' side of the bars; called once, when the first bars are needed.
    using MakeBarPanels = std::function<std::unique_ptr<BarPanels>(AppController&)>;

    /// Nothing shows before `start`. `hasIslands` as `settingsTable` takes it.
    AppController(const Platform& platform, MakeBarPanels makeBarPanels, bool hasIslands = true);
    AppController(const AppController&) = delete;
    AppController& operator=(const AppController&) = delete;

    /// Applies the stored mode and asks for missing permissions. Once, when launching has finished.
    void start();
    /// Puts everything of the system's back as the user had it. When the program is about to end.
    void stop();

    /// Switches to the bar, or puts it in place anew.
    void useVantrel();
    /// Puts the bar away and gives the Dock back as it was.
    void useSystemDock();

    BarMode mode() const { return mode_; }
    /// Points; absent while the system Dock is in use.
    std::optional<double> barHeight() const;
    /// Stores the height, or with none goes back to the height of the system; the bars and the
    /// strip follow at once.
    void setBarHeight(std::optional<double> height);

    /// The value in effect. Of the settings that the bars watch, this is what they show.
    SettingValue settingInEffect(const Setting& setting) const;
    /// Stores the value; everything that shows the setting follows at once.
    void changeSetting(const Setting& setting, const SettingValue& value);

    /// Whether windows can be moved between Spaces, as far as is known.
    bool canMoveWindows() const { return mover_.canMove(); }
    /// As `WindowMover::move`; the bars follow at once.
    void moveWindow(WindowId window, SpaceId space, WindowMover::Done done);

    /// Brings the keyboard onto the bar of the display in use; false when no bar is shown.
    bool focusBar();

    bool opensAtLogin() const;
    /// Opens the program at login, or no longer does; where the system refuses, its own settings
    /// are shown instead.
    void toggleLoginItem();
    /// Ends the program; the desktop calls `stop` on the way.
    void quit();

    /// There is a system Dock, which takes the bar's place when the bar goes.
    bool hasSystemDock() const;
    /// Why the bar's height cannot be chosen; absent when it can.
    std::optional<std::string> heightRefusalReason() const;
    /// The permissions as the system grants them now.
    bool isAccessibilityTrusted() const;
    bool canCaptureScreen() const;
    /// The app's windows as Accessibility lists them; absent when it did not answer within that
    /// many seconds.
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
    IconClick& click() { return click_; }
    ItemMenu& itemMenu() { return itemMenu_; }
    SpaceSlide& slide() { return slide_; }
    TrashFolder& trash() { return platform_.trash; }
    /// Nullptr before the first bars were needed.
    const BarController* bars() const { return bars_.get(); }

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
    std::unique_ptr<BarPanels> barPanels_;
    std::unique_ptr<BarController> bars_;
    std::unique_ptr<KeyboardEntry> keyboardEntry_;
    /// Present only while the system Dock is in use.
    Handle statusItem_;
    /// Only while the bar is in use: who sees the Dock sees its badges there.
    std::optional<BadgeRefresh> badges_;
    std::unique_ptr<DockFitting> fitting_;
    SpaceSlide slide_;
    SwipeListener swipes_;
    /// Only where the desktop does not tell of changes by itself, and somebody keeps the log.
    std::unique_ptr<SpacePoll> poll_;
    std::vector<Handle> stamps_;
};

} // namespace larkspan
