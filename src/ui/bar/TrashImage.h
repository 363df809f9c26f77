#pragma once

#include "platform/Image.h"

#include <string>

namespace larkspan::ui {

/// The Trash as a picture of our own: a glass bin, with crumpled paper in it when it is not empty.
class TrashImage final : public Image {
  public:
    explicit TrashImage(bool isEmpty);
    const std::string& identity() const override { return identity_; }
    Bitmap bitmap(int pixels) const override;

  private:
    bool isEmpty_;
    std::string identity_;
};

} // namespace larkspan::ui
