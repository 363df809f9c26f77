#pragma once

#include "platform/Geometry.h"
#include "platform/Identifiers.h"

#include <functional>

namespace larkspan {

/// The view that flies pictures of windows into a tile and out of it. This class has no pictures,
/// so its flights take no time. Main thread only.
class WindowFlights {
  public:
    enum class Direction { intoTile, outOfTile };

    virtual ~WindowFlights() = default;
    /// Takes pictures of the app's visible windows; `ready` is called when there are some, or at
    /// once if there will be none.
    virtual void takePictures(ProcessId, std::function<void()> ready) { ready(); }
    /// Flies the app's pictures, from their current position if they are in the air. The frame is
    /// in screen coordinates. Returns the seconds it takes; 0 if there is nothing to show.
    virtual double fly(ProcessId, const Rect& /*tileFrame*/, Direction) { return 0; }
    /// Removes the app's pictures.
    virtual void land(ProcessId) {}
};

} // namespace larkspan
