#pragma once

#include "platform/Screens.h"

#include <utility>
#include <vector>

namespace larkspan {

/// Screens with fixed values.
class FixedScreens : public Screens {
  public:
    std::vector<Screen> screens() const override { return list; }
    Handle subscribe(std::function<void()>) override { return {}; }

    /// Adds a screen with a strip of `strip` points at its bottom that windows leave free.
    void add(DisplayId display, Rect frame, double strip) {
        Screen screen{.display = display, .frame = frame, .visibleFrame = frame};
        screen.visibleFrame.y += strip;
        screen.visibleFrame.height -= strip;
        list.push_back(std::move(screen));
    }

    std::vector<Screen> list;
};

} // namespace larkspan
