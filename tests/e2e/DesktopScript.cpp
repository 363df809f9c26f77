#include "DesktopScript.h"

#include <algorithm>
#include <numeric>

namespace larkspan::e2e {

namespace {

constexpr std::uint32_t fromPager = 2;
constexpr std::uint32_t toggle = 2;
// The last one belongs to no application.
constexpr const char* windowClasses[] = {"Xedit",  "XClock", "XCalc",  "Editor",
                                         "Viewer", "Mixer",  "Player", ""};

} // namespace

DesktopScript::DesktopScript(PrivateDesktop& desktop, std::uint32_t seed)
    : desktop_(desktop)
    , random_(seed)
    , pager_(desktop.display()) {
    for (const auto* windowClass : windowClasses)
        clients_.push_back({windowClass, nullptr, {}});
    // Requested repeatedly: the manager ignores requests while it starts.
    desktop_.screen().eventually([this] {
        pager_.ask(pager_.root(), "_NET_NUMBER_OF_DESKTOPS", {desktops});
        const auto count = pager_.numbers(pager_.root(), "_NET_NUMBER_OF_DESKTOPS");
        return count == std::vector<std::uint32_t>{desktops};
    });
}

const std::vector<DesktopScript::Act>& DesktopScript::acts() {
    static const std::vector<Act> all = {
        {"open", 26, &DesktopScript::open},
        {"open a menu", 2, &DesktopScript::openMenu},
        {"destroy", 8, &DesktopScript::destroy},
        {"ask to close", 5, &DesktopScript::askToClose},
        {"die", 1, &DesktopScript::die},
        {"minimise", 12, &DesktopScript::minimize},
        {"restore", 7, &DesktopScript::restore},
        {"activate", 8, &DesktopScript::activate},
        {"withdraw and return", 3, &DesktopScript::withdrawAndReturn},
        {"place", 10, &DesktopScript::place},
        {"rename", 3, &DesktopScript::rename},
        {"toggle full screen", 3, &DesktopScript::toggleFullScreen},
        {"toggle skipping the task bar", 2, &DesktopScript::toggleSkipTaskbar},
        {"send to a desktop", 8, &DesktopScript::sendToDesktop},
        {"send to all desktops", 3, &DesktopScript::sendToAllDesktops},
        {"switch desktop", 9, &DesktopScript::switchDesktop},
        {"change the number of desktops", 1, &DesktopScript::changeDesktopCount},
        {"change the monitors", 1, &DesktopScript::changeMonitors},
    };
    return all;
}

void DesktopScript::act() {
    unsigned sum = 0;
    for (const auto& each : acts())
        sum += each.weight;
    for (auto left = 1 + below(8); left > 0; --left) {
        auto chosen = below(sum);
        auto act = acts().begin();
        for (; chosen >= act->weight; ++act)
            chosen -= act->weight;
        note(act->name);
        (this->*act->perform)();
        ++actCount_;
    }
}

// Actions

void DesktopScript::open() {
    if (windowCount() >= mostWindows) return destroy();
    auto& client = anyClient();
    if (!client.connection)
        client.connection = std::make_unique<x11::TestClient>(desktop_.display());
    const auto kind = below(10);
    x11::TestWindow window;
    window.title = kind == 0 ? "" : "Window " + std::to_string(actCount_);
    window.instance = client.windowClass;
    window.className = client.windowClass;
    window.type = kind == 1 ? "UTILITY" : kind == 2 ? "DIALOG" : kind == 3 ? "" : "NORMAL";
    const bool isDialog = kind == 2 && !client.windowClass.empty() && !client.windows.empty();
    if (isDialog) window.transientFor = client.windows[below(std::uint32_t(client.windows.size()))];
    window.isAskedToClose = below(4) != 0;
    window.x = int(below(900));
    window.y = int(below(400));
    window.width = 100 + int(below(300));
    window.height = 80 + int(below(200));
    client.windows.push_back(client.connection->open(window));
    note("  " + window.type + " of " + window.className + " is " +
         std::to_string(client.windows.back()));
}

// Bypasses the window manager, so the window belongs to no application.
void DesktopScript::openMenu() {
    const auto menu = pager_.open({.isOverrideRedirect = true});
    if (below(2) == 0) pager_.sync();
    pager_.destroy(menu);
}

void DesktopScript::destroy() {
    const auto window = anyWindow();
    if (!window) return;
    window->client->connection->destroy(window->number);
    forget(window->number);
}

void DesktopScript::askToClose() {
    if (const auto window = anyWindow())
        pager_.ask(window->number, "_NET_CLOSE_WINDOW", {0, fromPager});
}

void DesktopScript::die() {
    auto& client = anyClient();
    client.connection.reset();
    client.windows.clear();
}

void DesktopScript::minimize() {
    if (const auto window = anyWindow()) window->client->connection->iconify(window->number);
}

void DesktopScript::restore() {
    if (const auto window = anyWindow()) window->client->connection->map(window->number);
}

void DesktopScript::activate() {
    if (const auto window = anyWindow())
        pager_.ask(window->number, "_NET_ACTIVE_WINDOW", {fromPager, XCB_CURRENT_TIME, 0});
}

void DesktopScript::withdrawAndReturn() {
    const auto window = anyWindow();
    if (!window) return;
    window->client->connection->withdraw(window->number);
    if (below(3) == 0) settle();
    if (window->client->connection) window->client->connection->map(window->number);
}

void DesktopScript::place() {
    if (const auto window = anyWindow())
        window->client->connection->move(window->number, int(below(1000)), int(below(500)));
}

void DesktopScript::rename() {
    const auto window = anyWindow();
    if (!window) return;
    const auto title = below(4) == 0 ? std::string() : "Title " + std::to_string(actCount_);
    window->client->connection->setText(window->number, "_NET_WM_NAME", "UTF8_STRING", title);
}

void DesktopScript::toggleFullScreen() {
    if (const auto window = anyWindow())
        pager_.ask(window->number, "_NET_WM_STATE",
                   {toggle, pager_.atom("_NET_WM_STATE_FULLSCREEN"), 0, fromPager});
}

void DesktopScript::toggleSkipTaskbar() {
    if (const auto window = anyWindow())
        pager_.ask(window->number, "_NET_WM_STATE",
                   {toggle, pager_.atom("_NET_WM_STATE_SKIP_TASKBAR"), 0, fromPager});
}

void DesktopScript::sendToDesktop() {
    if (const auto window = anyWindow())
        pager_.ask(window->number, "_NET_WM_DESKTOP", {below(desktops), fromPager});
}

void DesktopScript::sendToAllDesktops() {
    if (const auto window = anyWindow())
        pager_.ask(window->number, "_NET_WM_DESKTOP", {x11::TestClient::everyDesktop, fromPager});
}

void DesktopScript::switchDesktop() {
    pager_.ask(pager_.root(), "_NET_CURRENT_DESKTOP", {below(desktops), XCB_CURRENT_TIME});
}

// The window manager moves windows of removed desktops to the last one left.
void DesktopScript::changeDesktopCount() {
    pager_.ask(pager_.root(), "_NET_NUMBER_OF_DESKTOPS", {2 + below(4)});
    if (below(2) == 0) settle();
    pager_.ask(pager_.root(), "_NET_NUMBER_OF_DESKTOPS", {desktops});
}

// One monitor, or two side by side on the same screen.
void DesktopScript::changeMonitors() {
    const auto width = double(desktop_.screen().width());
    const auto height = double(desktop_.screen().height());
    if (below(3) == 0) {
        pager_.deleteMonitor("left");
        pager_.deleteMonitor("right");
        return;
    }
    const double border = 500 + below(200);
    pager_.setMonitor("left", {0, 0, border, height});
    pager_.setMonitor("right", {border, 0, width - border, height});
}

// Rest

bool DesktopScript::settle() {
    for (auto& client : clients_)
        if (client.connection) client.connection->sync();
    if (!askManagerForAnAnswer()) return false;
    obeyCloseRequests();
    return askManagerForAnAnswer();
}

// The reply comes after those to all earlier requests, since the X server keeps their order.
bool DesktopScript::askManagerForAnAnswer() {
    const auto unmapped = xcb_generate_id(pager_.raw());
    xcb_create_window(pager_.raw(), XCB_COPY_FROM_PARENT, unmapped, pager_.root(), 0, 0, 10, 10, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    pager_.ask(unmapped, "_NET_REQUEST_FRAME_EXTENTS", {});
    const bool hasAnswered = desktop_.screen().eventually(
        [&] { return !pager_.numbers(unmapped, "_NET_FRAME_EXTENTS").empty(); });
    pager_.destroy(unmapped);
    pager_.sync();
    return hasAnswered;
}

// As programs do that support WM_DELETE_WINDOW; the window manager has killed the others.
void DesktopScript::obeyCloseRequests() {
    for (auto& client : clients_) {
        if (!client.connection) continue;
        for (const auto window : client.connection->takeCloseRequests()) {
            client.connection->destroy(window);
            std::erase(client.windows, window);
        }
        client.connection->sync();
        if (client.connection->isAlive()) continue;
        client.connection.reset();
        client.windows.clear();
    }
}

void DesktopScript::closeEverything() {
    for (auto& client : clients_) {
        client.connection.reset();
        client.windows.clear();
    }
    pager_.ask(pager_.root(), "_NET_CURRENT_DESKTOP", {0, XCB_CURRENT_TIME});
}

// Choices

std::uint32_t DesktopScript::below(std::uint32_t limit) {
    // Not a standard distribution: those differ between libraries, but the same seed must give the
    // same actions.
    return static_cast<std::uint32_t>(random_() % limit);
}

std::size_t DesktopScript::windowCount() const {
    return std::accumulate(
        clients_.begin(), clients_.end(), std::size_t{0},
        [](std::size_t sum, const Client& client) { return sum + client.windows.size(); });
}

std::optional<DesktopScript::Window> DesktopScript::anyWindow() {
    if (windowCount() == 0) return std::nullopt;
    auto left = below(std::uint32_t(windowCount()));
    for (auto& client : clients_) {
        if (left < client.windows.size()) {
            note("  " + std::to_string(client.windows[left]) + " of " + client.windowClass);
            return Window{&client, client.windows[left]};
        }
        left -= std::uint32_t(client.windows.size());
    }
    return std::nullopt;
}

DesktopScript::Client& DesktopScript::anyClient() {
    return clients_[below(std::uint32_t(clients_.size()))];
}

void DesktopScript::forget(WindowId window) {
    for (auto& client : clients_)
        std::erase(client.windows, window);
}

void DesktopScript::note(const std::string& line) {
    story_ += "  " + line + "\n";
}

} // namespace larkspan::e2e
