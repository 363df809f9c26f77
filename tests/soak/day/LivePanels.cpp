#include "soak/day/LivePanels.h"

namespace larkspan::soak {

namespace {

class LivePanel final : public BarPanel {
  public:
    LivePanel(std::vector<const LivePanels::Panel*>& alive, BarInteraction& bar)
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
    std::vector<const LivePanels::Panel*>& alive_;
    LivePanels::Panel panel_;
};

} // namespace

std::unique_ptr<BarPanel> LivePanels::makePanel(const Screen&, BarInteraction& bar) {
    return std::make_unique<LivePanel>(alive_, bar);
}

} // namespace larkspan::soak
