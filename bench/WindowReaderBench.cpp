// The cost of making app windows from the window server's raw entries, on two displays with four
// Spaces each. The window server returns a copy of a recorded list, whose cost is measured too.

#include "adapters/mac/PropertyView.h"
#include "adapters/mac/decode/windowList.h"
#include "spaces/RecordedWindowServer.h"
#include "spaces/WindowPresence.h"
#include "spaces/WindowReader.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <string>
#include <vector>

namespace larkspan {
namespace {

/// Of eight entries, one is above the apps, one is invisible, one is a palette and one has no
/// bounds, so half of the entries count.
WindowListEntry rawEntry(int index) {
    WindowListEntry entry{.layer = index % 8 == 0 ? 25 : 0,
                          .ownerPID = 1000 + index % 200,
                          .alpha = index % 8 == 1 ? 0.0 : 1.0,
                          .bounds = Rect{40.0 * (index % 80), 100, 760, 480},
                          .number = static_cast<WindowId>(index + 1),
                          .isOnScreen = std::nullopt,
                          .name = fmt::format("Window {} of a document with a name", index)};
    if (index % 8 == 2) entry.bounds->width = 40;
    if (index % 8 == 3) entry.bounds.reset();
    if (index / 8 % 4 == 0) entry.isOnScreen = true;
    return entry;
}

struct RecordedDesktop {
    explicit RecordedDesktop(int entries) {
        for (int i = 0; i < entries; ++i)
            server.list->push_back(rawEntry(i));
        server.displays.emplace();
        for (DisplayId display = 1; display <= 2; ++display) {
            const auto identifier = fmt::format("display-{}", display);
            screens.push_back(
                screenAt(display, identifier, {1920.0 * (display - 1), 0, 1920, 1080}));
            ManagedDisplay managed{
                .displayIdentifier = identifier, .currentSpace = {}, .spaces = {}};
            for (SpaceId space = 0; space < 4; ++space)
                managed.spaces.push_back({.id64 = display * 10 + space, .type = 0, .uuid = "u"});
            managed.currentSpace = managed.spaces.front();
            server.displays->push_back(managed);
        }
        for (const auto& entry : *server.list) {
            const bool isLeft = !entry.bounds || entry.bounds->x < 1920;
            const auto space = (isLeft ? 10 : 20) + (*entry.number - 1) / 8 % 4;
            server.windows[space].push_back(*entry.number);
        }
    }

    RecordedWindowServer server;
    std::vector<Screen> screens;
};

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(100)->Arg(1000)->Arg(10'000)->Unit(benchmark::kMicrosecond);
}

void rawAnswer(benchmark::State& state) {
    const RecordedDesktop desktop(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(desktop.server.windowList(WindowListOption::all));
}
BENCHMARK(rawAnswer)->Apply(sizes);

/// The list and the filter.
void listWindows(benchmark::State& state) {
    const RecordedDesktop desktop(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(
            WindowPresence::listWindows(desktop.server, WindowPresence::Listed::everywhere));
}
BENCHMARK(listWindows)->Apply(sizes);

/// The same with the Space map, and the display and the slots of each window.
void readRecordedWindows(benchmark::State& state) {
    const RecordedDesktop desktop(static_cast<int>(state.range(0)));
    const WindowReader reader(desktop.server);
    for (auto _ : state)
        benchmark::DoNotOptimize(reader.read(desktop.screens));
}
BENCHMARK(readRecordedWindows)->Apply(sizes);

/// The step before that on a Mac: the entries of its dictionaries. (Here from our own tree, whose
/// look-ups take the place of the platform's.)
void decodeWindowList(benchmark::State& state) {
    using Dictionary = PropertyValue::Dictionary;
    PropertyValue::Array entries;
    for (int i = 0; i < state.range(0); ++i) {
        const auto entry = rawEntry(i);
        Dictionary dictionary{{"kCGWindowLayer", *entry.layer},
                              {"kCGWindowOwnerPID", *entry.ownerPID},
                              {"kCGWindowAlpha", *entry.alpha},
                              {"kCGWindowNumber", i + 1},
                              {"kCGWindowName", *entry.name}};
        if (entry.isOnScreen) dictionary["kCGWindowIsOnscreen"] = true;
        if (entry.bounds)
            dictionary["kCGWindowBounds"] = Dictionary{{"X", entry.bounds->x},
                                                       {"Y", entry.bounds->y},
                                                       {"Width", entry.bounds->width},
                                                       {"Height", entry.bounds->height}};
        entries.emplace_back(std::move(dictionary));
    }
    const PropertyValue list(std::move(entries));
    for (auto _ : state)
        benchmark::DoNotOptimize(mac::windowList(mac::PropertyView(&list)));
}
BENCHMARK(decodeWindowList)->Apply(sizes);

} // namespace
} // namespace larkspan
