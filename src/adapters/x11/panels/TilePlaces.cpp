#include "adapters/x11/panels/TilePlaces.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace larkspan::x11 {

void TilePlaces::setTiles(DisplayId display, const std::map<ProcessId, Rect>& tiles) {
    tiles_[display] = tiles;
    write();
}

void TilePlaces::setDesktop(DesktopSnapshotRef desktop) {
    desktop_ = std::move(desktop);
    write();
}

void TilePlaces::write() {
    auto before = std::exchange(written_, {});
    bool hasChanged = false;
    for (const auto& window : desktop_->windows) {
        const auto place = placeFor(*window);
        if (!place) continue;
        written_[window->id] = *place;
        const auto known = before.extract(window->id);
        if (known && known.mapped() == *place) continue;
        write(window->id, *place);
        hasChanged = true;
    }
    for (const auto& [window, place] : before) {
        if (!desktop_->find(window)) continue;
        xcb_delete_property(connection_.raw(), window, connection_.atoms().netWmIconGeometry);
        hasChanged = true;
    }
    if (hasChanged) connection_.flush();
}

void TilePlaces::write(WindowId window, const Place& place) {
    xcb_change_property(connection_.raw(), XCB_PROP_MODE_REPLACE, window,
                        connection_.atoms().netWmIconGeometry, XCB_ATOM_CARDINAL, 32,
                        static_cast<std::uint32_t>(place.size()), place.data());
}

/// On the window's own display if it has a tile there, else on any.
std::optional<TilePlaces::Place> TilePlaces::placeFor(const ClientWindow& window) const {
    const Rect* tile = nullptr;
    const auto own = desktop_->displayOf(window);
    for (const auto& [display, tiles] : tiles_) {
        const auto found = tiles.find(window.owner);
        if (found != tiles.end() && (!tile || display == own)) tile = &found->second;
    }
    if (!tile) return std::nullopt;
    const double scale = desktop_->screens.empty() ? 1 : desktop_->screens.front().scale;
    const auto pixels = [scale](double points) {
        return static_cast<std::uint32_t>(std::max(0L, std::lround(points * scale)));
    };
    return Place{pixels(tile->x), pixels(tile->y), pixels(tile->width), pixels(tile->height)};
}

} // namespace larkspan::x11
