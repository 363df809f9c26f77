#include "soak/day/Act.h"

#include <algorithm>

namespace larkspan::soak {

namespace {

const Rect tileFrame{600, 10, 52, 52};

bool click(Day& day, int app, int count) {
    const auto tile = day.tile(app, count);
    if (tile) day.controller()->click().click(tile->item, tile->groupOrNone(), tileFrame);
    return tile.has_value();
}

/// The pointer rests on a tile, which is clicked only later.
bool holdTile(Day& day, int app, int count) {
    day.heldTile = day.tile(app, count);
    return day.heldTile.has_value();
}

bool clickHeldTile(Day& day, int, int) {
    if (!day.controller() || !day.heldTile) return false;
    const auto& [item, group] = *day.heldTile;
    day.controller()->click().click(item, group ? &*group : nullptr, tileFrame);
    return true;
}

bool openMenu(Day& day, int app, int count) {
    const auto tile = day.tile(app, count);
    if (!tile) return false;
    day.openMenu = day.controller()->itemMenu().menu(tile->item, tile->groupOrNone(), tileFrame);
    return true;
}

/// Chooses one of the enabled items, cyclically.
bool chooseLine(Day& day, int line, int) {
    std::erase_if(day.openMenu, [](const MenuItem& item) { return !item.action; });
    if (day.openMenu.empty()) return false;
    const auto chosen = day.openMenu[static_cast<std::size_t>(line) % day.openMenu.size()];
    day.openMenu.clear();
    if (chosen.title.find("Dock") != std::string::npos) ++day.pinActs;
    chosen.action();
    return true;
}

/// The views report it.
bool movePointer(Day& day, int, int isOnBar) {
    if (!day.controller()) return false;
    const auto& bars = day.controller()->store().barFrames();
    const bool isOnAnyBar = isOnBar != 0 && !bars.empty();
    if (isOnAnyBar)
        day.mac.movePointer({bars.front().x + 1, bars.front().y + 1});
    else
        day.mac.movePointer({1, 500});
    day.controller()->refresh().setPointerOnBar(isOnAnyBar);
    return true;
}

/// To the bottom, the middle or the top of a display, without a report from the views.
bool movePointerSilently(Day& day, int display, int height) {
    const auto id = day.display(display);
    for (const auto& screen : day.mac.platform().screens.screens()) {
        if (screen.display != id) continue;
        const Rect& frame = screen.frame;
        day.mac.movePointer({frame.x + frame.width / 2, frame.y + frame.height * height / 2});
        return true;
    }
    return false;
}

/// Anywhere, in another program.
bool releaseMouse(Day& day, int, int) {
    day.mac.click(day.mac.world().pointer);
    return true;
}

bool pressKey(Day& day, int, int isCommand) {
    day.mac.pressKey(isCommand != 0 ? ModifierFlag::command : 0);
    return true;
}

bool focusBar(Day& day, int, int) {
    return day.controller() && day.controller()->focusBar();
}

bool dragPinned(Day& day, int from, int to) {
    if (!day.controller()) return false;
    auto ids = day.controller()->store().pinnedIDs();
    if (ids.size() < 2) return false;
    std::swap(ids[static_cast<std::size_t>(from) % ids.size()],
              ids[static_cast<std::size_t>(to) % ids.size()]);
    ++day.pinActs;
    day.controller()->store().setPinned(std::move(ids));
    return true;
}

bool setBarHeight(Day& day, int kind, int) {
    if (!day.controller()) return false;
    const std::optional<double> heights[] = {std::nullopt, 20, 30, 48, 72, 120};
    day.controller()->setBarHeight(heights[kind]);
    return true;
}

bool showEmptyDesktops(Day& day, int, int shows) {
    if (!day.controller()) return false;
    day.controller()->store().setShowsEmptyDesktops(shows != 0);
    day.controller()->refresh().requestRead(true);
    return true;
}

bool useMode(Day& day, int, int isBar) {
    if (!day.controller()) return false;
    if (isBar)
        day.controller()->useVantrel();
    else
        day.controller()->useSystemDock();
    return true;
}

bool chooseStatus(Day& day, int, int isQuit) {
    return day.mac.statusBar.choose(isQuit ? "Quit Larkspan" : "Use Larkspan");
}

/// Starts the program, or starts it a second time.
bool startProgram(Day& day, int, int) {
    day.stage.start();
    return true;
}

bool quitProgram(Day& day, int, int) {
    day.stage.quit();
    return true;
}

bool killProgram(Day& day, int, int) {
    if (!day.controller()) return false;
    day.stage.kill();
    return true;
}

} // namespace

std::vector<Act> barActs() {
    return {
        {"click", 60, Day::appCount, 6, click},
        {"holdTile", 6, Day::appCount, 6, holdTile},
        {"clickHeldTile", 6, 1, 1, clickHeldTile},
        {"openMenu", 14, Day::appCount, 6, openMenu},
        {"chooseLine", 14, 8, 1, chooseLine},
        {"movePointer", 20, 1, 2, movePointer},
        {"movePointerSilently", 12, 4, 3, movePointerSilently},
        {"releaseMouse", 8, 1, 1, releaseMouse},
        {"pressKey", 6, 1, 2, pressKey},
        {"focusBar", 3, 1, 1, focusBar},
        {"dragPinned", 3, 4, 4, dragPinned},
        {"setBarHeight", 2, 6, 1, setBarHeight},
        {"showEmptyDesktops", 2, 1, 2, showEmptyDesktops},
        {"useMode", 4, 1, 2, useMode},
        {"chooseStatus", 2, 1, 2, chooseStatus},
        {"startProgram", 5, 1, 1, startProgram},
        {"quitProgram", 1, 1, 1, quitProgram},
        {"killProgram", 1, 1, 1, killProgram},
    };
}

} // namespace larkspan::soak
