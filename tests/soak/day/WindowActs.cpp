#include "soak/day/Act.h"

namespace larkspan::soak {

namespace {

using sim::SimMac;
using sim::WindowOptions;

constexpr int windowsCounted = 4;
constexpr int placesCounted = 24;

bool hasRoom(const Day& day) {
    return day.mac.world().windows.size() < Day::mostWindows;
}

/// `place` counts the displays first, then their Spaces: the shown one, the first three, all of
/// them.
bool openWindow(Day& day, int app, int place) {
    if (!hasRoom(day)) return false;
    WindowOptions options{.title = "Window", .display = day.display(place % 4)};
    const int space = place / 4;
    options.everySpace = space == 5;
    if (space >= 1 && space <= 4)
        if (const auto id = day.mac.spaceAt(*options.display, static_cast<std::size_t>(space - 1)))
            options.space = id;
    return day.mac.openWindow(day.process(app), options) != 0;
}

/// A window of a rare kind.
bool openOddWindow(Day& day, int app, int kind) {
    const auto& displays = day.mac.world().displays;
    if (!hasRoom(day) || displays.empty()) return false;
    const auto screen = displays.back().bounds;
    const WindowOptions kinds[] = {
        {.frame = Rect{100, 100, 0, 0}},
        {.frame = screen},
        {.frame = Rect{screen.x - 300, 100, 600, 400}},
        {.frame = Rect{-5000, -5000, 600, 400}},
        {.alpha = 0.0},
        {.alpha = std::nullopt},
        {.layer = 3},
        {.subrole = "AXDialog"},
        {.subrole = "AXFloatingWindow"},
        {.hasNumber = false},
        {.hasName = false},
    };
    return day.mac.openWindow(day.process(app), kinds[kind]) != 0;
}

template <void (SimMac::*method)(WindowId)>
bool toWindow(Day& day, int app, int count) {
    const auto id = day.window(app, count);
    if (id) (day.mac.*method)(id);
    return id != 0;
}

/// Moves the app's oldest or newest window to one of the places of `openWindow`.
bool moveWindow(Day& day, int app, int place) {
    const auto id = day.window(app, place % 2);
    const auto display = day.display(place % 4);
    if (!id || !display) return false;
    const int space = place / 4;
    if (space == 0)
        day.mac.moveToDisplay(id, display);
    else
        day.mac.moveToSpace(id, day.mac.spaceAt(display, static_cast<std::size_t>(space - 1)));
    return true;
}

bool resizeWindow(Day& day, int app, int kind) {
    const auto id = day.window(app, kind % 2);
    const auto* window = day.mac.world().window(id);
    if (!window || day.mac.world().displays.empty()) return false;
    const auto screen = day.mac.world().displays.front().bounds;
    const Rect frames[] = {screen,
                           {window->frame.x, window->frame.y, 700, 500},
                           {window->frame.x, window->frame.y, 59, 39},
                           {window->frame.x + 800, window->frame.y, 400, 300}};
    day.mac.moveWindow(id, frames[kind / 2]);
    return true;
}

/// Over the whole screen, or what the menu bar leaves of it, but not on its own Space; or small
/// again.
bool fillScreen(Day& day, int app, int kind) {
    const auto id = day.window(app, kind % 2);
    const auto* window = day.mac.world().window(id);
    if (!window || day.mac.world().displays.empty()) return false;
    const Rect bounds = day.mac.world().displayOf(*window).bounds;
    const Rect frames[] = {bounds,
                           {bounds.x, bounds.y + 25, bounds.width, bounds.height - 25},
                           {bounds.x + 50, bounds.y + 50, 600, 400}};
    day.mac.moveWindow(id, frames[kind / 2]);
    return true;
}

bool fadeWindow(Day& day, int app, int percent) {
    auto* window = day.mac.world().window(day.window(app, 0));
    if (!window) return false;
    window->alpha = percent / 2.0;
    day.mac.world().windowsDidChange();
    return true;
}

bool renameWindow(Day& day, int app, int title) {
    const auto id = day.window(app, 0);
    day.mac.setTitle(id, std::string(static_cast<std::size_t>(title) * 400, 'x'));
    return id != 0;
}

} // namespace

std::vector<Act> windowActs() {
    return {
        {"openWindow", 50, Day::appCount, placesCounted, openWindow},
        {"openOddWindow", 10, Day::appCount, 11, openOddWindow},
        {"closeWindow", 30, Day::appCount, windowsCounted, toWindow<&SimMac::closeWindow>},
        {"minimize", 16, Day::appCount, windowsCounted, toWindow<&SimMac::minimize>},
        {"unminimize", 10, Day::appCount, windowsCounted, toWindow<&SimMac::unminimize>},
        {"focusWindow", 14, Day::appCount, windowsCounted, toWindow<&SimMac::focusWindow>},
        {"moveWindow", 16, Day::appCount, 20, moveWindow},
        {"resizeWindow", 8, Day::appCount, 8, resizeWindow},
        {"fillScreen", 12, Day::appCount, 6, fillScreen},
        {"fadeWindow", 3, Day::appCount, 3, fadeWindow},
        {"renameWindow", 3, Day::appCount, 3, renameWindow},
        {"enterFullScreen", 6, Day::appCount, windowsCounted, toWindow<&SimMac::enterFullScreen>},
        {"leaveFullScreen", 6, Day::appCount, windowsCounted, toWindow<&SimMac::leaveFullScreen>},
    };
}

} // namespace larkspan::soak
