#pragma once

#include "bar/BarPanel.h"

#include <vector>

namespace larkspan::soak {

/// Panels without a picture, for inspection.
class LivePanels : public BarPanels {
  public:
    struct Panel {
        DisplayId display = 0;
        Rect frame;
        bool isShown = false;
    };

    /// Panels add themselves to the list, and remove themselves when they are destroyed.
    explicit LivePanels(std::vector<const Panel*>& alive)
        : alive_(alive) {}
    std::unique_ptr<BarPanel> makePanel(const Screen&) override {
        return std::make_unique<LivePanel>(alive_);
    }

  private:
    class LivePanel final : public BarPanel {
      public:
        explicit LivePanel(std::vector<const Panel*>& alive)
            : alive_(alive) {
            alive_.push_back(&panel_);
        }
        ~LivePanel() override { std::erase(alive_, &panel_); }
        LivePanel(const LivePanel&) = delete;
        LivePanel& operator=(const LivePanel&) = delete;

        void place(const Screen& screen, double height) override {
            panel_.display = screen.display;
            panel_.frame = {screen.frame.x, screen.frame.y, screen.frame.width, height};
        }
        void orderIn() override { panel_.isShown = true; }
        void orderOut() override { panel_.isShown = false; }
        bool takeKeyboard() override { return panel_.isShown; }
        Rect barFrame() const override { return panel_.frame; }

      private:
        std::vector<const Panel*>& alive_;
        Panel panel_;
    };

    std::vector<const Panel*>& alive_;
};

} // namespace larkspan::soak
