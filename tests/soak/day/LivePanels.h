#pragma once

#include "bar/BarPanel.h"
#include "scenario/SimBarPanels.h"

#include <memory>
#include <vector>

namespace larkspan::soak {

/// Panels without a picture, for inspection.
class LivePanels : public BarPanels {
  public:
    struct Panel {
        DisplayId display = 0;
        Rect frame;
        bool isShown = false;
        const BarInteraction* bar = nullptr;
    };

    /// Panels add themselves to the list, and remove themselves when they are destroyed.
    explicit LivePanels(std::vector<const Panel*>& alive)
        : alive_(alive) {}
    std::unique_ptr<BarPanel> makePanel(const Screen&, BarInteraction& bar) override {
        return std::make_unique<LivePanel>(alive_, bar);
    }
    BarPopups& popups() override { return popups_; }

  private:
    class LivePanel final : public BarPanel {
      public:
        LivePanel(std::vector<const Panel*>& alive, BarInteraction& bar)
            : alive_(alive) {
            panel_.bar = &bar;
            alive_.push_back(&panel_);
        }
        ~LivePanel() override { std::erase(alive_, &panel_); }
        LivePanel(const LivePanel&) = delete;
        LivePanel& operator=(const LivePanel&) = delete;

        Size place(const Screen& screen, double height) override {
            panel_.display = screen.display;
            panel_.frame = {screen.frame.x, screen.frame.y, screen.frame.width, height};
            return {screen.frame.width, height};
        }
        void orderIn() override { panel_.isShown = true; }
        void orderOut() override { panel_.isShown = false; }
        bool takeKeyboard() override { return panel_.isShown; }

      private:
        std::vector<const Panel*>& alive_;
        Panel panel_;
    };

    std::vector<const Panel*>& alive_;
    sim::UnseenPopups popups_;
};

} // namespace larkspan::soak
