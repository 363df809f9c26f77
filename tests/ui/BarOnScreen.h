#pragma once

#include "adapters/sim/SimMac.h"
#include "app/AppController.h"
#include "ui/DesktopFakes.h"
#include "ui/bar/QuickBarPanel.h"
#include "ui/bar/QuickBarPanels.h"

#include <QImage>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan::ui {

/// A simulated Mac with a bar on it that Qt Quick draws into memory.
class BarOnScreen {
  public:
    explicit BarOnScreen(std::string_view displays = "1440x900");
    ~BarOnScreen();

    /// Installs and launches apps with a window each; the last one is in front.
    void openApps(const std::vector<std::string>& names);
    /// Starts the program, and lets all that it does at the start happen.
    void start();
    /// Lets the model and the views come to rest.
    void settle();
    QImage picture();
    QuickBarPanel& panel() { return *panels_->made.front(); }
    BarViewModel& model() { return panel().model(); }
    BarInteraction& bar() { return model().bar(); }
    /// The first tile of that name, or -1.
    int tileOf(const std::string& name);

    Appearance appearance;
    Views views;
    sim::SimMac mac;
    FakeDesktop desktop;
    FakeDressing dressing;
    AppController app;

  private:
    struct Panels : BarPanels {
        Panels(AppController& app, BarOnScreen& stage);
        std::unique_ptr<BarPanel> makePanel(const Screen& screen, BarInteraction& bar) override;
        BarPopups& popups() override { return views.popups(); }

        QuickBarPanels views;
        std::vector<QuickBarPanel*> made;
    };
    Panels* panels_ = nullptr;
};

} // namespace larkspan::ui
