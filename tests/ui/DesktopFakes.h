#pragma once

#include "platform/DesktopPicture.h"
#include "platform/PanelDressing.h"
#include "platform/Signal.h"

#include <optional>
#include <vector>

namespace larkspan::ui {

/// A desktop whose picture and compositor the test chooses.
class FakeDesktop : public DesktopPicture {
  public:
    bool isComposited() const override { return composited; }
    std::optional<Bitmap> under(const Rect& rect) const override;
    Handle subscribe(std::function<void()> callback) override {
        return changes.subscribe(std::move(callback));
    }

    bool composited = false;
    bool hasPicture = true;
    double scale = 1;
    Signal<> changes;
};

/// Remembers what panels asked for.
class FakeDressing : public PanelDressing {
  public:
    void dress(NativeWindow) override { ++dressed; }
    void reserveStrip(NativeWindow, const Screen&, double height) override { strip = height; }
    void setInputArea(NativeWindow, const Rect& area) override { inputArea = area; }
    void setTiles(DisplayId, const std::map<ProcessId, Rect>& frames) override { tiles = frames; }

    int dressed = 0;
    double strip = -1;
    Rect inputArea;
    std::map<ProcessId, Rect> tiles;
};

} // namespace larkspan::ui
