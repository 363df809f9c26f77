#include "soak/day/Act.h"
#include "soak/day/AtRest.h"

#include <algorithm>
#include <utility>

namespace larkspan::soak {

namespace {

bool passTime(Day& day, int kind, int) {
    constexpr double seconds[] = {0, 0, 0, 0.01, 0.05, 0.2, 0.4, 0.5, 0.7, 1, 2, 3, 31};
    day.mac.scheduler.runFor(seconds[kind]);
    return true;
}

bool isReading(Day& day) {
    return day.controller() && !day.controller()->refresh().isAtRest();
}

/// Nothing happens for a while, and slow or silent parts recover. Then `failureAtRest` checks the
/// rules.
bool rest(Day& day, int, int) {
    auto& world = day.mac.world();
    world.windowListSeconds = 0;
    world.displaysAfterRead.reset();
    day.mac.scheduler.queueLatency = 0;
    for (auto& app : world.apps) {
        // The simulated queues share one thread: a request to an app on one of them delays a read
        // on another.
        app.answerSeconds = 0;
        // A hung app in front is asked repeatedly, which must not kill it now.
        app.callsUntilDeath.reset();
    }
    // Screens that wake up announce themselves; other lost events stay lost.
    if (std::exchange(world.events.areLost, false)) world.screensChanged.emit();
    day.mac.scheduler.runFor(quietSeconds);
    // A request to a hung app in front also delays reads, until it times out.
    for (int tenths = 0; tenths < 6 && isReading(day); ++tenths)
        day.mac.scheduler.runFor(0.1);
    return true;
}

bool pinOutside(Day& day, int app, int isPinned) {
    const auto identifier = Day::identifier(app);
    const auto& pinned = day.mac.world().pinned;
    const bool was = std::ranges::find(pinned, identifier) != pinned.end();
    if (was == (isPinned != 0)) return false;
    ++day.pinActs;
    if (isPinned)
        day.mac.pin(identifier);
    else
        day.mac.unpin(identifier);
    return true;
}

bool shufflePinsOutside(Day& day, int by, int) {
    auto ids = day.mac.world().pinned;
    if (ids.size() < 2) return false;
    std::ranges::rotate(ids, ids.begin() + 1 + by % static_cast<int>(ids.size() - 1));
    ++day.pinActs;
    day.mac.setPinned(ids);
    return true;
}

bool restartDock(Day& day, int, int) {
    day.mac.restartDock();
    return true;
}

/// The user changes the Dock in the system's settings.
bool setDock(Day& day, int kind, int) {
    auto dock = day.mac.world().dock;
    switch (kind) {
    case 0:
        dock.autoHide = !dock.autoHide;
        break;
    case 1:
        dock.place.orientation = dock.place.orientation == 2 ? 3 : 2;
        break;
    case 2:
        dock.magnification = !dock.magnification;
        break;
    default:
        dock.tileSize = dock.tileSize > 0.5F ? 0.2F : 0.7F;
    }
    day.mac.setDock(dock);
    return true;
}

/// The strip of the Dock is higher or lower than its icons need.
bool distortStrip(Day& day, int kind, int) {
    constexpr double surplus[] = {0, 0, 3, -4};
    day.mac.world().stripSurplus = surplus[kind];
    day.mac.world().screensMayHaveChanged();
    return true;
}

bool fillTrash(Day& day, int kind, int) {
    const std::optional<std::size_t> counts[] = {0, 3, std::nullopt};
    day.mac.setTrash(counts[kind]);
    return true;
}

bool jumpClock(Day& day, int kind, int) {
    constexpr double seconds[] = {-86400, -3600, 3600, 86400};
    day.mac.scheduler.jumpWallClock(seconds[kind]);
    return true;
}

bool sleepAndWake(Day& day, int kind, int) {
    constexpr double seconds[] = {10, 3600, 36000};
    day.mac.scheduler.sleepFor(seconds[kind]);
    return true;
}

bool permit(Day& day, int permission, int isGranted) {
    if (permission == 0)
        day.mac.refuseAccessibility(!isGranted);
    else
        day.mac.refuseScreenRecording(!isGranted);
    // With the permission, the window list has titles that it did not have before.
    day.mac.world().windowsDidChange();
    return true;
}

} // namespace

std::vector<Act> systemActs() {
    return {
        {"passTime", 260, 13, 1, passTime},
        {"rest", 24, 1, 1, rest},
        {"pinOutside", 5, Day::appCount, 2, pinOutside},
        {"shufflePinsOutside", 2, 4, 1, shufflePinsOutside},
        {"restartDock", 2, 1, 1, restartDock},
        {"setDock", 2, 4, 1, setDock},
        {"distortStrip", 2, 4, 1, distortStrip},
        {"fillTrash", 4, 3, 1, fillTrash},
        {"jumpClock", 3, 4, 1, jumpClock},
        {"sleepAndWake", 3, 3, 1, sleepAndWake},
        {"permit", 2, 2, 2, permit},
    };
}

} // namespace larkspan::soak
