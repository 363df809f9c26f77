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
    stage.onEnd = [this] { ++runsEnded; };
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

std::optional<TileOnBar> Day::tile(int app, int count) const {
    const auto* bars = controller() ? controller()->bars() : nullptr;
    if (!bars) return std::nullopt;
    std::vector<TileOnBar> tiles;
    for (const auto& bar : bars->bars()) {
        bar.interaction->catchUp();
        const auto& list = bar.interaction->tiles();
        for (std::size_t i = 0; i < list.size(); ++i)
            if (list[i].id() == identifier(app) || list[i].name() == nameOf(app))
                tiles.push_back({bar.interaction.get(), static_cast<int>(i)});
    }
    const auto* found = atRound(tiles, count);
    return found ? std::optional(*found) : std::nullopt;
}

} // namespace larkspan::soak
