#pragma once

#include "platform/Image.h"

#include <string>
#include <vector>

namespace larkspan::qt {

/// An image in memory in one or several sizes, such as a window's icon.
class BitmapImage : public Image {
  public:
    BitmapImage(std::string identity, std::vector<Bitmap> sizes);

    const std::string& identity() const override { return identity_; }
    /// Drawn from the smallest size that is large enough, else from the largest.
    Bitmap bitmap(int pixels) const override;

  private:
    std::string identity_;
    /// Smallest first.
    std::vector<Bitmap> sizes_;
};

} // namespace larkspan::qt
