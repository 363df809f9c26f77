#pragma once

#include "platform/PanelDressing.h"

#import <AppKit/AppKit.h>

#include <vector>

namespace larkspan::mac {

/// Turns the toolkit's windows into floating panels. A `NativeWindow` is the NSView that fills the
/// window.
class MacPanelDressing final : public PanelDressing {
  public:
    MacPanelDressing() = default;
    ~MacPanelDressing() override;
    MacPanelDressing(const MacPanelDressing&) = delete;
    MacPanelDressing& operator=(const MacPanelDressing&) = delete;

    void dress(NativeWindow window) override;
    void reserveStrip(NativeWindow, const Screen&, double) override {}
    void setInputArea(NativeWindow window, const Rect& area) override;
    void giveKeyboardBack(NativeWindow window) override;

  private:
    /// The windows may have been closed.
    struct InputArea {
        __weak NSWindow* window;
        /// In the window's own coordinates, from its top left.
        Rect area;
    };

    void watchPointer();
    void followPointer();

    std::vector<InputArea> areas_;
    NSMutableArray* monitors_ = nil;
};

} // namespace larkspan::mac
