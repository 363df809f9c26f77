#pragma once

#include "platform/Image.h"

#import <AppKit/AppKit.h>

#include <string>

namespace larkspan::mac {

/// An NSImage that does not change any more.
class MacImage final : public Image {
  public:
    MacImage(std::string identity, NSImage* picture);

    const std::string& identity() const override { return identity_; }
    Bitmap bitmap(int pixels) const override;

  private:
    std::string identity_;
    NSImage* picture_;
};

} // namespace larkspan::mac
