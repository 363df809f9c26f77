#pragma once

#include "platform/Geometry.h"
#include "platform/Handle.h"
#include "platform/Image.h"

#include <functional>
#include <optional>

namespace larkspan {

/// How a translucent panel can come by what lies beneath it.
class DesktopPicture {
  public:
    virtual ~DesktopPicture() = default;
    /// True when transparent pixels of a window show what lies beneath (a compositor runs).
    virtual bool isComposited() const = 0;
    /// The desktop's picture under the rectangle (display coordinates), at the screen's pixels;
    /// absent when there is none to be had.
    virtual std::optional<Bitmap> under(const Rect& rect) const = 0;
    /// Called after either answer changed.
    virtual Handle subscribe(std::function<void()> callback) = 0;
};

} // namespace larkspan
