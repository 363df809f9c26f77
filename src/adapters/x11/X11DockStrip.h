#pragma once

#include "platform/DockStrip.h"

#include <functional>
#include <utility>

namespace larkspan::x11 {

/// The strip that the bars reserve with their struts; here only what the screens' visible frames
/// leave out.
class X11DockStrip : public DockStrip {
  public:
    explicit X11DockStrip(std::function<void(double height)> changed)
        : changed_(std::move(changed)) {}

    void hold(double height) override { changed_(height); }
    void release() override { changed_(0); }

  private:
    std::function<void(double height)> changed_;
};

} // namespace larkspan::x11
