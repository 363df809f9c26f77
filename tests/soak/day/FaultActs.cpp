#include "soak/day/Act.h"

#include <algorithm>

namespace larkspan::soak {

namespace {

bool hang(Day& day, int app, int isHung) {
    const auto pid = day.process(app);
    day.mac.hang(pid, isHung != 0);
    return pid != 0;
}

bool answerSlowly(Day& day, int app, int tenths) {
    const auto pid = day.process(app);
    day.mac.answerAfter(pid, 0.1 * tenths);
    return pid != 0;
}

bool lieAboutFrames(Day& day, int app, int by) {
    const auto pid = day.process(app);
    day.mac.lieAboutFrames(pid, {400.0 * by, 0});
    return pid != 0;
}

bool dieDuringRead(Day& day, int app, int calls) {
    const auto pid = day.process(app + 1);
    day.mac.dieDuringRead(pid, calls);
    return pid != 0;
}

bool refuseToQuit(Day& day, int app, int refuses) {
    auto* process = day.mac.world().app(day.process(app));
    if (process) process->refusesToQuit = refuses != 0;
    return process;
}

/// A desktop that announces changes is never polled, so lost events would never be noticed: such a
/// desktop loses none.
bool loseEvents(Day& day, int, int) {
    if (day.mac.world().announcesChanges) return false;
    day.mac.loseEvents();
    return true;
}

bool doubleEvents(Day& day, int, int areDoubled) {
    day.mac.doubleEvents(areDoubled != 0);
    return true;
}

bool delayEvents(Day& day, int kind, int) {
    constexpr double seconds[] = {0, 0.1, 2};
    day.mac.delayEvents(seconds[kind]);
    return true;
}

/// A server that announces changes always replies, or is gone for good.
bool silenceWindowList(Day& day, int, int answers) {
    if (day.mac.world().announcesChanges) return false;
    day.mac.world().windowListAnswers = answers != 0;
    return true;
}

bool slowDownReads(Day& day, int list, int queue) {
    constexpr double seconds[] = {0, 0, 0.02, 0.7};
    day.mac.world().windowListSeconds = seconds[list];
    day.mac.scheduler.queueLatency = seconds[queue];
    return true;
}

bool removeDock(Day& day, int, int) {
    day.mac.removeDock();
    return true;
}

bool startDock(Day& day, int, int) {
    day.mac.startDock();
    return true;
}

bool changeDisplaysAfterRead(Day& day, int kind, int) {
    constexpr const char* arrangements[] = {"1440x900", "1920x1080 spaces=2, 1440x900"};
    return day.mac.changeDisplaysAfterRead(arrangements[kind]);
}

/// Another system, on which the program is started again: it announces changes or must be polled,
/// and lacks some function.
bool changeSystem(Day& day, int isPolled, int lacks) {
    constexpr const char* functions[] = {"CoreDockSetTileSize", "CoreDockGetAutoHideEnabled",
                                         "CGSMainConnectionID", "CGSCopyManagedDisplaySpaces",
                                         "_AXUIElementGetWindow"};
    auto& world = day.mac.world();
    day.stage.kill();
    day.mac.setAnnouncesChanges(isPolled == 0);
    world.events = {};
    world.windowListAnswers = true;
    day.mac.restoreFunctions();
    if (lacks < 5) day.mac.removeFunction(functions[lacks]);
    day.stage.start();
    return true;
}

} // namespace

std::vector<Act> faultActs() {
    constexpr int ordinary = Day::appCount - 1;
    return {
        {"hang", 4, Day::appCount, 2, hang},
        {"answerSlowly", 2, Day::appCount, 4, answerSlowly},
        {"lieAboutFrames", 2, Day::appCount, 2, lieAboutFrames},
        {"dieDuringRead", 3, ordinary, 6, dieDuringRead},
        {"refuseToQuit", 2, Day::appCount, 2, refuseToQuit},
        {"loseEvents", 2, 1, 1, loseEvents},
        {"doubleEvents", 2, 1, 2, doubleEvents},
        {"delayEvents", 3, 3, 1, delayEvents},
        {"silenceWindowList", 3, 1, 2, silenceWindowList},
        {"slowDownReads", 4, 4, 4, slowDownReads},
        {"removeDock", 1, 1, 1, removeDock},
        {"startDock", 2, 1, 1, startDock},
        {"changeDisplaysAfterRead", 1, 2, 1, changeDisplaysAfterRead},
        {"changeSystem", 3, 2, 10, changeSystem},
    };
}

} // namespace larkspan::soak
