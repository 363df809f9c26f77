#include "adapters/sim/SimDesktopWorld.h"
#include "platform/CoreDock.h"
#include "platform/DockPreferences.h"
#include "platform/LoginItem.h"
#include "platform/ScreenCapture.h"
#include "platform/StatusBar.h"
#include "platform/TrashFolder.h"
#include "platform/contract/AXObserverContract.h"
#include "platform/contract/AccessibilityContract.h"
#include "platform/contract/CoreDockContract.h"
#include "platform/contract/DockPreferencesContract.h"
#include "platform/contract/EventMonitorsContract.h"
#include "platform/contract/SchedulerContract.h"
#include "platform/contract/ScreenCaptureContract.h"
#include "platform/contract/ScreensContract.h"
#include "platform/contract/ShellContract.h"
#include "platform/contract/StatusBarContract.h"
#include "platform/contract/UserDefaultsContract.h"
#include "platform/contract/WindowServerContract.h"
#include "platform/contract/WorkspaceContract.h"

// The simulated Mac fulfils the same contracts as the adapters of real desktops.

namespace larkspan::contract {
namespace {

class VirtualSchedulerWorld : public SchedulerWorld {
  public:
    Scheduler& scheduler() override { return scheduler_; }
    bool runUntil(const std::function<bool()>& condition) override {
        for (int milliseconds = 0; milliseconds < 10'000 && !condition(); ++milliseconds)
            scheduler_.runFor(0.001);
        return condition();
    }

  private:
    sim::VirtualScheduler scheduler_;
};

class SimUserDefaultsWorld : public UserDefaultsWorld {
  public:
    UserDefaults& defaults() override { return defaults_; }
    void killAndRestart() override { defaults_.loseUnsynchronized(); }
    void breakStorage() override { defaults_.diskIsFull = true; }

  private:
    sim::KillPoint killPoint_;
    sim::SimUserDefaults defaults_{killPoint_};
};

class SimDockPreferencesWorld : public DockPreferencesWorld {
  public:
    SimDockPreferencesWorld() { mac_.setAnnouncesChanges(true); }
    DockPreferences& preferences() override { return mac_.platform().dockPreferences; }
    std::optional<PropertyValue> readElsewhere(const std::string& key) override {
        const auto found = mac_.world().dockPreferences.find(key);
        if (found == mac_.world().dockPreferences.end()) return std::nullopt;
        return found->second;
    }
    void writeElsewhere(const std::string& key, const PropertyValue& value) override {
        mac_.world().dockPreferences[key] = value;
        mac_.scheduler.post([this] { mac_.world().dockPreferencesChanged.emit(); });
    }
    bool runUntil(const std::function<bool()>& condition) override {
        mac_.scheduler.runUntilIdle();
        return condition();
    }

  private:
    sim::SimMac mac_;
};

class SimTrashWorld : public TrashWorld {
  public:
    SimTrashWorld() { mac_.setAnnouncesChanges(true); }
    TrashFolder& trash() override { return mac_.trash; }
    void throwAway(const std::string& name) override {
        if (name == ".DS_Store") mac_.world().trashHoldsDesktopServicesFile = true;
        mac_.setTrash(mac_.world().trashEntries.value_or(0) + 1);
    }
    void empty() override {
        mac_.world().trashHoldsDesktopServicesFile = false;
        mac_.setTrash(0);
    }
    void makeUnreadable() override { mac_.setTrash(std::nullopt); }
    std::size_t opened() override { return mac_.world().opened.size(); }
    bool runUntil(const std::function<bool()>& condition) override {
        mac_.scheduler.runUntilIdle();
        return condition();
    }

  private:
    sim::SimMac mac_;
};

class SimLoginItemWorld : public LoginItemWorld {
  public:
    LoginItem& item() override { return item_; }
    void switchOff() override { item_.current = LoginItem::Status::requiresApproval; }
    void refuse() override { item_.refuses = true; }

  private:
    sim::SimLoginItem item_;
};

class SimCoreDockWorld : public CoreDockWorld {
  public:
    CoreDock& dock() override { return mac_.coreDock; }
    bool hasDock() override { return true; }

  private:
    sim::SimMac mac_;
};

class SimStatusBarWorld : public StatusBarWorld {
  public:
    StatusBar& statusBar() override { return bar_; }
    std::vector<std::string> shown() override {
        std::vector<std::string> shown;
        for (const auto& item : bar_.items())
            shown.push_back(item.accessibilityDescription);
        return shown;
    }
    bool choose(const std::string& title) override { return bar_.choose(title); }
    bool runUntil(const std::function<bool()>& condition) override { return condition(); }

  private:
    sim::SimStatusBar bar_;
};

class SimScreenCaptureWorld : public ScreenCaptureWorld {
  public:
    ScreenCapture& screenCapture() override { return mac_.screenCapture; }
    bool refuse() override {
        mac_.refuseScreenRecording();
        return true;
    }
    void grant() override { mac_.refuseScreenRecording(false); }
    int prompts() override { return mac_.screenCapture.requests(); }

  private:
    sim::SimMac mac_;
};

INSTANTIATE_TEST_SUITE_P(Simulated, CoreDockContract,
                         testing::Values(adapter<CoreDockWorld, SimCoreDockWorld>("SimCoreDock")));
INSTANTIATE_TEST_SUITE_P(
    Simulated, StatusBarContract,
    testing::Values(adapter<StatusBarWorld, SimStatusBarWorld>("SimStatusBar")));
INSTANTIATE_TEST_SUITE_P(
    Simulated, ScreenCaptureContract,
    testing::Values(adapter<ScreenCaptureWorld, SimScreenCaptureWorld>("SimScreenCapture")));
INSTANTIATE_TEST_SUITE_P(
    Simulated, SchedulerContract,
    testing::Values(adapter<SchedulerWorld, VirtualSchedulerWorld>("VirtualScheduler")));
INSTANTIATE_TEST_SUITE_P(
    Simulated, UserDefaultsContract,
    testing::Values(adapter<UserDefaultsWorld, SimUserDefaultsWorld>("SimUserDefaults")));
INSTANTIATE_TEST_SUITE_P(
    Simulated, DockPreferencesContract,
    testing::Values(adapter<DockPreferencesWorld, SimDockPreferencesWorld>("SimDockPreferences")));
INSTANTIATE_TEST_SUITE_P(Simulated, TrashContract,
                         testing::Values(adapter<TrashWorld, SimTrashWorld>("SimTrash")));
INSTANTIATE_TEST_SUITE_P(
    Simulated, LoginItemContract,
    testing::Values(adapter<LoginItemWorld, SimLoginItemWorld>("SimLoginItem")));

// Once polled, as a Mac must be, and once announcing its changes.
const auto desktops =
    testing::Values(adapter<DesktopWorld, SimDesktopWorld, false>("PolledMac"),
                    adapter<DesktopWorld, SimDesktopWorld, true>("AnnouncingMac"));
INSTANTIATE_TEST_SUITE_P(Simulated, ScreensContract, desktops);
INSTANTIATE_TEST_SUITE_P(Simulated, WindowServerContract, desktops);
INSTANTIATE_TEST_SUITE_P(Simulated, WorkspaceContract, desktops);
INSTANTIATE_TEST_SUITE_P(Simulated, AccessibilityContract, desktops);
INSTANTIATE_TEST_SUITE_P(Simulated, AXObserverContract, desktops);
INSTANTIATE_TEST_SUITE_P(Simulated, EventMonitorsContract, desktops);

} // namespace
} // namespace larkspan::contract
