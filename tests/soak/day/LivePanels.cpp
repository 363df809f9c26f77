#include "soak/day/LivePanels.h"

namespace larkspan::soak {

namespace {

class LivePanel final : public BarPanel {
  public:
    explicit LivePanel(std::vector<const LivePanels::Panel*>& alive)
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
    std::vector<const LivePanels::Panel*>& alive_;
    LivePanels::Panel panel_;
};

} // namespace

std::unique_ptr<BarPanel> LivePanels::makePanel(const Screen&) {
    return std::make_unique<LivePanel>(alive_);
}

} // namespace larkspan::soak
