#pragma once

#include "platform/Screens.h"

namespace larkspan::mac {

/// The screens that AppKit lists: the one with the menu bar first; a mirrored set is one screen.
class MacScreens final : public Screens {
  public:
    std::vector<Screen> screens() const override;
    Handle subscribe(std::function<void()> callback) override;
};

} // namespace larkspan::mac
