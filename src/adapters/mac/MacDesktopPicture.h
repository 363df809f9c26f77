#pragma once

#include "platform/DesktopPicture.h"

namespace larkspan::mac {

/// The window server always composes: what lies beneath shows through by itself.
class MacDesktopPicture final : public DesktopPicture {
  public:
    bool isComposited() const override { return true; }
    std::optional<Bitmap> under(const Rect&) const override { return std::nullopt; }
    Handle subscribe(std::function<void()>) override { return {}; }
};

} // namespace larkspan::mac
