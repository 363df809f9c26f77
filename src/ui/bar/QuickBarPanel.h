#pragma once

#include "bar/BarPanel.h"
#include "platform/DesktopPicture.h"
#include "platform/PanelDressing.h"
#include "ui/bar/BarScene.h"
#include "ui/bar/BarWindow.h"
#include "ui/parts/Views.h"

#include <QObject>

#include <memory>

namespace larkspan::ui {

/// The bar's window on one screen: as wide as the screen, see-through beside the glass. Main thread
/// only.
class QuickBarPanel final : public QObject, public BarPanel {
    Q_OBJECT

  public:
    QuickBarPanel(Views& views, std::unique_ptr<BarScene> scene, BarLook& look,
                  PanelDressing& dressing, DesktopPicture& desktop);
    ~QuickBarPanel() override;

    void place(const Screen& screen, double height) override;
    void orderIn() override;
    void orderOut() override;
    bool takeKeyboard() override;
    Rect barFrame() const override;

    void leaveKeyboard();

    BarScene& scene() { return *scene_; }
    BarWindow& window() { return window_; }
    const Screen& screen() const { return screen_; }
    /// A tile's frame in the coordinates of the toolkit's windows, and in screen coordinates.
    QRectF tileOnDesktop(int index) const;
    QRectF placeOnDesktop(const QRectF& place) const;
    Rect tileOnScreen(int index) const;
    QRectF screenOnDesktop() const { return area_; }

  private:
    void updateSurface();
    void updateShape();
    void updateStrip();
    void updateTiles();
    NativeWindow nativeWindow() const { return static_cast<NativeWindow>(window_.winId()); }

    PanelDressing& dressing_;
    DesktopPicture& desktop_;
    BarLook& look_;
    std::unique_ptr<BarScene> scene_;
    BarWindow window_;
    std::unique_ptr<QQuickItem> root_;
    Screen screen_;
    /// The screen as the toolkit counts it.
    QRect area_;
    double height_ = 0;
    bool isShown_ = false;
    std::vector<Handle> observations_;
};

} // namespace larkspan::ui
