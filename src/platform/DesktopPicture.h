#pragma once

#include "platform/Geometry.h"
#include "platform/Handle.h"
#include "platform/Image.h"

#include <functional>
#include <optional>

namespace larkspan {

/// How a translucent panel gets the picture of what is below it.
class DesktopPicture {
  public:
    virtual ~DesktopPicture() = default;
    /// Whether transparent pixels of a window show what is below (a compositor is running).
    virtual bool isComposited() const = 0;
    /// The desktop's picture under the rectangle (display coordinates), in the screen's pixels;
    /// absent if there is none.
    virtual std::optional<Bitmap> under(const Rect& rect) const = 0;
    /// Called after either value changed.
    virtual Handle subscribe(std::function<void()> callback) = 0;
};

} // namespace larkspan
