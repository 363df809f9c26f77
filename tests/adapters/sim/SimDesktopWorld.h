#pragma once

#include "adapters/sim/SimMac.h"
#include "platform/contract/DesktopWorld.h"

namespace larkspan::contract {

class SimDesktopWorld : public DesktopWorld {
  public:
    explicit SimDesktopWorld(bool announcesChanges) {
        mac_.setAnnouncesChanges(announcesChanges);
        for (const std::string app : {"writer", "painter"})
            mac_.install(identifier(app), app);
    }

    Platform platform() override { return mac_.platform(); }
    bool runUntil(const std::function<bool()>& condition) override {
        mac_.scheduler.runUntilIdle();
        for (int tenths = 0; tenths < 100 && !condition(); ++tenths)
            mac_.scheduler.runFor(0.1);
        return condition();
    }

    std::string identifier(const std::string& app) override { return "org.example." + app; }
    WindowId openWindow(const std::string& app, const NewWindow& window) override {
        auto pid = mac_.pidOf(identifier(app));
        if (pid == 0) pid = mac_.launch(identifier(app));
        const auto number =
            mac_.openWindow(pid, {.title = window.title,
                                  .subrole = window.isDialog ? "AXDialog" : "AXStandardWindow"});
        mac_.focusWindow(number);
        mac_.scheduler.runUntilIdle();
        return number;
    }
    // It finishes by itself after a while.
    void finishLaunching(const std::string&) override {}
    void closeWindow(WindowId window) override { mac_.closeWindow(window); }
    void moveWindow(WindowId window, Point by) override {
        const Rect frame = mac_.world().window(window)->frame;
        mac_.moveWindow(window, {frame.x + by.x, frame.y + by.y, frame.width, frame.height});
    }
    void resizeWindow(WindowId window, Size by) override {
        const Rect frame = mac_.world().window(window)->frame;
        mac_.moveWindow(window,
                        {frame.x, frame.y, frame.width + by.width, frame.height + by.height});
    }
    void kill(const std::string& app) override { mac_.kill(mac_.pidOf(identifier(app))); }
    void minimize(WindowId window) override { mac_.minimize(window); }
    void hang(const std::string& app, bool hangs) override {
        mac_.hang(mac_.pidOf(identifier(app)), hangs);
    }
    void setTitle(WindowId window, const std::string& title) override {
        mac_.setTitle(window, title);
    }
    void moveToSpace(WindowId window, std::optional<std::size_t> space) override {
        if (space) {
            mac_.moveToSpace(window, mac_.spaceAt(mac_.displayAt(0), *space));
            return;
        }
        mac_.world().window(window)->space.reset();
        mac_.world().windowsDidChange();
    }
    void showSpace(std::size_t space) override { mac_.switchSpace(mac_.displayAt(0), space); }
    void shrinkVisibleFrame() override {
        auto settings = mac_.world().dock;
        settings.tileSize *= 2;
        mac_.setDock(settings);
    }
    void movePointer(Point place) override { mac_.movePointer(place); }
    // The Dock reserves it.
    double stripTakenFromScreens(double) override { return 0; }

  private:
    sim::SimMac mac_{"1440x900 spaces=2"};
};

} // namespace larkspan::contract
