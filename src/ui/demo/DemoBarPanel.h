#pragma once

#include "bar/BarPanel.h"
#include "ui/bar/BarViewModel.h"
#include "ui/parts/Views.h"

#include <QQuickItem>

#include <memory>
#include <vector>

namespace larkspan::ui {

/// A bar as an item of the demo's window, over its display's bottom edge.
class DemoBarPanel final : public BarPanel {
  public:
    DemoBarPanel(Views& views, QQuickItem& desktop, std::unique_ptr<BarViewModel> model,
                 BarLook& look);
    ~DemoBarPanel() override;

    Size place(const Screen& screen, double height) override;
    void orderIn() override;
    void orderOut() override;
    bool takeKeyboard() override;

  private:
    void updateSurface();

    BarLook& look_;
    std::unique_ptr<BarViewModel> model_;
    std::unique_ptr<QQuickItem> root_;
    Screen screen_;
    double height_ = 0;
    std::vector<Handle> observations_;
};

} // namespace larkspan::ui
