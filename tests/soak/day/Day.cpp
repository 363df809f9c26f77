#include "soak/day/Day.h"

#include "soak/day/Act.h"

#include <fmt/format.h>

namespace larkspan::soak {

namespace {

std::string nameOf(int app) {
    return app == 0 ? "Finder" : fmt::format("app{}", app);
}

/// The element of the list at that index, cyclically; nullptr if the list is empty.
template <typename T>
const T* atRound(const std::vector<T>& list, int count) {
    return list.empty() ? nullptr : &list[static_cast<std::size_t>(count) % list.size()];
}

} // namespace

Day::Day() {
    for (int app = 1; app < appCount; ++app)
        mac.install(identifier(app), nameOf(app));
    mac.setPinned({identifier(1), identifier(2), identifier(3)});
    mac.scheduler.runUntilIdle();
    // A menu does not outlive its program.
    stage.onEnd = [this] {
        openMenu.clear();
        ++runsEnded;
    };
    stage.start();
}

bool Day::perform(const Step& step) {
    return actNamed(step.act).perform(*this, step.a, step.b);
}

std::string Day::identifier(int app) {
    return app == 0 ? finderIdentifier : "com.example." + nameOf(app);
}

ProcessId Day::process(int app, int copy) const {
    std::vector<ProcessId> copies;
    for (const auto& each : mac.world().apps)
        if (each.name == nameOf(app)) copies.push_back(each.pid);
    const auto* pid = atRound(copies, copy);
    return pid ? *pid : 0;
}

WindowId Day::window(int app, int count) const {
    // By number, which is their age: clicks change the order on screen.
    std::vector<WindowId> own;
    for (const auto& each : mac.world().windows) {
        const auto* owner = mac.world().app(each.pid);
        if (owner && owner->name == nameOf(app)) own.push_back(each.id);
    }
    std::ranges::sort(own);
    const auto* id = atRound(own, count);
    return id ? *id : 0;
}

DisplayId Day::display(int count) const {
    const auto* display = atRound(mac.world().displays, count);
    return display ? display->id : 0;
}

AppController* Day::controller() {
    return stage.delegate() ? &stage.delegate()->controller() : nullptr;
}

std::optional<Day::Tile> Day::tile(int app, int count) {
    if (!controller()) return std::nullopt;
    const auto& store = controller()->store();
    std::vector<Tile> tiles;
    const auto take = [&](const DockItem& item, const DisplayGroup* group) {
        if (item.id != identifier(app) && item.name != nameOf(app)) return;
        tiles.push_back({item, group ? std::optional(*group) : std::nullopt});
    };
    for (const auto& item : *store.pinnedItems())
        take(item, nullptr);
    for (const auto& group : *store.windowAppGroups())
        for (const auto& item : group.items)
            take(item, &group);
    for (const auto& item : *store.backgroundItems())
        take(item, nullptr);
    const auto* found = atRound(tiles, count);
    return found ? std::optional(*found) : std::nullopt;
}

} // namespace larkspan::soak
