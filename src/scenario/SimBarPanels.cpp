#include "scenario/SimBarPanels.h"

#include <cmath>

namespace larkspan::sim {

namespace {

class UnseenPanel final : public BarPanel {
  public:
    Size place(const Screen& screen, double height) override {
        return {screen.frame.width, std::round(height)};
    }
    void orderIn() override {}
    void orderOut() override {}
    bool takeKeyboard() override { return true; }
};

} // namespace

std::unique_ptr<BarPanel> SimBarPanels::makePanel(const Screen&, BarInteraction&) {
    return std::make_unique<UnseenPanel>();
}

} // namespace larkspan::sim
