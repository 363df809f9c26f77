#pragma once

#include "platform/DesktopPicture.h"

namespace larkspan::mac {

/// The window server always composites: translucent windows need no picture of what is below.
class MacDesktopPicture final : public DesktopPicture {
  public:
    bool isComposited() const override { return true; }
    std::optional<Bitmap> under(const Rect&) const override { return std::nullopt; }
    Handle subscribe(std::function<void()>) override { return {}; }
};

} // namespace larkspan::mac
