#pragma once

#include "bar/BarPanel.h"
#include "ui/bar/BarScene.h"
#include "ui/parts/Views.h"

#include <QObject>
#include <QQuickItem>

#include <memory>
#include <vector>

namespace larkspan::ui {

/// A bar as an item of the demo's window, over its display's bottom edge.
class DemoBarPanel final : public QObject, public BarPanel {
    Q_OBJECT

  public:
    DemoBarPanel(Views& views, QQuickItem& desktop, std::unique_ptr<BarScene> scene, BarLook& look);
    ~DemoBarPanel() override;

    void place(const Screen& screen, double height) override;
    void orderIn() override;
    void orderOut() override;
    bool takeKeyboard() override;
    Rect barFrame() const override;

    BarScene& scene() { return *scene_; }
    /// In screen coordinates, and in those of the demo's desktop.
    Rect tileOnScreen(int index) const;
    QRectF tileOnDesktop(int index) const;
    /// Where a menu of the bar itself stands, `x` points from the bar's left end.
    QRectF placeOnDesktop(double x) const;

  private:
    void updateSurface();

    BarLook& look_;
    std::unique_ptr<BarScene> scene_;
    std::unique_ptr<QQuickItem> root_;
    Screen screen_;
    double height_ = 0;
    std::vector<Handle> observations_;
};

} // namespace larkspan::ui
