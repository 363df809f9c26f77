// The cost of one event, from a window to the regrouped model, on the main thread. The figures
// include the work of the simulated Mac. All are CPU times, which depend less on other programs.

#include "model/ModelOnMac.h"
#include "spaces/WindowReader.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <algorithm>
#include <ctime>
#include <utility>
#include <vector>

namespace larkspan {
namespace {

double processorSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// A Mac with two displays of four Spaces each, with that many windows on all of them, five for
/// each app up to that many apps, and one more app without a window.
struct Desktop : ModelOnMac {
    explicit Desktop(std::int64_t windows, bool announcesChanges = true,
                     std::int64_t mostApps = 200)
        : ModelOnMac("1920x1080 spaces=4, 1920x1080 spaces=4") {
        mac.setAnnouncesChanges(announcesChanges);
        const auto appCount = std::clamp<std::int64_t>(windows / 5, 1, mostApps);
        std::vector<ProcessId> apps;
        for (std::int64_t i = 0; i < appCount; ++i)
            apps.push_back(mac.launch(fmt::format("com.example.app{}", i)));
        for (std::int64_t i = 0; i < windows; ++i) {
            const auto n = static_cast<std::size_t>(i);
            const auto display = mac.displayAt(n % 2);
            mac.openWindow(apps[n % apps.size()],
                           {.title = fmt::format("Window {} of a document with a name", i),
                            .display = display,
                            .space = mac.spaceAt(display, (n / 2) % 4)});
        }
        newcomer = mac.launch("com.example.newcomer");
        mac.scheduler.runUntilIdle();
        start();
    }

    ProcessId newcomer = 0;
};

/// A window opens or closes; its app moves from the background items to the groups or back.
void oneEvent(benchmark::State& state) {
    Desktop desktop(state.range(0));
    auto& mac = desktop.mac;
    double worst = 0;
    WindowId window = 0;
    for (auto _ : state) {
        if (window)
            mac.closeWindow(std::exchange(window, 0));
        else
            window = mac.openWindow(desktop.newcomer);
        const double start = processorSeconds();
        mac.scheduler.runUntilIdle();
        const double seconds = processorSeconds() - start;
        state.SetIterationTime(seconds);
        worst = std::max(worst, seconds);
    }
    state.counters["worst_ms"] = worst * 1000;
}
BENCHMARK(oneEvent)->Arg(50)->Arg(500)->Arg(5000)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// An hour in which a window opens or closes every other second; without these events, an idle
/// hour.
void oneHour(benchmark::State& state, bool announcesChanges, bool isInUse) {
    constexpr int seconds = 3600;
    Desktop desktop(state.range(0), announcesChanges);
    auto& mac = desktop.mac;
    WindowId window = 0;
    for (auto _ : state) {
        for (int second = 0; second < seconds; second += 2) {
            if (window)
                mac.closeWindow(std::exchange(window, 0));
            else if (isInUse)
                window = mac.openWindow(desktop.newcomer);
            mac.scheduler.runFor(2);
        }
    }
}
void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(50)->Arg(500)->Arg(5000)->Iterations(1)->Unit(benchmark::kMillisecond);
}
BENCHMARK_CAPTURE(oneHour, polledAndIdle, false, false)->Apply(sizes);
BENCHMARK_CAPTURE(oneHour, polledAndInUse, false, true)->Apply(sizes);
BENCHMARK_CAPTURE(oneHour, announcedAndIdle, true, false)->Apply(sizes);
BENCHMARK_CAPTURE(oneHour, announcedAndInUse, true, true)->Apply(sizes);

/// The read alone, on the main thread, as on a platform that reads at once.
void readWindows(benchmark::State& state) {
    Desktop desktop(state.range(0));
    const WindowReader reader(desktop.platform.windowServer);
    const auto screens = desktop.platform.screens.screens();
    for (auto _ : state)
        benchmark::DoNotOptimize(reader.read(screens));
}
BENCHMARK(readWindows)->Arg(50)->Arg(500)->Arg(5000)->Unit(benchmark::kMicrosecond);

/// The simulated window server's part of it.
void answerOfTheWindowServer(benchmark::State& state) {
    Desktop desktop(state.range(0));
    const auto& server = desktop.platform.windowServer;
    for (auto _ : state) {
        benchmark::DoNotOptimize(server.windowList(WindowListOption::excludeDesktopElements));
        for (const auto& [space, display] : desktop.store.spaceMap()->owners)
            benchmark::DoNotOptimize(server.windowsOfSpace(space));
    }
}
BENCHMARK(answerOfTheWindowServer)->Arg(50)->Arg(500)->Arg(5000)->Unit(benchmark::kMicrosecond);

/// Rebuilds the item lists from the current state.
void rebuild(benchmark::State& state) {
    Desktop desktop(state.range(0));
    for (auto _ : state)
        desktop.store.rebuild();
}
BENCHMARK(rebuild)->Arg(50)->Arg(500)->Arg(5000)->Arg(10'000)->Unit(benchmark::kMicrosecond);

/// The same by the number of apps, with five windows each.
void rebuildByApps(benchmark::State& state) {
    Desktop desktop(state.range(0) * 5, true, state.range(0));
    for (auto _ : state)
        desktop.store.rebuild();
}
BENCHMARK(rebuildByApps)->Arg(20)->Arg(200)->Arg(2000)->Unit(benchmark::kMicrosecond);

/// Applies a read in which nothing changed.
void applyWindowRead(benchmark::State& state) {
    Desktop desktop(state.range(0));
    const WindowReader reader(desktop.platform.windowServer);
    const auto read = *reader.read(desktop.platform.screens.screens());
    for (auto _ : state)
        benchmark::DoNotOptimize(desktop.store.applyWindowRead(read));
}
BENCHMARK(applyWindowRead)->Arg(500)->Arg(5000)->Arg(10'000)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace larkspan
