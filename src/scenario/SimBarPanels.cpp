#include "scenario/SimBarPanels.h"

namespace larkspan::sim {

namespace {

class Panel final : public BarPanel {
  public:
    void place(const Screen& screen, double height) override {
        frame_ = {screen.frame.x, screen.frame.y, screen.frame.width, height};
    }
    void orderIn() override {}
    void orderOut() override {}
    bool takeKeyboard() override { return true; }
    Rect barFrame() const override { return frame_; }

  private:
    Rect frame_;
};

} // namespace

std::unique_ptr<BarPanel> SimBarPanels::makePanel(const Screen&) {
    return std::make_unique<Panel>();
}

} // namespace larkspan::sim
