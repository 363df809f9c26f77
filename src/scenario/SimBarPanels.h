#pragma once

#include "bar/BarPanel.h"
#include "bar/BarPopups.h"

namespace larkspan::sim {

/// A label and a menu that nobody sees.
class UnseenPopups final : public BarPopups {
  public:
    void showLabel(const std::string&, const Rect&, const Screen&) override {}
    void hideLabel() override {}
    void openMenu(const Menu&, const Rect&, const Screen&, bool) override {}
    void closeMenu() override {
        if (onMenuClosed) onMenuClosed();
    }
};

/// Bars without a picture: each panel takes the whole width of its screen. What happens on it is
/// the interaction's, as on every bar.
class SimBarPanels final : public BarPanels {
  public:
    std::unique_ptr<BarPanel> makePanel(const Screen& screen, BarInteraction& bar) override;
    BarPopups& popups() override { return popups_; }

  private:
    UnseenPopups popups_;
};

} // namespace larkspan::sim
