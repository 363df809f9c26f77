// The cost of the Space map with 20 displays of 30 Spaces each, from recorded results of the window
// server.

#include "adapters/mac/PropertyView.h"
#include "adapters/mac/decode/managedSpaces.h"
#include "spaces/RecordedWindowServer.h"
#include "spaces/SpaceMapReader.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <string>
#include <utility>
#include <vector>

namespace larkspan {
namespace {

constexpr DisplayId displayCount = 20;
constexpr SpaceId spacesEach = 30;

SpaceId spaceId(DisplayId display, SpaceId index) {
    return display * 100 + index + 1;
}

std::string identifierOf(DisplayId display) {
    return fmt::format("37D8832A-2D66-02CA-B9F7-8F30A301B2{:02}", display);
}

struct Desk {
    explicit Desk(WindowId windows = 0) {
        server.displays.emplace();
        for (DisplayId display = 0; display < displayCount; ++display) {
            screens.push_back(
                screenAt(display + 1, identifierOf(display), {1920.0 * display, 0, 1920, 1080}));
            ManagedDisplay managed{
                .displayIdentifier = identifierOf(display), .currentSpace = {}, .spaces = {}};
            for (SpaceId index = 0; index < spacesEach; ++index) {
                const auto space = spaceId(display, index);
                managed.spaces.push_back({.id64 = space,
                                          .type = index % 10 == 9 ? 4 : 0,
                                          .uuid = identifierOf(display)});
                server.windows[space];
            }
            managed.currentSpace = managed.spaces.front();
            server.displays->push_back(std::move(managed));
        }
        for (WindowId window = 0; window < windows; ++window)
            server.windows[spaceId(window % displayCount, window / displayCount % spacesEach)]
                .push_back(window + 1);
    }

    RecordedWindowServer server;
    std::vector<Screen> screens;
};

/// By the number of windows on all Spaces.
void readSpaces(benchmark::State& state) {
    const Desk desk(static_cast<WindowId>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(readSpaceMap(desk.server, *desk.server.displays, desk.screens));
}
BENCHMARK(readSpaces)->Arg(0)->Arg(1000)->Arg(10'000)->Unit(benchmark::kMicrosecond);

/// The step before that on a Mac.
void decodeManagedDisplays(benchmark::State& state) {
    using Dictionary = PropertyValue::Dictionary;
    PropertyValue::Array displays;
    for (DisplayId display = 0; display < displayCount; ++display) {
        PropertyValue::Array spaces;
        for (SpaceId index = 0; index < spacesEach; ++index)
            spaces.emplace_back(
                Dictionary{{"id64", static_cast<std::int64_t>(spaceId(display, index))},
                           {"type", 0},
                           {"uuid", identifierOf(display)}});
        const auto current = spaces.front();
        displays.emplace_back(Dictionary{{"Display Identifier", identifierOf(display)},
                                         {"Current Space", current},
                                         {"Spaces", std::move(spaces)}});
    }
    const PropertyValue list(std::move(displays));
    for (auto _ : state)
        benchmark::DoNotOptimize(mac::managedDisplays(mac::PropertyView(&list)));
}
BENCHMARK(decodeManagedDisplays)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace larkspan
