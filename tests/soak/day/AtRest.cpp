#include "soak/day/AtRest.h"

#include "bar/BarCover.h"
#include "model/ModelOnMac.h"
#include "tools/trash/TrashWatch.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>

namespace larkspan::soak {

namespace {

constexpr const char* convergence = "at rest the model is what a fresh read would give";
/// The polls of windows, Spaces and badges, the housekeeping, the Trash, delayed reports of moves,
/// the permissions window, the keyboard, the next request to a hung app in front, and the end of
/// the launching mark of each app that was launched from the bar.
constexpr std::size_t mostTimers = 10 + Day::appCount;

/// Icons are cached while their tiles are shown, and the frontmost app is compared elsewhere.
std::vector<RunningApplication> comparable(std::vector<RunningApplication> running) {
    for (auto& app : running) {
        app.isActive = false;
        app.icon = nullptr;
    }
    return running;
}

std::vector<DockItem> comparable(std::vector<DockItem> items) {
    for (auto& item : items)
        item.icon = nullptr;
    return items;
}

std::vector<DisplayGroup> comparable(std::vector<DisplayGroup> groups) {
    for (auto& group : groups)
        group.items = comparable(std::move(group.items));
    return groups;
}

/// The positions of the tiles as text: sections, groups and the ids in them.
std::string layoutOf(const DockStore& store) {
    const auto ids = [](const std::vector<DockItem>& items) {
        std::vector<std::string> list;
        for (const auto& item : items)
            list.push_back(item.app ? fmt::format("{}({})", item.id, item.app->pid) : item.id);
        return fmt::format("{}", fmt::join(list, " "));
    };
    auto text = fmt::format("pinned [{}]", ids(*store.pinnedItems()));
    for (const auto& group : *store.windowAppGroups())
        text += fmt::format(" {}/{}{} [{}]", group.slot.display, group.slot.space.value_or(0),
                            group.isRing ? " ring" : "", ids(group.items));
    return text + fmt::format(" background [{}]", ids(*store.backgroundItems()));
}

/// A tile with its section and its slots. An app without windows is where it was last seen, which a
/// fresh read cannot know: only its section is compared.
std::map<std::string, std::set<Slot>> placesOf(const DockStore& store) {
    std::map<std::string, std::set<Slot>> places;
    for (const auto& group : *store.windowAppGroups())
        for (const auto& item : group.items) {
            auto& slots = places[item.id];
            if (store.windowSlots().contains(item.app->pid)) slots.insert(group.slot);
        }
    return places;
}

/// Compares the store with the fresh one.
MaybeFailure sameFacts(const DockStore& store, const DockStore& fresh) {
    const std::pair<const char*, bool> facts[] = {
        {"the running apps", comparable(store.running()) == comparable(fresh.running())},
        {"the process in front", *store.frontmostPID() == *fresh.frontmostPID()},
        {"the fronts of displays", *store.frontDisplays() == *fresh.frontDisplays()},
        {"the Spaces in front", *store.frontSpaces() == *fresh.frontSpaces()},
        {"the pinned list", store.pinnedIDs() == fresh.pinnedIDs()},
        {"what is full screen", store.fullScreen() == fresh.fullScreen()},
        {"the Space map", store.spaceMap() == fresh.spaceMap()},
        {"the windows", store.latestWindows() == fresh.latestWindows()},
        {"the processes with windows", store.windowPIDs() == fresh.windowPIDs()},
        {"the displays of windows", store.windowDisplays() == fresh.windowDisplays()},
        {"the slots of windows", store.windowSlots() == fresh.windowSlots()},
        {"the displays with groups", store.groupedScreens() == fresh.groupedScreens()},
        {"the pinned tiles", comparable(*store.pinnedItems()) == comparable(*fresh.pinnedItems())},
    };
    for (const auto& [name, isSame] : facts)
        if (!isSame)
            return Failure{fmt::format("{}: {}", convergence, name),
                           fmt::format("{}\nrather than {}", layoutOf(store), layoutOf(fresh))};
    return std::nullopt;
}

MaybeFailure samePlaces(const DockStore& store, const DockStore& fresh) {
    if (store.isPointerOnBar()) return std::nullopt;
    return require(placesOf(store) == placesOf(fresh) &&
                       comparable(*store.backgroundItems()) == comparable(*fresh.backgroundItems()),
                   "at rest the tiles stand where a fresh read would put them",
                   fmt::format("{}\nrather than {}", layoutOf(store), layoutOf(fresh)));
}

/// With all that is remembered, building the lists again changes nothing.
MaybeFailure rebuildChangesNothing(DockStore& store) {
    const auto before = layoutOf(store);
    const auto groups = comparable(*store.windowAppGroups());
    const auto background = comparable(*store.backgroundItems());
    store.rebuild();
    return require(comparable(*store.windowAppGroups()) == groups &&
                       comparable(*store.backgroundItems()) == background,
                   "at rest a rebuild changes nothing",
                   fmt::format("{}\nbecomes {}", before, layoutOf(store)));
}

/// Windows on Spaces out of view about which their apps were asked, and which do not count as
/// windows.
MaybeFailure closedFailure(const sim::World& world, const std::set<WindowId>& closed) {
    const auto isOrdinary = [&](const sim::Window& window) {
        return closed.contains(window.id) &&
               (window.subrole == "AXStandardWindow" || window.subrole == "AXDialog");
    };
    return require(std::ranges::none_of(world.windows, isOrdinary),
                   "no window that its app would confirm counts as closed");
}

/// An app that was asked earlier may hang by now, so the fresh model is given the result.
void leaveOut(const std::set<WindowId>& closed, BareModel& fresh) {
    if (closed.empty()) return;
    const WindowReader reader(fresh.platform.windowServer);
    auto read = reader.read(fresh.platform.screens.screens(), closed);
    if (!read) return;
    fresh.store.applyWindowRead(*std::move(read));
    fresh.store.rebuild();
}

MaybeFailure modelFailure(Day& day) {
    const auto& world = day.mac.world();
    auto& store = day.controller()->store();
    const auto closed = day.controller()->refresh().closedWindows();
    for (const auto& [pid, slots] : store.seenSlots())
        if (!world.app(pid)) return Failure{"the memory of an app ends with it", {}};
    if (!day.controller()->refresh().isAtRest())
        return Failure{"every flag of the reads is back at rest", {}};
    if (*store.isTrashEmpty() != isTrashEmpty(day.mac.trash))
        return Failure{"at rest the Trash tile shows what is in the Trash", {}};
    if (auto failure = closedFailure(world, closed)) return failure;
    // Nobody can know more than before.
    if (!world.windowListAnswers) return std::nullopt;
    BareModel fresh(day.mac.platform());
    fresh.store.setShowsEmptyDesktops(*store.showsEmptyDesktops());
    fresh.start();
    leaveOut(closed, fresh);
    if (auto failure = sameFacts(store, fresh.store)) return failure;
    if (auto failure = samePlaces(store, fresh.store)) return failure;
    return rebuildChangesNothing(store);
}

MaybeFailure panelsStandOn(const Day& day, const std::vector<DockBand>& bands) {
    const auto& controller = *day.controller();
    for (const auto& band : bands) {
        const auto& frame = band.screen.frame;
        const auto isOwn = [&](const LivePanels::Panel* panel) {
            return panel->display == band.screen.display;
        };
        if (std::ranges::count_if(day.panels, isOwn) != 1)
            return Failure{"one panel for each screen that wants one", {}};
        const auto& panel = **std::ranges::find_if(day.panels, isOwn);
        const Rect wanted{frame.x, frame.y, frame.width, controller.bars()->height()};
        if (panel.frame != wanted) return Failure{"a panel lies at the bottom of its screen", {}};
        const auto cover = coverOf(frame, controller.store().fullScreen());
        if (panel.isShown != isBarShown(true, cover, false))
            return Failure{"a bar is shown unless its screen is covered", {}};
    }
    return require(day.panels.size() == bands.size(), "one panel for each screen that wants one");
}

MaybeFailure panelsFailure(Day& day) {
    const auto& controller = *day.controller();
    std::vector<Rect> shown;
    for (const auto* panel : day.panels)
        if (panel->isShown) shown.push_back(panel->bar->frame());
    auto known = controller.store().barFrames();
    if (!std::ranges::is_permutation(known, shown))
        return Failure{"the frames of the bars are known", {}};
    if (shown.empty() && controller.store().isPointerOnBar())
        return Failure{"the pointer is on no bar where none shows", {}};
    const auto hasKeyboard = [](const LivePanels::Panel* panel) {
        return *panel->bar->hasKeyboard;
    };
    const auto* overlay = day.controller()->overlay();
    const bool isUsed =
        (overlay && overlay->isMenuOpen()) || std::ranges::any_of(day.panels, hasKeyboard);
    // Where windows are polled the pointer is looked for too; elsewhere the views alone tell.
    if (!isUsed && !day.mac.world().announcesChanges && controller.store().isPointerOnBar() &&
        std::ranges::none_of(
            known, [&](const Rect& bar) { return bar.contains(day.mac.world().pointer); }))
        return Failure{"at rest no tile is held for a pointer that is elsewhere", {}};
    if (controller.mode() == BarMode::systemDock)
        return require(shown.empty(), "no bar is shown while the Dock is in use");
    const auto platform = day.mac.platform();
    const auto bands = DockBand::bands(platform.screens);
    // Without a strip anywhere, the bars may stay where they are until it is back.
    if (bands.empty()) return std::nullopt;
    return panelsStandOn(day, bands);
}

} // namespace

MaybeFailure failureAtRest(Day& day) {
    if (!day.controller())
        return require(day.mac.scheduler.timerCount() == 0,
                       "a program that has quit leaves no timer",
                       fmt::format("{} timers", day.mac.scheduler.timerCount()));
    const auto timers = day.mac.scheduler.timerCount();
    if (timers > mostTimers)
        return Failure{"at rest few timers are set", fmt::format("{} timers", timers)};
    if (auto failure = modelFailure(day)) return failure;
    return panelsFailure(day);
}

} // namespace larkspan::soak
