#pragma once

#include "platform/Image.h"

#include <string>

namespace larkspan::sim {

/// An app icon drawn from its bundle identifier: a rounded tile with a gradient and a white sign,
/// always the same for the same identifier. The empty identifier gives the generic icon. Needs no
/// graphics library and is sharp at any size.
class DrawnIcon final : public Image {
  public:
    explicit DrawnIcon(const std::string& bundleIdentifier);

    const std::string& identity() const override { return identity_; }
    Bitmap bitmap(int pixels) const override;

  private:
    std::string identity_;
    std::size_t sign_ = 0;
    /// Degrees around the colour circle.
    double hue_ = 0;
    double saturation_ = 0;
};

} // namespace larkspan::sim
