#pragma once

#include "bar/BarPanel.h"
#include "platform/DesktopPicture.h"
#include "platform/PanelDressing.h"
#include "ui/bar/BarViewModel.h"
#include "ui/bar/BarWindow.h"
#include "ui/parts/Views.h"

#include <QObject>

#include <memory>

namespace larkspan::ui {

/// The screen's rectangle as the toolkit counts it, which on a scaled desktop is not quite how the
/// system does.
QRect desktopArea(const Screen& screen);

/// The bar's window on one screen: as wide as the screen, see-through beside the glass. Main thread
/// only.
class QuickBarPanel final : public QObject, public BarPanel {
    Q_OBJECT

  public:
    QuickBarPanel(Views& views, std::unique_ptr<BarViewModel> model, BarLook& look,
                  PanelDressing& dressing, DesktopPicture& desktop);
    ~QuickBarPanel() override;

    Size place(const Screen& screen, double height) override;
    void orderIn() override;
    void orderOut() override;
    bool takeKeyboard() override;

    /// Takes the keyboard back from what had it in the bar's place, if it is the bar's.
    void keepKeyboard();

    BarViewModel& model() { return *model_; }
    BarWindow& window() { return window_; }

  private:
    void observe();
    void releaseKeyboard();
    void updateSurface();
    void updateShape();
    void updateStrip();
    void updateTiles();
    BarInteraction& bar() { return model_->bar(); }
    NativeWindow nativeWindow() const { return static_cast<NativeWindow>(window_.winId()); }

    PanelDressing& dressing_;
    DesktopPicture& desktop_;
    BarLook& look_;
    std::unique_ptr<BarViewModel> model_;
    BarWindow window_;
    std::unique_ptr<QQuickItem> root_;
    Screen screen_;
    double height_ = 0;
    Size size_;
    bool isShown_ = false;
    std::vector<Handle> observations_;
};

} // namespace larkspan::ui
