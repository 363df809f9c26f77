#pragma once

#include "adapters/x11/DesktopTest.h"
#include "platform/contract/DesktopWorld.h"

#include <map>
#include <set>

namespace larkspan::contract {

/// The desktop of a private X server with a window manager. Each app is one client with its
/// windows, and a process that sleeps.
class X11DesktopWorld : public DesktopWorld {
  public:
    // Windows of the previous test may still exist.
    X11DesktopWorld() {
        runUntil([&] { return desktop_.server().windowList(WindowListOption::all)->empty(); });
    }

    Platform platform() override { return desktop_.platform(); }
    bool runUntil(const std::function<bool()>& condition) override {
        return qt::runUntil([&] {
            for (const auto& [app, client] : clients_)
                if (!hung_.contains(app)) client->replyToPings();
            return condition();
        });
    }

    std::string identifier(const std::string& app) override { return "org.example." + app; }
    WindowId openWindow(const std::string& app, const NewWindow& window) override {
        auto& client = clients_[app];
        if (!client) client = std::make_unique<x11::TestClient>(display_);
        const auto number = client->open({.title = window.title,
                                          .instance = app,
                                          .className = app,
                                          .type = window.isDialog ? "DIALOG" : "NORMAL",
                                          .supportsPings = true});
        owners_[number] = client.get();
        const auto isInFront = [&] {
            const auto list = *desktop_.server().windowList(WindowListOption::all);
            return desktop_.isOnScreen(number) && list.front().number == number &&
                   desktop_.frontmost() == identifier(app);
        };
        EXPECT_TRUE(runUntil(isInFront)) << app;
        return number;
    }
    void finishLaunching(const std::string& app) override { openWindow(app, {}); }
    void closeWindow(WindowId window) override { owners_.at(window)->destroy(window); }
    void moveWindow(WindowId window, Point by) override {
        auto& client = *owners_.at(window);
        const Rect area = client.areaOf(window);
        client.move(window, static_cast<int>(area.x + by.x), static_cast<int>(area.y + by.y));
    }
    void resizeWindow(WindowId window, Size by) override {
        auto& client = *owners_.at(window);
        const Rect area = client.areaOf(window);
        client.resize(window, static_cast<int>(area.width + by.width),
                      static_cast<int>(area.height + by.height));
    }
    void kill(const std::string& app) override { clients_.erase(app); }
    void minimize(WindowId window) override { owners_.at(window)->iconify(window); }
    void hang(const std::string& app, bool hangs) override {
        if (hangs)
            hung_.insert(app);
        else
            hung_.erase(app);
    }
    void setTitle(WindowId window, const std::string& title) override {
        owners_.at(window)->setText(window, "_NET_WM_NAME", "UTF8_STRING", title);
    }
    void moveToSpace(WindowId window, std::optional<std::size_t> space) override {
        const auto desktop = space ? static_cast<std::uint32_t>(*space) : 0xFFFFFFFF;
        pager_.ask(window, "_NET_WM_DESKTOP", {desktop, 2});
    }
    void showSpace(std::size_t space) override {
        pager_.ask(pager_.root(), "_NET_CURRENT_DESKTOP", {static_cast<std::uint32_t>(space), 0});
    }
    // Opens a panel at the upper edge.
    void shrinkVisibleFrame() override {
        const auto panel = pager_.open({.className = "Panel", .type = "DOCK"});
        pager_.setNumbers(panel, "_NET_WM_STRUT_PARTIAL", "CARDINAL",
                          {0, 0, 40, 0, 0, 0, 0, 0, 0, 1279, 0, 0});
    }
    void movePointer(Point place) override {
        const double height = platform().screens.screens().front().frame.height;
        pager_.movePointer(static_cast<std::int16_t>(place.x),
                           static_cast<std::int16_t>(height - place.y));
    }
    double stripTakenFromScreens(double height) override { return height; }

  private:
    static std::map<std::string, std::string> installed() {
        std::map<std::string, std::string> entries;
        for (const std::string app : {"writer", "painter"})
            entries["org.example." + app] =
                "Name=" + app + "\nExec=sleep 60\nStartupWMClass=" + app + "\n";
        return entries;
    }

    const std::string display_ = x11::ManagedServer::display();
    x11::DesktopUnderTest desktop_{display_, installed()};
    x11::TestClient pager_{display_};
    std::map<std::string, std::unique_ptr<x11::TestClient>> clients_;
    std::map<WindowId, x11::TestClient*> owners_;
    std::set<std::string> hung_;
};

} // namespace larkspan::contract
