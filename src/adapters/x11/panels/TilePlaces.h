#pragma once

#include "adapters/x11/connection/X11Connection.h"
#include "adapters/x11/windows/DesktopSnapshot.h"
#include "platform/Geometry.h"

#include <array>
#include <map>
#include <unordered_map>

namespace larkspan::x11 {

/// Stores the position of its application's tile on each window (`_NET_WM_ICON_GEOMETRY`), so that
/// the window manager can animate minimising. Writes only if the position changed. Main thread
/// only.
class TilePlaces {
  public:
    explicit TilePlaces(X11Connection& connection)
        : connection_(connection) {}

    /// Display coordinates, by application.
    void setTiles(DisplayId display, const std::map<ProcessId, Rect>& tiles);
    void setDesktop(DesktopSnapshotRef desktop);

  private:
    /// In pixels: left, top, width, height.
    using Place = std::array<std::uint32_t, 4>;

    void write();
    std::optional<Place> placeFor(const ClientWindow& window) const;
    void write(WindowId window, const Place& place);

    X11Connection& connection_;
    DesktopSnapshotRef desktop_ = std::make_shared<const DesktopSnapshot>();
    std::map<DisplayId, std::map<ProcessId, Rect>> tiles_;
    std::unordered_map<WindowId, Place> written_;
};

} // namespace larkspan::x11
