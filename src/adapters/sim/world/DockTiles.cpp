#include "adapters/sim/world/DockTiles.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace larkspan::sim {

namespace {

/// Seconds of one bounce, and its height relative to the tile's.
constexpr double bounceSeconds = 0.8;
constexpr double bounceHeight = 0.6;

/// Whose tile has this position. With neither, it is the Trash.
struct Place {
    const App* app = nullptr;
    /// An app that is pinned to the Dock.
    const InstalledApp* kept = nullptr;

    std::string key() const {
        if (kept) return kept->bundleIdentifier;
        return app ? fmt::format("process {}", app->pid) : "trash";
    }
};

double liftAfter(double seconds) {
    const double part = std::fmod(seconds, bounceSeconds) / bounceSeconds;
    return bounceHeight * 4 * part * (1 - part);
}

double liftOf(const App& app, double now) {
    if (!app.finishedLaunching) return liftAfter(now);
    if (!app.attention) return 0;
    const double elapsed = now - app.attention->since;
    return app.attention->isCritical || elapsed < bounceSeconds ? liftAfter(elapsed) : 0;
}

std::string urlOf(const std::string& path) {
    std::string url = "file://";
    for (const char c : path)
        url += c == ' ' ? "%20" : std::string(1, c);
    return url + '/';
}

std::vector<Place> placesInOrder(const World& world) {
    std::vector<Place> places;
    const auto keep = [&](const std::string& id) {
        const auto bundle = world.installed.find(id);
        if (bundle == world.installed.end()) return;
        const auto app = std::ranges::find(world.apps, std::optional(id), &App::bundleIdentifier);
        places.push_back({app == world.apps.end() ? nullptr : &*app, &bundle->second});
    };
    keep(finderIdentifier);
    for (const auto& id : world.pinned)
        if (id != finderIdentifier) keep(id);
    for (const App& app : world.apps) {
        const bool isShown = std::ranges::find(places, &app, &Place::app) != places.end();
        if (!isShown && app.policy == ActivationPolicy::regular) places.push_back({&app, nullptr});
    }
    places.push_back({});
    return places;
}

/// `lift` is how far the tile is in the air, relative to its size.
Rect placeOf(const World& world, double number, double size, double lift) {
    const Rect screen = world.displays.empty() ? Rect{} : world.displays.front().bounds;
    const double along = 10 + number * (size + 4);
    const double across = (world.dock.autoHide ? -size - 4 : 4) + lift * size;
    switch (world.dock.place.orientation) {
    case 3:
        return {screen.x + across, screen.y + along, size, size};
    case 4:
        return {screen.maxX() - size - across, screen.y + along, size, size};
    default:
        return {screen.x + along, screen.maxY() - size - across, size, size};
    }
}

DockTile tileAt(const World& world, const Place& place, std::size_t number) {
    const double size = std::floor(16 + static_cast<double>(world.dock.tileSize) * 112);
    const App* app = place.app;
    DockTile tile{.key = place.key(), .isRunning = app != nullptr};
    if (app) {
        tile.title = app->name;
        tile.url = app->path ? urlOf(*app->path) : std::string();
        tile.badge = app->badge;
    } else if (place.kept) {
        tile.title = place.kept->name;
        tile.url = urlOf(place.kept->path);
    } else {
        tile.title = "Trash";
        tile.subrole = "AXTrashDockItem";
    }
    const double lift = app ? liftOf(*app, world.scheduler.uptime()) : 0;
    tile.frame = placeOf(world, static_cast<double>(number), size, lift);
    return tile;
}

} // namespace

std::vector<DockTile> dockTiles(const World& world) {
    std::vector<DockTile> tiles;
    for (const Place& place : placesInOrder(world))
        tiles.push_back(tileAt(world, place, tiles.size()));
    return tiles;
}

std::optional<DockTile> dockTile(const World& world, std::string_view key) {
    const auto places = placesInOrder(world);
    for (std::size_t i = 0; i < places.size(); ++i)
        if (places[i].key() == key) return tileAt(world, places[i], i);
    return std::nullopt;
}

} // namespace larkspan::sim
