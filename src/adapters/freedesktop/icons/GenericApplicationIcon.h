#pragma once

#include "platform/Image.h"

#include <string>

namespace larkspan::freedesktop {

/// The image of an application without an icon, for desktops without any icon theme.
class GenericApplicationIcon : public Image {
  public:
    const std::string& identity() const override { return identity_; }
    Bitmap bitmap(int pixels) const override;

  private:
    std::string identity_ = "generic application";
};

} // namespace larkspan::freedesktop
