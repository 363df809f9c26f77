#pragma once

#include "platform/Geometry.h"
#include "platform/Identifiers.h"

#include <functional>

namespace larkspan {

/// The view that lets pictures of windows fly into a tile and out of it. This one has no pictures,
/// so that no flight lasts. Main thread only.
class WindowFlights {
  public:
    enum class Direction { intoTile, outOfTile };

    virtual ~WindowFlights() = default;
    /// Takes pictures of the app's visible windows; `ready` is called once there are any, and at
    /// once where there will be none.
    virtual void takePictures(ProcessId, std::function<void()> ready) { ready(); }
    /// Lets the app's pictures fly, from wherever they are when they are in the air. The frame is
    /// in screen coordinates. Answers the seconds it takes; 0 when there is nothing to show.
    virtual double fly(ProcessId, const Rect& /*tileFrame*/, Direction) { return 0; }
    /// Takes the app's pictures away.
    virtual void land(ProcessId) {}
};

} // namespace larkspan
