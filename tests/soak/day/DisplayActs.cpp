#include "soak/day/Act.h"

namespace larkspan::soak {

namespace {

bool plug(Day& day, int kind, int) {
    constexpr const char* displays[] = {"1440x900", "1920x1080 spaces=3", "1280x720 spaces=2",
                                        "1512x982 scale=2"};
    if (day.mac.world().displays.size() >= Day::mostDisplays) return false;
    return day.mac.addDisplay(displays[kind]) != 0;
}

bool unplug(Day& day, int display, int) {
    const auto id = day.display(display);
    if (id) day.mac.unplug(id);
    return id != 0;
}

/// As when the lid closes on a laptop without a second display.
bool unplugAll(Day& day, int, int) {
    if (day.mac.world().displays.empty()) return false;
    day.mac.unplugAll();
    return true;
}

bool mirror(Day& day, int display, int) {
    if (day.mac.world().displays.size() < 2) return false;
    day.mac.mirror(day.display(display));
    return true;
}

bool endMirroring(Day& day, int, int) {
    day.mac.endMirroring();
    return true;
}

/// Other displays with new identifiers, as after a change of the graphics card.
bool replaceDisplays(Day& day, int kind, int) {
    constexpr const char* arrangements[] = {"1440x900 spaces=2", "1440x900, 1280x720",
                                            "2560x1440 spaces=4, 1440x900 spaces=2, 1024x768"};
    return day.mac.setDisplays(arrangements[kind]);
}

bool changeResolution(Day& day, int display, int kind) {
    auto* changed = day.mac.world().display(day.display(display));
    if (!changed) return false;
    changed->bounds.height = 800 + 100 * kind;
    changed->scale = kind == 0 ? 2 : 1;
    day.mac.world().screensMayHaveChanged();
    day.mac.world().windowsDidChange();
    return true;
}

bool switchSpace(Day& day, int display, int space) {
    return day.mac.switchSpace(day.display(display), static_cast<std::size_t>(space));
}

/// On the trackpad. The Space may change after it, or not.
bool swipe(Day& day, int display, int kind) {
    const sim::SwipeOptions ways[] = {
        {},
        {.progress = -1},
        {.progress = 0.3, .velocity = 4},
        {.progress = 0.2, .switches = false},
        {.progress = -0.4, .isCancelled = true, .switches = false},
        {.progress = 1, .seconds = 2},
    };
    const auto id = day.display(display);
    if (id) day.mac.swipe(id, ways[kind]);
    return id != 0;
}

bool addSpace(Day& day, int display, int) {
    const auto* of = day.mac.world().display(day.display(display));
    return of && of->spaces.size() < Day::mostSpaces && day.mac.addSpace(of->id) != 0;
}

bool removeSpace(Day& day, int display, int space) {
    const auto* of = day.mac.world().display(day.display(display));
    if (!of || of->spaces.size() < 2) return false;
    const auto id = day.mac.spaceAt(of->id, static_cast<std::size_t>(space));
    if (id) day.mac.removeSpace(id);
    return id != 0;
}

bool separateSpaces(Day& day, int, int areSeparate) {
    day.mac.world().displaysHaveSeparateSpaces = areSeparate != 0;
    day.mac.world().windowsDidChange();
    return true;
}

} // namespace

std::vector<Act> displayActs() {
    constexpr int displays = 4;
    return {
        {"plug", 8, 4, 1, plug},
        {"unplug", 5, displays, 1, unplug},
        {"unplugAll", 1, 1, 1, unplugAll},
        {"mirror", 2, displays, 1, mirror},
        {"endMirroring", 2, 1, 1, endMirroring},
        {"replaceDisplays", 1, 3, 1, replaceDisplays},
        {"changeResolution", 3, displays, 3, changeResolution},
        {"switchSpace", 24, displays, 4, switchSpace},
        {"swipe", 10, displays, 6, swipe},
        {"addSpace", 4, displays, 1, addSpace},
        {"removeSpace", 4, displays, 6, removeSpace},
        {"separateSpaces", 1, 1, 2, separateSpaces},
    };
}

} // namespace larkspan::soak
