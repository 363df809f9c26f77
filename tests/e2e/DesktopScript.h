#pragma once

#include "PrivateDesktop.h"
#include "adapters/x11/TestClient.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace larkspan::e2e {

/// A busy user and restless programs: actions on a private desktop in an order that only depends on
/// the seed. Only `settle` waits.
class DesktopScript {
  public:
    static constexpr std::size_t mostWindows = 30;
    static constexpr std::uint32_t desktops = 4;

    DesktopScript(PrivateDesktop& desktop, std::uint32_t seed);

    /// Does a few actions, one right after the other.
    void act();
    /// Returns when the window manager has handled all requests; false if a limit is reached first.
    bool settle();
    void closeEverything();
    /// The next random number of the seed.
    std::uint32_t below(std::uint32_t limit);

    /// What was done since the last call, one line each.
    std::string takeStory() { return std::exchange(story_, {}); }
    int actCount() const { return actCount_; }
    x11::TestClient& pager() { return pager_; }
    /// Adds an action of somebody else to the story.
    void note(const std::string& line);

  private:
    struct Client {
        std::string windowClass;
        std::unique_ptr<x11::TestClient> connection;
        std::vector<WindowId> windows;
    };
    struct Window {
        Client* client = nullptr;
        WindowId number = 0;
    };
    struct Act {
        const char* name;
        unsigned weight;
        void (DesktopScript::*perform)();
    };
    static const std::vector<Act>& acts();

    void open();
    void openMenu();
    void destroy();
    void askToClose();
    void die();
    void minimize();
    void restore();
    void activate();
    void withdrawAndReturn();
    void place();
    void rename();
    void toggleFullScreen();
    void toggleSkipTaskbar();
    void sendToDesktop();
    void sendToAllDesktops();
    void switchDesktop();
    void changeDesktopCount();
    void changeMonitors();

    std::size_t windowCount() const;
    std::optional<Window> anyWindow();
    Client& anyClient();
    void forget(WindowId window);
    void obeyCloseRequests();
    bool askManagerForAnAnswer();

    PrivateDesktop& desktop_;
    std::mt19937 random_;
    x11::TestClient pager_;
    std::vector<Client> clients_;
    std::string story_;
    int actCount_ = 0;
};

} // namespace larkspan::e2e
