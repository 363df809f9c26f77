#pragma once

#include "adapters/sim/SimMac.h"

#include <QQuickPaintedItem>
#include <QVariantAnimation>

#include <functional>
#include <string>
#include <vector>

namespace larkspan::ui {

/// The simulated Mac's own Dock, as large as its icon size and its strip make it: at the bottom
/// edge or at a side of the main display. A click opens an app. Main thread only.
class DemoDock : public QQuickPaintedItem {
    Q_OBJECT

  public:
    /// With `isAnimated` a new icon size is reached in a moment instead of at once.
    DemoDock(sim::SimMac& mac, QQuickItem& desktop, bool isAnimated);

    /// Reads the Mac's state again.
    void refresh();
    void paint(QPainter* painter) override;

    /// Called after the user did something to the Mac.
    std::function<void()> onUse;

  protected:
    void mousePressEvent(QMouseEvent* event) override;

  private:
    struct Entry {
        std::string path;
        ImageRef icon;
        bool isRunning = false;
    };
    std::vector<Entry> entries() const;
    bool isSideways() const;
    QRectF tile(std::size_t index) const;
    void arrange();

    sim::SimMac& mac_;
    bool isAnimated_;
    QVariantAnimation growth_;
    std::vector<Entry> entries_;
    /// Points from the edge of the screen that the Dock takes, as it is drawn now.
    double thickness_ = 0;
};

} // namespace larkspan::ui
