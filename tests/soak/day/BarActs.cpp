#include "soak/day/Act.h"

#include <algorithm>

namespace larkspan::soak {

namespace {

bool click(Day& day, int app, int count) {
    const auto tile = day.tile(app, count);
    if (tile) tile->bar->click(tile->tile);
    return tile.has_value();
}

/// The pointer rests on a tile, which is clicked only later.
bool holdTile(Day& day, int app, int count) {
    const auto tile = day.tile(app, count);
    if (tile) day.heldTile = tile->bar->tiles()[static_cast<std::size_t>(tile->tile)];
    return tile.has_value();
}

bool clickHeldTile(Day& day, int, int) {
    if (!day.controller() || !day.heldTile) return false;
    day.controller()->tileActions().click(*day.heldTile, {600, 10, 52, 52});
    return true;
}

/// What a person does who opens one menu after the other, and the tiles are held meanwhile.
bool openMenu(Day& day, int app, int count) {
    const auto tile = day.tile(app, count);
    if (tile && tile->bar->isShown()) tile->bar->openTileMenu(tile->tile);
    return tile && tile->bar->isShown();
}

BarOverlay* overlayWithMenu(Day& day) {
    auto* overlay = day.controller() ? day.controller()->overlay() : nullptr;
    return overlay && overlay->isMenuOpen() ? overlay : nullptr;
}

/// Chooses one of the enabled items, cyclically.
bool chooseLine(Day& day, int line, int) {
    auto* overlay = overlayWithMenu(day);
    if (!overlay) return false;
    Menu lines = overlay->menu();
    std::erase_if(lines, [](const MenuItem& item) { return !item.action || !item.isEnabled; });
    if (lines.empty()) return false;
    const auto title = lines[static_cast<std::size_t>(line) % lines.size()].title;
    if (title.find("Dock") != std::string::npos) ++day.pinActs;
    return overlay->chooseLine(title);
}

bool closeMenu(Day& day, int, int) {
    auto* overlay = overlayWithMenu(day);
    if (overlay) overlay->closeMenu();
    return overlay != nullptr;
}

/// The views report it.
bool movePointer(Day& day, int, int isOnBar) {
    const auto* bars = day.controller() ? day.controller()->bars() : nullptr;
    if (!bars) return false;
    const auto isShown = [](const BarController::Bar& bar) { return bar.isShown; };
    const auto shown = std::ranges::find_if(bars->bars(), isShown);
    const bool isOnAnyBar = isOnBar != 0 && shown != bars->bars().end();
    if (isOnAnyBar) {
        // In the middle, which stays on the bar when the bar becomes narrower.
        const Rect frame = shown->interaction->frame();
        day.mac.movePointer({frame.x + frame.width / 2, frame.y + 1});
        shown->interaction->setPointerInside(true);
        return true;
    }
    day.mac.movePointer({1, 500});
    for (const auto& bar : bars->bars())
        bar.interaction->setPointerInside(false);
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

/// One of the keys that mean something to a bar with the keyboard, which an open menu has itself.
bool pressBarKey(Day& day, int key, int) {
    const auto* bars = day.controller() ? day.controller()->bars() : nullptr;
    if (!bars || overlayWithMenu(day)) return false;
    return std::ranges::any_of(bars->bars(), [key](const BarController::Bar& bar) {
        return bar.interaction->press(static_cast<BarKey>(key));
    });
}

bool leaveBar(Day& day, int, int) {
    return pressBarKey(day, static_cast<int>(BarKey::leave), 0);
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
        {"closeMenu", 12, 1, 1, closeMenu},
        {"movePointer", 20, 1, 2, movePointer},
        {"movePointerSilently", 12, 4, 3, movePointerSilently},
        {"releaseMouse", 8, 1, 1, releaseMouse},
        {"pressKey", 6, 1, 2, pressKey},
        {"focusBar", 3, 1, 1, focusBar},
        {"pressBarKey", 8, 10, 1, pressBarKey},
        {"leaveBar", 8, 1, 1, leaveBar},
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
