#pragma once

#include "platform/Screens.h"

namespace larkspan::mac {

/// The screens as AppKit lists them: the one with the menu bar first, a mirrored set as one.
class MacScreens final : public Screens {
  public:
    std::vector<Screen> screens() const override;
    Handle subscribe(std::function<void()> callback) override;
};

} // namespace larkspan::mac
