#pragma once

#include "platform/Image.h"

#include <string>
#include <string_view>

namespace larkspan::sim {

/// An app icon drawn from its bundle identifier: a rounded tile with a gradient and a sign on it,
/// the same for the same identifier. The empty identifier draws the generic icon. Draws without
/// any picture library, at any size.
class DrawnIcon final : public Image {
  public:
    explicit DrawnIcon(std::string bundleIdentifier);

    const std::string& identity() const override { return identity_; }
    Bitmap bitmap(int pixels) const override;

  private:
    std::string identity_;
    std::uint32_t top_ = 0;
    std::uint32_t bottom_ = 0;
};

} // namespace larkspan::sim
