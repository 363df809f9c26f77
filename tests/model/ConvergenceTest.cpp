#include "model/ModelWorld.h"

#include <gmock/gmock.h>

#include <random>

namespace larkspan {
namespace {

/// A person who does anything at any time, the same for the same seed.
class RandomUser {
  public:
    RandomUser(ModelWorld& world, std::uint32_t seed)
        : mac_(world.mac)
        , world_(world)
        , random_(seed) {}

    void act() {
        switch (pick(13)) {
        case 0:
            world_.launch(fmt::format("app{}", pick(6)), {.hasBundle = pick(8) != 0});
            break;
        case 1:
            if (const auto pid = anyApp(); pid != mac_.finder()) mac_.quit(pid);
            break;
        case 2:
        case 3:
        case 4:
            openWindow();
            break;
        case 5:
            mac_.closeWindow(anyWindow());
            break;
        case 6:
            mac_.minimize(anyWindow());
            break;
        case 7:
            mac_.focusWindow(anyWindow());
            break;
        case 8:
            mac_.hide(anyApp());
            break;
        case 9:
            mac_.activate(anyApp());
            break;
        case 10:
            mac_.switchSpace(anyDisplay(), pick(3));
            break;
        case 11:
            mac_.moveToDisplay(anyWindow(), anyDisplay());
            break;
        default:
            plug();
        }
    }

    std::size_t pick(std::size_t count) { return random_() % count; }

  private:
    DisplayId anyDisplay() { return mac_.displayAt(pick(mac_.world().displays.size())); }
    ProcessId anyApp() { return mac_.world().apps[pick(mac_.world().apps.size())].pid; }
    WindowId anyWindow() {
        const auto& windows = mac_.world().windows;
        return windows.empty() ? 0 : windows[pick(windows.size())].id;
    }
    void openWindow() {
        const auto display = anyDisplay();
        const auto space = mac_.spaceAt(display, pick(2));
        mac_.openWindow(anyApp(), {.display = display,
                                   .space = space ? std::optional(space) : std::nullopt,
                                   .everySpace = pick(9) == 0});
    }
    void plug() {
        if (mac_.world().displays.size() > 2)
            mac_.unplug(mac_.displayAt(pick(2)));
        else
            mac_.addDisplay("1280x720 spaces=3");
    }

    sim::SimMac& mac_;
    ModelWorld& world_;
    std::mt19937 random_;
};

/// What must hold at rest, whatever happened before.
void expectAtRest(const ModelWorld& world) {
    const auto& store = world.store;
    const auto fresh = WindowReader(world.platform.windowServer)
                           .read(world.platform.screens.screens())
                           .value_or(WindowRead{});
    EXPECT_EQ(store.windowSlots(), fresh.windowSlots);
    EXPECT_EQ(store.windowPIDs(), fresh.windowPIDs);
    EXPECT_EQ(store.latestWindows(), fresh.windows);
    EXPECT_EQ(store.spaceMap(), fresh.spaceMap);

    ASSERT_FALSE(store.pinnedItems()->empty());
    EXPECT_EQ(store.pinnedItems()->front().id, finderIdentifier);
    std::map<ProcessId, std::set<Slot>> shownIn;
    for (const auto& group : *store.windowAppGroups())
        for (const auto& item : group.items)
            EXPECT_TRUE(shownIn[item.app->pid].insert(group.slot).second) << "twice in one group";
    std::set<ProcessId> inBackground;
    for (const auto& item : *store.backgroundItems())
        inBackground.insert(item.app->pid);

    for (const auto& app : store.running()) {
        const bool isWindowApp = app.isHidden || fresh.windowPIDs.contains(app.pid);
        EXPECT_EQ(shownIn.contains(app.pid), isWindowApp) << app.localizedName;
        EXPECT_EQ(inBackground.contains(app.pid), !isWindowApp) << app.localizedName;
        const auto slots = fresh.windowSlots.find(app.pid);
        if (slots == fresh.windowSlots.end()) continue;
        EXPECT_EQ(shownIn[app.pid], slots->second) << app.localizedName;
    }
}

class Convergence : public testing::TestWithParam<bool> {};

TEST_P(Convergence, LeavesTheModelAsAFreshReadWouldMakeIt) {
    for (std::uint32_t seed = 1; seed <= 40; ++seed) {
        ModelWorld world("1440x900 spaces=3, 1280x720 spaces=2");
        world.mac.setAnnouncesChanges(GetParam());
        world.start();
        RandomUser user(world, seed);
        for (int burst = 0; burst < 60; ++burst) {
            for (auto actions = 1 + user.pick(5); actions > 0; --actions)
                user.act();
            // What is announced is known at once; what is polled, after the next full read.
            if (GetParam())
                world.settle();
            else
                world.mac.scheduler.runFor(3);
            expectAtRest(world);
            if (testing::Test::HasFailure()) FAIL() << "seed " << seed << ", burst " << burst;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Desktops, Convergence, testing::Bool(), [](const auto& instance) {
    return instance.param ? "Announced" : "Polled";
});

} // namespace
} // namespace larkspan
