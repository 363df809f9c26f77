#pragma once

#include "platform/Platform.h"
#include "platform/contract/Adapter.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace larkspan::contract {

struct NewWindow {
    std::string title = "Untitled";
    bool isDialog = false;
};

/// A desktop with two Spaces and two installed apps, "writer" and "painter", and the users and
/// programs that change it. A change has happened when the call returns only if its comment says
/// so; otherwise wait for it.
class DesktopWorld {
  public:
    virtual ~DesktopWorld() = default;
    virtual Platform platform() = 0;
    /// Runs the loop until the condition is true; returns false if a limit is reached first.
    virtual bool runUntil(const std::function<bool()>& condition) = 0;

    /// The bundle identifier of an installed app.
    virtual std::string identifier(const std::string& app) = 0;
    /// Opens a window in front of all others, and launches the app if it does not run. The window
    /// is on screen when the call returns.
    virtual WindowId openWindow(const std::string& app, const NewWindow& window = {}) = 0;
    /// Lets an app that was opened through the interfaces finish launching and show its window.
    virtual void finishLaunching(const std::string& app) = 0;
    virtual void closeWindow(WindowId window) = 0;
    /// Moves it by that much, as its app or its user does.
    virtual void moveWindow(WindowId window, Point by) = 0;
    virtual void resizeWindow(WindowId window, Size by) = 0;
    /// Kills the app and all its windows.
    virtual void kill(const std::string& app) = 0;
    virtual void minimize(WindowId window) = 0;
    /// The app's process stops handling events, or handles them again.
    virtual void hang(const std::string& app, bool hangs) = 0;
    virtual void setTitle(WindowId window, const std::string& title) = 0;
    /// Without a Space: to all of them.
    virtual void moveToSpace(WindowId window, std::optional<std::size_t> space) = 0;
    virtual void showSpace(std::size_t space) = 0;
    /// Reduces the area of the main screen that windows may use.
    virtual void shrinkVisibleFrame() = 0;
    /// Moves the pointer to a position in screen coordinates.
    virtual void movePointer(Point place) = 0;
    /// By how much a reserved strip of that height reduces the visible frames here.
    virtual double stripTakenFromScreens(double height) = 0;
};

/// A test on a new desktop, made by the parameter.
class DesktopContract : public testing::TestWithParam<Adapter<DesktopWorld>> {
  protected:
    std::optional<WindowListEntry> entry(WindowId window,
                                         std::uint32_t option = WindowListOption::all) const {
        const auto list = platform_.windowServer.windowList(option);
        for (const auto& candidate : list.value_or(std::vector<WindowListEntry>{}))
            if (candidate.number == window) return candidate;
        return std::nullopt;
    }
    bool isOnScreen(WindowId window) const {
        const auto found = entry(window);
        return found && found->isOnScreen.value_or(false);
    }
    ProcessId owner(WindowId window) const {
        const auto found = entry(window);
        return found ? found->ownerPID.value_or(0) : 0;
    }
    /// Those of these windows that are in the list, in its order.
    std::vector<WindowId> ordered(const std::vector<WindowId>& windows,
                                  std::uint32_t option = WindowListOption::all) const {
        std::vector<WindowId> found;
        const auto list = platform_.windowServer.windowList(option);
        for (const auto& each : list.value_or(std::vector<WindowListEntry>{}))
            if (each.number && std::count(windows.begin(), windows.end(), *each.number))
                found.push_back(*each.number);
        return found;
    }
    std::optional<RunningApplication> running(const std::string& app) {
        for (const auto& each : platform_.workspace.runningApplications())
            if (each.bundleIdentifier == world_->identifier(app)) return each;
        return std::nullopt;
    }
    bool isFrontmost(const std::string& app) {
        const auto front = platform_.workspace.frontmostApplication();
        return front && front->bundleIdentifier == world_->identifier(app);
    }
    std::vector<AXElementRef> elements(ProcessId pid) const {
        const auto windows = ax_.attribute(ax_.createApplication(pid), "AXWindows");
        const auto* list = windows.as<std::vector<AXElementRef>>();
        return list ? *list : std::vector<AXElementRef>{};
    }
    AXElementRef element(WindowId window) const {
        for (const auto& each : elements(owner(window)))
            if (ax_.window(each) == window) return each;
        ADD_FAILURE() << "no element of window " << window;
        return ax_.createSystemWide();
    }
    bool runUntil(const std::function<bool()>& condition) { return world_->runUntil(condition); }

    std::unique_ptr<DesktopWorld> world_ = GetParam().make();
    const Platform platform_ = world_->platform();
    Accessibility& ax_ = platform_.accessibility;
};

} // namespace larkspan::contract
